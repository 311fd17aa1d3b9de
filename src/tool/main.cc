// kel-trace: runs a model of the kel language against a named event trace and
// writes the first matching sequence diagram as JSON.
#include "tool/File.h"
#include "tool/Options.h"
#include "tool/RunFlow.h"

#include <exception>
#include <iostream>

#include <unistd.h>

namespace {

bool usageRequested(Options const& options) {
    return !hasOption(options, "modelname") || !hasOption(options, "modelpath") ||
           options.contains("help");
}

int run(Options const& options) {
    File const file(getOption(options, "modelpath"), getOptionList(options, "includepath"));
    std::string const modelName = getOption(options, "modelname");
    auto const* model = file.TryGetModel(modelName);
    if (model == nullptr) {
        std::cerr << "Model '" << modelName << "' not found.\n";
        return 1;
    }
    // Only a terminal shows progress: a log stream that is a file or a pipe
    // gets nothing but the messages it always got.
    ProgressLine progress(std::cerr, isatty(STDERR_FILENO) == 1);
    RunModel(*model, options, std::cin, std::cout, progress);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    Options const options = getOptions(argc, argv, listOptionTable(), valueOptionTable(),
                                       flagOptionTable(), defaultOptionLetter);
    if (usageRequested(options)) {
        printManual(argc > 0 ? argv[0] : "kel-trace", std::cout);
        return 1;
    }
    try {
        return run(options);
    } catch (std::exception const& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
