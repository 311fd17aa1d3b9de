#include "TreeRecorder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using language::TreeRecorder;

struct TreeCase {
    std::string source;
    std::string tree;
};

void PrintTo(TreeCase const& c, std::ostream* out) { *out << testing::PrintToString(c.source); }

class GrammarTest : public testing::TestWithParam<TreeCase> {};

TEST_P(GrammarTest, HandsTheseConstructCallsToTheDriver) {
    TreeRecorder recorder;
    EXPECT_EQ(recorder.parse(GetParam().source), 0);
    EXPECT_EQ(recorder.errorLines(), "");
    EXPECT_EQ(recorder.tree(), GetParam().tree);
}

INSTANTIATE_TEST_SUITE_P(
    Declarations, GrammarTest,
    testing::Values(
        TreeCase{"", "[]"}, TreeCase{"enum E { x, y };", "[enum(E, [x, y])]"},
        TreeCase{"enum a.b.E { x };", "[enum(a.b.E, [x])]"},
        TreeCase{"enum .E { x };", "[enum(.E, [x])]"},
        TreeCase{"subint S {-3..-1}; subint T {- 3..1}; subint U {0..2147483648};",
                 "[subint(S, -3, -1), subint(T, -3, 1), subint(U, 0, -2147483648)]"},
        TreeCase{"subint S {-2147483648..0};", "[subint(S, -2147483648, 0)]"},
        TreeCase{"extern T $int$;", "[extern(T, $int$)]"},
        TreeCase{"$#include <x>$ namespace N.M { interface I { } }",
                 "[native($#include <x>$), namespace(N.M, [interface(I, [], null)])]"},
        TreeCase{"interface I { in void e(int a, out bool b); out bool f(); enum E { x }; }",
                 "[interface(I, [event(in, void, e, [in int a, out bool b]), event(out, bool, f, "
                 "[]), enum(E, [x])], null)]"},
        TreeCase{"interface I { behaviour { bool x = true; on e: reply(x); } }",
                 "[interface(I, [], behaviour(, [variable(bool, x, true), on([e], reply(, x))]))]"},
        TreeCase{"interface I { behavior B { } }", "[interface(I, [], behaviour(B, []))]"},
        TreeCase{"component C { provides I p; requires injected J q; requires external K r; "
                 "provides external L s; requires M t; }",
                 "[component(C, [port(provides, I, p), port(requires injected, J, q), "
                 "port(requires external, K, r), port(provides external, L, s), port(requires, "
                 "M, t)], null, null)]"},
        TreeCase{"component C { behaviour { } system { I i; a.b.I j; i.p <=> *; * <=> p; "
                 "a.* <=> b.c; a.b.c <=> x; } }",
                 "[component(C, [], behaviour(, []), system([instance(I, i), instance(a.b.I, j), "
                 "i.p <=> *, * <=> p, a.* <=> b.c, a.b.c <=> x]))]"}));

// The statement list of one behaviour, without the interface around it.
std::string behaviourTree(std::string const& statements) {
    return "[interface(I, [], behaviour(, [" + statements + "]))]";
}

INSTANTIATE_TEST_SUITE_P(
    Statements, GrammarTest,
    testing::Values(
        TreeCase{"interface I { behaviour { [otherwise] illegal; [a.b] { } } }",
                 behaviourTree("[otherwise] illegal, [a.b] {[]}")},
        TreeCase{"interface I { behaviour { on optional: blocking p.reply(); "
                 "on inevitable: return; } }",
                 behaviourTree("on([optional], blocking(reply(p, null))), "
                               "on([inevitable], return(null))")},
        TreeCase{"interface I { behaviour { on a.b, c.d(x <- y, 1): { bool v; v = !x; } } }",
                 behaviourTree("on([a.b, c.d(x <- y, 1)], {[variable(bool, v, null), v = !x]})")},
        TreeCase{"interface I { behaviour { if (x) if (y) s; else t; } }",
                 behaviourTree("if(x, if(y, call(s), call(t)), null)")},
        TreeCase{"interface I { behaviour { if (x) { } else if (y) s(); } }",
                 behaviourTree("if(x, {[]}, if(y, call(s()), null))")},
        TreeCase{"interface I { behaviour { reply(1); reply(); p.reply(); a.b.reply(2); } }",
                 behaviourTree("reply(, 1), reply(, null), reply(p, null), reply(a.b, 2)")},
        TreeCase{"interface I { behaviour { return; return $x$; f(); f; } }",
                 behaviourTree("return(null), return($x$), call(f()), call(f)")},
        TreeCase{"interface I { behaviour { void f(in bool p, inout a.T q) { return p; } "
                 "requires J(int n) k; requires K l; S s = S.a; } }",
                 behaviourTree("function(void, f, [in bool p, inout a.T q], [return(p)]), "
                               "internal(J, k, [in int n]), internal(K, l, []), "
                               "variable(S, s, S.a)")},
        TreeCase{"interface I { behaviour { bool g() { } subint S {0..1}; } }",
                 behaviourTree("function(bool, g, [], []), subint(S, 0, 1)")}));

// The text of one guard expression, parsed inside a behaviour.
std::string expressionTree(std::string const& expression) {
    TreeRecorder recorder;
    recorder.parse("interface I { behaviour { [" + expression + "] illegal; } }");
    std::string const prefix = "[interface(I, [], behaviour(, [[";
    std::string const suffix = "] illegal]))]";
    std::string tree = recorder.tree();
    if (!recorder.errorLines().empty() || tree.find(prefix) != 0) {
        return "not parsed: " + recorder.errorLines();
    }
    return tree.substr(prefix.size(), tree.size() - prefix.size() - suffix.size());
}

struct ExpressionCase {
    std::string expression;
    std::string tree;
};

void PrintTo(ExpressionCase const& c, std::ostream* out) { *out << c.expression; }

class ExpressionTest : public testing::TestWithParam<ExpressionCase> {};

TEST_P(ExpressionTest, GroupsByPrecedenceAndAssociativity) {
    EXPECT_EQ(expressionTree(GetParam().expression), GetParam().tree);
}

INSTANTIATE_TEST_SUITE_P(
    Operators, ExpressionTest,
    testing::Values(
        ExpressionCase{"a == b != c", "(a == (b != c))"},
        ExpressionCase{"a != b == c", "((a != b) == c)"},
        ExpressionCase{"a < b > c", "(a < (b > c))"},
        ExpressionCase{"a <= b >= c", "(a <= (b >= c))"},
        ExpressionCase{"a > b < c", "((a > b) < c)"}, ExpressionCase{"a + b - c", "(a + (b - c))"},
        ExpressionCase{"a - b + c", "((a - b) + c)"}, ExpressionCase{"a + b + c", "((a + b) + c)"},
        ExpressionCase{"a || b && c", "(a || (b && c))"},
        ExpressionCase{"a && b || c", "((a && b) || c)"},
        ExpressionCase{"a || b || c", "((a || b) || c)"},
        ExpressionCase{"a == b && c < d + 1", "((a == b) && (c < (d + 1)))"},
        ExpressionCase{"!a == b", "(!a == b)"}, ExpressionCase{"!(a <= b)", "!(a <= b)"},
        ExpressionCase{"(a + b) - c", "((a + b) - c)"}, ExpressionCase{"a - 1", "(a - 1)"},
        ExpressionCase{"a -1", "(a - 1)"}, ExpressionCase{"x + -2", "(x + -2)"},
        ExpressionCase{"$d$ == f(1, true, false)", "($d$ == f(1, true, false))"},
        ExpressionCase{"a.b.c >= .d", "(a.b.c >= .d)"}));

TEST(GrammarClausesTest, ImportAndFileClausesReachTheDriverInOrder) {
    TreeRecorder recorder;
    EXPECT_EQ(recorder.parse("import a.kel;\nimport  b.kel ;\n#file \"x.kel\"\nenum E { a };\n"
                             "#dir \"d\"\n#imported \"y.kel\"\n"),
              0);
    EXPECT_THAT(recorder.clauses(),
                testing::ElementsAre("import a.kel at 1.1", "import b.kel at 2.1",
                                     "#file x.kel at 3.1", "#dir d at 5.1",
                                     "#imported y.kel at 6.1"));
    EXPECT_EQ(recorder.tree(), "[enum(E, [a])]");
}

struct SpanCase {
    std::string source;
    std::string kind;
    std::string span; // begin-end@at, as line.column
};

void PrintTo(SpanCase const& c, std::ostream* out) { *out << c.kind << " in " << c.source; }

class GrammarSpanTest : public testing::TestWithParam<SpanCase> {};

TEST_P(GrammarSpanTest, PassesTheBeginEndAndMainPositionOfEachPiece) {
    TreeRecorder recorder;
    recorder.parse(GetParam().source);
    EXPECT_EQ(recorder.spans().at(GetParam().kind), GetParam().span);
}

INSTANTIATE_TEST_SUITE_P(
    Locations, GrammarSpanTest,
    testing::Values(
        SpanCase{"enum E {\n  a\n};", "enum", "1.1-3.3@1.6"},
        SpanCase{"enum E {\n  a\n};", "enumValue", "2.3-2.4@2.3"},
        SpanCase{"component C { provides I p; }", "port", "1.15-1.28@1.26"},
        SpanCase{"component C { provides I p; }", "component", "1.1-1.30@1.11"},
        SpanCase{"interface I { behaviour { [x + 1] illegal; } }", "plus", "1.28-1.33@1.30"},
        SpanCase{"interface I { behaviour { [x + 1] illegal; } }", "named", "1.28-1.29@1.28"},
        SpanCase{"interface I { behaviour { [x + 1] illegal; } }", "guarded", "1.27-1.43@1.27"},
        SpanCase{"interface I { behaviour { [x + 1] illegal; } }", "behaviour", "1.15-1.45@1.15"},
        SpanCase{"interface I { in void e(); }", "event", "1.15-1.27@1.18"},
        SpanCase{"interface I { in void e(a.T x); }", "parameter", "1.25-1.30@1.25"},
        SpanCase{"interface I { in void e(out a.T x); }", "parameter", "1.25-1.34@1.29"},
        SpanCase{"$x$", "native", "1.1-1.4@1.1"},
        SpanCase{"component C { system { a.p <=> b.q; } }", "binding", "1.24-1.36@1.32"}));

} // namespace
