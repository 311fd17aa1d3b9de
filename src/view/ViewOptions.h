// The command line of kel-trace-view.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace view {

struct ViewOptions {
    std::string input;  // the diagram's file, "-" for standard input
    std::string output; // empty for standard output
    bool svg = false;   // the bare SVG instead of the HTML page
    bool help = false;
};

// A command line that names no diagram, names two, or holds an unknown option.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// `arguments` without the program's name.
ViewOptions parseViewOptions(std::vector<std::string> const& arguments);

extern char const* const viewUsage;

} // namespace view
