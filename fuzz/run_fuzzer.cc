// Feeds arbitrary bytes through the whole run of the tool: loading, the runs
// of the ports, the run of the model, the zip and the diagram.
//
// An input is a source, a line "%%", a line naming the model (with "-u" or
// "-d" in front for an unconstrained or a debug run), and the trace, one
// event per line. A model that the source lacks gives way to its first one.
//
// A search may fork exponentially, so a run is cut short after a budget of
// states: that is the model's cost, not a fault of the tool.
//
// Most mutations of a source break its syntax, so three mutations in four
// leave the source alone and change only the model line and the trace.
#include "PrivateSource.h"

#include "tool/File.h"
#include "tool/ProgressLine.h"
#include "tool/RunFlow.h"

#include "interpreter/SearchObserver.h"

#include "metamodel/ModelDeclaration.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <iostream>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

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

std::unique_ptr<File const> load(std::string const& source) {
    WritePrivateSource(source.data(), source.size());
    try {
        return std::make_unique<File const>(PrivateSourcePath(), std::vector<std::string>{});
    } catch (std::exception const&) {
        return nullptr;
    }
}

kel::ModelDeclaration const* chooseModel(File const& file, Options const& options) {
    auto const named = options.find("modelname");
    if (auto const* model = file.TryGetModel(named == options.end() ? "" : named->second)) {
        return model;
    }
    auto const names = file.ModelNames();
    return names.empty() ? nullptr : file.TryGetModel(names.front());
}

void run(kel::ModelDeclaration const& model, Input const& input) {
    std::istringstream trace(input.trace);
    std::ostringstream diagram;
    ProgressLine silent(std::cerr, false);
    Budget budget;
    ObservedSearches observed(budget);
    try {
        RunModel(model, input.options, trace, diagram, silent);
    } catch (BudgetSpent const&) {
        // The search outgrew the budget.
    } catch (std::exception const&) {
        // A failure that the tool reports with exit status 1.
    }
}

} // namespace

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned int seed) {
    std::string_view const text(reinterpret_cast<char const*>(data), size);
    auto const marker = text.find("\n%%\n");
    auto const run = marker + 4;
    if (marker == std::string_view::npos || run >= maxSize || seed % 4 == 0) {
        return LLVMFuzzerMutate(data, size, maxSize);
    }
    return run + LLVMFuzzerMutate(data + run, size - run, maxSize - run);
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    auto const input = split(std::string(reinterpret_cast<char const*>(data), size));
    auto const file = load(input.source);
    auto const* model = file == nullptr ? nullptr : chooseModel(*file, input.options);
    if (model == nullptr) {
        // Kept out of the corpus by libFuzzer 15 and later: a source that
        // does not load is the ground of the source harness, and its many
        // ways of failing would crowd out the runs.
        return -1;
    }
    run(*model, input);
    return 0;
}
