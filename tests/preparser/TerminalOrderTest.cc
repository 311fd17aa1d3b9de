#include "preparser/PreBisonParser.h"

#include <gtest/gtest.h>

namespace {

using pre::PreBisonParser;

// Expected terminals are listed in the order of their numbers, so the numbering
// is part of every syntax error text.
TEST(PreTerminalOrderTest, TerminalsAreNumberedInThePreParsersOrder) {
    std::vector<std::string> const names = {"end of file", "error",      "",           "{",
                                            "}",           ".",          ";",          "special",
                                            "import",      "identifier", "datastring", "integer",
                                            "component",   "interface",  "namespace"};
    ASSERT_EQ(static_cast<std::size_t>(PreBisonParser::YYNTOKENS), names.size());
    for (std::size_t number = 0; number < names.size(); ++number) {
        if (number == PreBisonParser::symbol_kind::S_YYUNDEF) {
            continue; // shown as $undefined by the error report, whatever its table name
        }
        auto kind = static_cast<PreBisonParser::symbol_kind_type>(number);
        EXPECT_EQ(PreBisonParser::symbol_name(kind), names[number]) << "terminal " << number;
    }
}

} // namespace
