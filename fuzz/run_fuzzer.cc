// Feeds arbitrary bytes through the whole run of the tool: loading, the runs
// of the ports, the run of the model, the zip and the diagram.
//
// An input is a source, a line "%%", a line naming the model (with "-u" or
// "-d" in front for an unconstrained or a debug run), and the trace, one
// event per line. A model that the source lacks gives way to its first one.
//
// A search may fork exponentially, so a run is cut short after a budget of
// states: that is the model's cost, not a fault of the tool.
#include "tool/File.h"
#include "tool/ProgressLine.h"
#include "tool/RunFlow.h"

#include "interpreter/SearchObserver.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>
#include <unistd.h>

namespace {

constexpr std::size_t stateBudget = 200000;

struct BudgetSpent {};

class Budget : public SearchObserver {
public:
    void Explored(std::size_t states, std::size_t, std::size_t) override {
        spent += states;
        if (spent > stateBudget) {
            throw BudgetSpent{};
        }
    }

private:
    std::size_t spent = 0;
};

// One private folder per process, so that imports of the input find nothing
// but what the input itself is.
std::string const& sourcePath() {
    static std::string const path = [] {
        std::string folder = "/tmp/kel-fuzz-XXXXXX";
        if (mkdtemp(folder.data()) == nullptr) {
            std::abort();
        }
        return folder + "/input.kel";
    }();
    return path;
}

struct Input {
    std::string source;
    Options options;
    std::string trace;
};

Input split(std::string const& text) {
    Input input;
    auto const marker = text.find("\n%%\n");
    input.source = text.substr(0, marker);
    if (marker == std::string::npos) {
        return input;
    }
    std::istringstream rest(text.substr(marker + 4));
    std::string line;
    std::getline(rest, line);
    std::istringstream words(line);
    for (std::string word; words >> word;) {
        if (word == "-u") {
            input.options["unconstrained"] = "true";
        } else if (word == "-d") {
            input.options["debug"] = "true";
        } else {
            input.options["modelname"] = word;
        }
    }
    input.trace.assign(std::istreambuf_iterator<char>(rest), {});
    return input;
}

void run(Input const& input) {
    {
        std::ofstream out(sourcePath(), std::ios::binary | std::ios::trunc);
        out << input.source;
    }
    File const file(sourcePath(), {});
    auto const* model = file.TryGetModel(input.options.contains("modelname")
                                             ? input.options.at("modelname")
                                             : std::string());
    if (model == nullptr) {
        auto const names = file.ModelNames();
        model = names.empty() ? nullptr : file.TryGetModel(names.front());
    }
    if (model == nullptr) {
        return;
    }
    std::istringstream trace(input.trace);
    std::ostringstream diagram;
    ProgressLine silent(std::cerr, false);
    Budget budget;
    ObservedSearches observed(budget);
    RunModel(*model, input.options, trace, diagram, silent);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    try {
        run(split(std::string(reinterpret_cast<char const*>(data), size)));
    } catch (BudgetSpent const&) {
        // The search outgrew the budget.
    } catch (std::exception const&) {
        // A source error or a failure the tool reports with exit status 1.
    }
    return 0;
}
