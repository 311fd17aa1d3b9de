#include "TreeRecorder.h"

#include <gtest/gtest.h>

namespace {

using language::TreeRecorder;

// A source, the errors it must give, and what recovery keeps of it.
struct ErrorCase {
    std::string source;
    std::string errors;
    int result;       // of parse(): 0 when recovery reached the end of the input
    std::string tree; // empty when parsing gave up
};

void PrintTo(ErrorCase const& c, std::ostream* out) { *out << testing::PrintToString(c.source); }

class SyntaxErrorTest : public testing::TestWithParam<ErrorCase> {};

TEST_P(SyntaxErrorTest, ReportsAndRecovers) {
    TreeRecorder recorder;
    EXPECT_EQ(recorder.parse(GetParam().source), GetParam().result);
    EXPECT_EQ(recorder.errorLines(), GetParam().errors);
    EXPECT_EQ(recorder.tree(), GetParam().tree);
}

INSTANTIATE_TEST_SUITE_P(
    Messages, SyntaxErrorTest,
    testing::Values(
        ErrorCase{"enum E {};", "t.kel:1:9: syntax error, unexpected }, expecting identifier\n", 0,
                  "[enum(E, [])]"},
        ErrorCase{"enum E { a % };",
                  "t.kel:1:12: syntax error, unexpected $undefined, expecting } or \",\"\n", 0,
                  "[enum(E, [])]"},
        ErrorCase{"%", "t.kel:1:1: syntax error, unexpected $undefined\n", 1, ""},
        ErrorCase{"interface I { } ;", "t.kel:1:17: syntax error, unexpected ;\n", 1, ""},
        ErrorCase{"import x.kel; enum E { a }; import y.kel;",
                  "t.kel:1:29: syntax error, unexpected import\n", 1, ""},
        ErrorCase{"interface I { in void e(; }",
                  "t.kel:1:25: syntax error, unexpected ;, expecting . or identifier or bool\n", 0,
                  "[interface(I, [event(in, void, e, [])], null)]"},
        ErrorCase{"interface I { behaviour { [a == b == c] illegal; } }",
                  "t.kel:1:35: syntax error, unexpected ISEQUAL\n", 0,
                  "[interface(I, [], behaviour(, [[null] illegal]))]"},
        ErrorCase{"interface I { behaviour { [-x] illegal; } }",
                  "t.kel:1:29: syntax error, unexpected identifier, expecting integer\n", 0,
                  "[interface(I, [], behaviour(, [[null] illegal]))]"},
        ErrorCase{"interface I { behaviour { [ ] illegal; } }",
                  "t.kel:1:29: syntax error, unexpected ]\n", 0,
                  "[interface(I, [], behaviour(, [[null] illegal]))]"},
        ErrorCase{"interface I { behaviour { on optional, inevitable: s; } }",
                  "t.kel:1:38: syntax error, unexpected \",\", expecting :\n", 0,
                  "[interface(I, [], behaviour(, [on([], call(s))]))]"},
        ErrorCase{"interface I { behaviour { if x) s; else t; } }",
                  "t.kel:1:30: syntax error, unexpected identifier, expecting (\n", 0,
                  "[interface(I, [], behaviour(, [if(null, call(s), call(t))]))]"},
        ErrorCase{"component C { provides I p; system { I i; 1 <=> x; } }",
                  "t.kel:1:43: syntax error, unexpected integer, expecting } or . or * or "
                  "identifier\n",
                  0, "[component(C, [port(provides, I, p)], null, system([instance(I, i)]))]"}));

INSTANTIATE_TEST_SUITE_P(
    Recovery, SyntaxErrorTest,
    testing::Values(
        // Recovery shifts three terminals before the second enum, so both are reported.
        ErrorCase{"enum E {}; enum F {};",
                  "t.kel:1:9: syntax error, unexpected }, expecting identifier\n"
                  "t.kel:1:20: syntax error, unexpected }, expecting identifier\n",
                  0, "[enum(E, []), enum(F, [])]"},
        // The second brace comes too soon after the first error to be reported.
        ErrorCase{"enum E {} } ;", "t.kel:1:9: syntax error, unexpected }, expecting identifier\n",
                  0, "[enum(E, [])]"},
        // The empty behaviour is reduced by default first, so only the brace is expected.
        ErrorCase{"interface I {",
                  "t.kel:1:14: syntax error, unexpected end of file, expecting }\n", 1, ""},
        ErrorCase{"enum E { a, b }",
                  "t.kel:1:16: syntax error, unexpected end of file, expecting ;\n", 1, ""},
        ErrorCase{"interface I { } interface J { in void e() }",
                  "t.kel:1:43: syntax error, unexpected }, expecting ;\n", 1, ""},
        // Declarations that lost their name leave nothing behind.
        ErrorCase{"interface { }\nenum E { a };\ncomponent { }\nenum F { b };\nsubint { } ;\n"
                  "enum G { c };\nextern $x$ ;\nenum { } ;",
                  "t.kel:1:11: syntax error, unexpected {, expecting . or identifier\n"
                  "t.kel:3:11: syntax error, unexpected {, expecting . or identifier\n"
                  "t.kel:5:8: syntax error, unexpected {, expecting . or identifier\n"
                  "t.kel:7:8: syntax error, unexpected datastring, expecting . or identifier\n"
                  "t.kel:8:6: syntax error, unexpected {, expecting . or identifier\n",
                  0, "[enum(E, [a]), enum(F, [b]), enum(G, [c])]"},
        ErrorCase{"interface I { in void e() ; out ; in bool f(; }",
                  "t.kel:1:33: syntax error, unexpected ;, expecting . or identifier or bool\n"
                  "t.kel:1:45: syntax error, unexpected ;, expecting . or identifier or bool\n",
                  0, "[interface(I, [event(in, void, e, []), event(in, bool, f, [])], null)]"}));

} // namespace
