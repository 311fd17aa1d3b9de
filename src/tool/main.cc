// kel-trace: runs a model of the kel language against a named event trace and
// writes the first matching sequence diagram as JSON.
#include "tool/File.h"
#include "tool/Options.h"
#include "tool/RunFlow.h"

#include <exception>
#include <iostream>
#include <memory>

#include <unistd.h>

namespace {

bool usageRequested(Options const& options) {
    return !hasOption(options, "modelname") || !hasOption(options, "modelpath") ||
           options.contains("help");
}

int runModelOf(File const& file, Options const& options) {
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

// The store of a large source holds millions of objects, and freeing them one
// by one took a third of a run that ends right after. So the process end
// takes them back, except in the sanitizer build, whose leak check is to
// cover every object.
void leaveToProcessEnd(std::unique_ptr<File const> file) {
#ifdef KEL_SANITIZE
    file.reset();
#else
    static_cast<void>(file.release());
#endif
}

int run(Options const& options) {
    auto file = std::make_unique<File const>(getOption(options, "modelpath"),
                                             getOptionList(options, "includepath"));
    int const status = runModelOf(*file, options);
    leaveToProcessEnd(std::move(file));
    return status;
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
