// Syntax errors, and what recovery keeps of the source in the stored tree.
#include "StoredOutline.h"
#include "TestStore.h"
#include "parser/grammar/Parser.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

// A source, the errors it must give, and the declarations that recovery
// filed; none when parsing gave up.
struct ErrorCase {
    std::string source;
    std::string errors;
    std::string kept;
};

void PrintTo(ErrorCase const& c, std::ostream* out) { *out << testing::PrintToString(c.source); }

class SyntaxErrorTest : public testing::TestWithParam<ErrorCase> {};

TEST_P(SyntaxErrorTest, ReportsAndRecovers) {
    language::TestStore store;
    language::Parser parser(store.model);
    std::istringstream in(GetParam().source);
    EXPECT_FALSE(parser.parseStream(in, "t.kel", {}, false, false, false));
    std::ostringstream errors;
    parser.printErrors(errors);
    EXPECT_EQ(errors.str(), GetParam().errors);
    EXPECT_EQ(language::test::declarations(store.model), GetParam().kept);
}

// A guard that lost its expression is left out; the statement stays.
std::string const unguardedIllegal =
    "InterfaceDeclaration I[Behaviour[CompoundStatement[GuardedStatement[ActionStatement["
    "ActionExpression[EventInstance illegal]]]]]]";

INSTANTIATE_TEST_SUITE_P(
    Messages, SyntaxErrorTest,
    testing::Values(
        ErrorCase{"enum E {};", "t.kel:1:9: syntax error, unexpected }, expecting identifier\n",
                  "EnumTypeDeclaration E"},
        ErrorCase{"enum E { a % };",
                  "t.kel:1:12: syntax error, unexpected $undefined, expecting } or \",\"\n",
                  "EnumTypeDeclaration E"},
        ErrorCase{"%", "t.kel:1:1: syntax error, unexpected $undefined\n", ""},
        ErrorCase{"interface I { } ;", "t.kel:1:17: syntax error, unexpected ;\n", ""},
        ErrorCase{"enum E { a }; import y.kel;", "t.kel:1:15: syntax error, unexpected import\n",
                  ""},
        ErrorCase{"interface I { in void e(; }",
                  "t.kel:1:25: syntax error, unexpected ;, expecting . or identifier or bool\n",
                  "InterfaceDeclaration I[EventDeclaration e]"},
        ErrorCase{"interface I { behaviour { [a == b == c] illegal; } }",
                  "t.kel:1:35: syntax error, unexpected ISEQUAL\n", unguardedIllegal},
        ErrorCase{"interface I { behaviour { [-x] illegal; } }",
                  "t.kel:1:29: syntax error, unexpected identifier, expecting integer\n",
                  unguardedIllegal},
        ErrorCase{"interface I { behaviour { [ ] illegal; } }",
                  "t.kel:1:29: syntax error, unexpected ]\n", unguardedIllegal},
        ErrorCase{
            "interface I { behaviour { on optional, inevitable: s; } }",
            "t.kel:1:38: syntax error, unexpected \",\", expecting :\n",
            "InterfaceDeclaration I[Behaviour[CompoundStatement[OnEventStatement[NameStatement["
            "NameExpression]]]]]"},
        ErrorCase{"interface I { behaviour { if x) s; else t; } }",
                  "t.kel:1:30: syntax error, unexpected identifier, expecting (\n",
                  "InterfaceDeclaration I[Behaviour[CompoundStatement[IfStatement[NameStatement["
                  "NameExpression], NameStatement[NameExpression]]]]]"},
        ErrorCase{
            "component C { provides I p; system { I i; 1 <=> x; } }",
            "t.kel:1:43: syntax error, unexpected integer, expecting } or . or * or "
            "identifier\n",
            "ComponentDeclaration C[PortDeclaration p, System[ComponentInstanceDeclaration i]]"}));

INSTANTIATE_TEST_SUITE_P(
    Recovery, SyntaxErrorTest,
    testing::Values(
        // Recovery shifts three terminals before the second enum, so both are reported.
        ErrorCase{"enum E {}; enum F {};",
                  "t.kel:1:9: syntax error, unexpected }, expecting identifier\n"
                  "t.kel:1:20: syntax error, unexpected }, expecting identifier\n",
                  "EnumTypeDeclaration E; EnumTypeDeclaration F"},
        // The second brace comes too soon after the first error to be reported.
        ErrorCase{"enum E {} } ;", "t.kel:1:9: syntax error, unexpected }, expecting identifier\n",
                  "EnumTypeDeclaration E"},
        // The empty behaviour is reduced by default first, so only the brace is expected.
        ErrorCase{"interface I {",
                  "t.kel:1:14: syntax error, unexpected end of file, expecting }\n", ""},
        ErrorCase{"enum E { a, b }",
                  "t.kel:1:16: syntax error, unexpected end of file, expecting ;\n", ""},
        ErrorCase{"interface I { } interface J { in void e() }",
                  "t.kel:1:43: syntax error, unexpected }, expecting ;\n", ""},
        // Declarations that lost their name leave nothing behind.
        ErrorCase{"interface { }\nenum E { a };\ncomponent { }\nenum F { b };\nsubint { } ;\n"
                  "enum G { c };\nextern $x$ ;\nenum { } ;",
                  "t.kel:1:11: syntax error, unexpected {, expecting . or identifier\n"
                  "t.kel:3:11: syntax error, unexpected {, expecting . or identifier\n"
                  "t.kel:5:8: syntax error, unexpected {, expecting . or identifier\n"
                  "t.kel:7:8: syntax error, unexpected datastring, expecting . or identifier\n"
                  "t.kel:8:6: syntax error, unexpected {, expecting . or identifier\n",
                  "EnumTypeDeclaration E[EnumValueDeclaration a]; "
                  "EnumTypeDeclaration F[EnumValueDeclaration b]; "
                  "EnumTypeDeclaration G[EnumValueDeclaration c]"},
        ErrorCase{"interface I { in void e() ; out ; in bool f(; }",
                  "t.kel:1:33: syntax error, unexpected ;, expecting . or identifier or bool\n"
                  "t.kel:1:45: syntax error, unexpected ;, expecting . or identifier or bool\n",
                  "InterfaceDeclaration I[EventDeclaration e, EventDeclaration f]"}));

} // namespace
