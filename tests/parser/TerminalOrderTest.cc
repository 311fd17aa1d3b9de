#include "parser/BisonParser.h"

#include <gtest/gtest.h>

namespace {

using language::BisonParser;

// Expected terminals are listed in the order of their numbers, so the numbering
// is part of every syntax error text.
TEST(TerminalOrderTest, TerminalsAreNumberedInTheLanguagesOrder) {
    std::vector<std::string> const names = {"end of file",
                                            "error",
                                            "",
                                            "{",
                                            "}",
                                            "[",
                                            "]",
                                            "(",
                                            ";",
                                            ":",
                                            "..",
                                            ".",
                                            ",",
                                            "<=>",
                                            "=",
                                            "*",
                                            "#imported",
                                            "#file",
                                            "#dir",
                                            "import",
                                            "identifier",
                                            "datastring",
                                            "integer",
                                            "behaviour",
                                            "blocking",
                                            "bool",
                                            "component",
                                            "enum",
                                            "extern",
                                            "external",
                                            "false",
                                            "if",
                                            "illegal",
                                            "in",
                                            "inevitable",
                                            "injected",
                                            "inout",
                                            "interface",
                                            "namespace",
                                            "on",
                                            "optional",
                                            "otherwise",
                                            "out",
                                            "provides",
                                            "reply",
                                            "requires",
                                            "return",
                                            "subint",
                                            "system",
                                            "true",
                                            "LEFTARROW",
                                            "<-",
                                            "OR",
                                            "||",
                                            "AND",
                                            "&&",
                                            "ISEQUAL",
                                            "==",
                                            "ISNOTEQUAL",
                                            "!=",
                                            "ISLESS",
                                            "<",
                                            "ISLESSEQUAL",
                                            "<=",
                                            "ISGREATER",
                                            ">",
                                            "ISGREATEREQUAL",
                                            ">=",
                                            "PLUS",
                                            "+",
                                            "MINUS",
                                            "-",
                                            "NOT",
                                            "!",
                                            "PARENTHESISCLOSE",
                                            ")",
                                            "ELSE",
                                            "else"};
    ASSERT_EQ(static_cast<std::size_t>(BisonParser::YYNTOKENS), names.size());
    for (std::size_t number = 0; number < names.size(); ++number) {
        if (number == BisonParser::symbol_kind::S_YYUNDEF) {
            continue; // shown as $undefined by the error report, whatever its table name
        }
        auto kind = static_cast<BisonParser::symbol_kind_type>(number);
        EXPECT_EQ(BisonParser::symbol_name(kind), names[number]) << "terminal " << number;
    }
}

} // namespace
