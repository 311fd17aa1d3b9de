// Sources that state their expected errors on the lines that cause them:
// "//@12: text" on line 5 expects "t.kel:5:12: text". On one line the
// expectations are taken in the order written.
#pragma once

#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace language::test {

inline std::vector<std::string> annotatedErrors(std::string const& source) {
    static std::regex const annotation(R"(//@(\d+): (.*?)\s*(?= //@|$))");
    std::vector<std::string> expected;
    std::istringstream lines(source);
    int number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        for (std::sregex_iterator it(line.begin(), line.end(), annotation), end; it != end; ++it) {
            expected.push_back("t.kel:" + std::to_string(number) + ":" + (*it)[1].str() + ": " +
                               (*it)[2].str());
        }
    }
    return expected;
}

} // namespace language::test
