// Parses a source through every pass of the driver, and gives its error lines.
#pragma once

#include "TestStore.h"
#include "parser/Parser.h"

#include <sstream>
#include <string>
#include <vector>

namespace language::test {

struct CheckedSource {
    // The error lines, "t.kel:line:column: message" each.
    std::vector<std::string> parse(std::string const& source) {
        std::istringstream in(source);
        succeeded = parser.parseStream(in, "t.kel", {}, false, true, true);
        std::ostringstream out;
        parser.printErrors(out);
        std::vector<std::string> errors;
        std::istringstream printed(out.str());
        for (std::string line; std::getline(printed, line);) {
            errors.push_back(line);
        }
        return errors;
    }

    TestStore store;
    Parser parser{store.model};
    bool succeeded = false;
};

// The line of a well-formedness error at a line and column of "t.kel".
inline std::string wf(int line, int column, std::string const& message) {
    return "t.kel:" + std::to_string(line) + ":" + std::to_string(column) +
           ": Well-formedness error: " + message;
}

} // namespace language::test
