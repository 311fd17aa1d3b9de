#include "view/ViewOptions.h"

namespace view {

char const* const viewUsage =
    "Usage: kel-trace-view [-o OUTPUT] [--svg] DIAGRAM\n"
    "Draws the sequence diagram that kel-trace printed as one HTML page.\n"
    "  DIAGRAM    the JSON document of kel-trace; - reads standard input\n"
    "  -o OUTPUT  write to OUTPUT instead of standard output\n"
    "  --svg      write the bare SVG picture instead of the HTML page\n"
    "  -h, --help print this help\n";

ViewOptions parseViewOptions(std::vector<std::string> const& arguments) {
    ViewOptions options;
    bool haveInput = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        std::string const& argument = arguments[i];
        if (argument == "-h" || argument == "--help") {
            options.help = true;
        } else if (argument == "--svg") {
            options.svg = true;
        } else if (argument == "-o") {
            if (++i == arguments.size()) {
                throw UsageError("-o needs a file name");
            }
            options.output = arguments[i];
        } else if (argument.size() > 1 && argument[0] == '-') {
            throw UsageError("unknown option " + argument);
        } else if (haveInput) {
            throw UsageError("one diagram at a time, not also " + argument);
        } else {
            options.input = argument;
            haveInput = true;
        }
    }
    if (!haveInput && !options.help) {
        throw UsageError("no diagram given; name its file, or - for standard input");
    }
    return options;
}

} // namespace view
