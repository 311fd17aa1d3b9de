// The names that a generated parser gives its terminals, by number: expected
// terminals are listed in the order of their numbers, so the numbering is part
// of every syntax error text.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace test {

// `terminals`: the grammar's own terminals, after bison's three, separated by spaces.
template <class Parser> void expectTerminalNames(std::string const& terminals) {
    std::vector<std::string> names{"end of file", "error", ""};
    std::istringstream words(terminals);
    for (std::string word; words >> word;) {
        names.push_back(word);
    }
    ASSERT_EQ(static_cast<std::size_t>(Parser::YYNTOKENS), names.size());
    for (std::size_t number = 0; number < names.size(); ++number) {
        if (number == Parser::symbol_kind::S_YYUNDEF) {
            continue; // shown as $undefined by the error report, whatever its table name
        }
        auto kind = static_cast<typename Parser::symbol_kind_type>(number);
        EXPECT_EQ(Parser::symbol_name(kind), names[number]) << "terminal " << number;
    }
}

} // namespace test
