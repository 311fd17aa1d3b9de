// Times the parts of one whole run of kel-trace: loading, the port runs, the
// main run, the reconciliation, the deadlock check and the diagram, which it
// writes nowhere. Prints one line of "phase=CPU seconds" pairs.
// Usage: run_phases SOURCE MODEL TRACEFILE [-u]
#include "tool/File.h"
#include "tool/RunFlow.h"

#include <ctime>
#include <iostream>
#include <ostream>
#include <sstream>
#include <streambuf>

namespace {

double CpuSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

// Throws away what is written to it.
class NullBuffer : public std::streambuf {
protected:
    int overflow(int c) override { return c; }
    std::streamsize xsputn(char const*, std::streamsize count) override { return count; }
};

} // namespace

int main(int argc, char** argv) {
    if (argc < 4) {
        std::cerr << "usage: run_phases SOURCE MODEL TRACEFILE [-u]\n";
        return 1;
    }
    Options options{{"modelname", argv[2]}, {"modelpath", argv[1]}, {"tracefile", argv[3]}};
    if (argc > 4) {
        options["unconstrained"] = "";
    }
    double last = CpuSeconds();
    auto const phaseDone = [&](char const* phase) {
        double const now = CpuSeconds();
        std::cout << phase << "=" << now - last << " ";
        last = now;
    };
    File const file(argv[1], {});
    phaseDone("load");
    auto const* model = file.TryGetModel(argv[2]);
    if (model == nullptr) {
        std::cerr << "no model " << argv[2] << "\n";
        return 1;
    }
    NullBuffer nothing;
    std::ostream discard(&nothing);
    std::istringstream noInput;
    ProgressLine silent(std::cerr, false);
    RunModel(*model, options, noInput, discard, silent, phaseDone);
    std::cout << "\n";
}
