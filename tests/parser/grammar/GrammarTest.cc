// The grammar read back from the stored tree of an unresolved parse: how
// operators group, the shapes of constructs, and the spans that they carry.
#include "TestStore.h"
#include "metamodel/BuiltinDeclarations.h"
#include "om/AsType.h"
#include "parser/grammar/Parser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <sstream>

namespace {

using om::AsType;

// An expression in infix form, every binary operator in parentheses.
std::string infix(kel::Expression const& expression) {
    static std::map<std::string, std::string> const binary{
        {kel::BooleanAndExpression::ClassName, "&&"},
        {kel::BooleanOrExpression::ClassName, "||"},
        {kel::IsEqualExpression::ClassName, "=="},
        {kel::IsNotEqualExpression::ClassName, "!="},
        {kel::IsLessExpression::ClassName, "<"},
        {kel::IsLessEqualExpression::ClassName, "<="},
        {kel::IsGreaterExpression::ClassName, ">"},
        {kel::IsGreaterEqualExpression::ClassName, ">="},
        {kel::PlusExpression::ClassName, "+"},
        {kel::MinusExpression::ClassName, "-"}};
    auto operand = [&](std::string const& member) {
        return infix(AsType<kel::Expression>(*expression.getCompositionObjects(member).at(0)));
    };
    if (auto op = binary.find(expression.getClassName()); op != binary.end()) {
        return "(" + operand("Expr1") + " " + op->second + " " + operand("Expr2") + ")";
    }
    if (auto const* name = dynamic_cast<kel::NameExpression const*>(&expression)) {
        std::string arguments;
        for (kel::Expression const* argument : name->getArguments()) {
            arguments += (arguments.empty() ? "" : ", ") + infix(*argument);
        }
        return name->getName() + (name->getParentheses() ? "(" + arguments + ")" : "");
    }
    if (auto const* constant = dynamic_cast<kel::IntConstantExpression const*>(&expression)) {
        return std::to_string(constant->getValue());
    }
    if (auto const* constant = dynamic_cast<kel::BooleanConstantExpression const*>(&expression)) {
        return constant->getValue() == kel::boolTrue ? "true" : "false";
    }
    if (auto const* data = dynamic_cast<kel::DataExpression const*>(&expression)) {
        return data->getValue();
    }
    return "!" + operand("Expr");
}

std::string infix(kel::InterfaceInstance const& side) {
    std::string component = side.hasComponent() ? side.getComponent().getName() + "." : "";
    return component + (side.getWildcard() ? "*" : side.getPort().getName());
}

class GrammarTest : public testing::Test {
protected:
    void parse(std::string const& source) {
        std::istringstream in(source);
        bool const parsed = parser.parseStream(in, "t.kel", {}, false, false, false);
        std::ostringstream errors;
        parser.printErrors(errors);
        ASSERT_TRUE(parsed) << errors.str();
    }

    // The only object of the class that the source placed.
    om::Object const& only(std::string const& className) {
        std::vector<om::Object const*> found;
        for (om::Object const* object : store.model.getTreeVec(kel::GetRoot(store.model))) {
            auto const* location = dynamic_cast<kel::Location const*>(object);
            if (object->getClassName() == className && location->getLine() > 0) {
                found.push_back(object);
            }
        }
        EXPECT_EQ(found.size(), 1u) << className;
        return *found.at(0);
    }

    template <class T> T const& only() { return AsType<T>(only(T::ClassName)); }

    std::string guardOf(std::string const& expression) {
        parse("interface I { behaviour { [" + expression + "] illegal; } }");
        return infix(only<kel::ExpressionGuard>().getExpression());
    }

    language::TestStore store;
    language::Parser parser{store.model};
};

struct ExpressionCase {
    std::string expression;
    std::string grouped;
};

void PrintTo(ExpressionCase const& c, std::ostream* out) { *out << c.expression; }

class ExpressionTest : public GrammarTest, public testing::WithParamInterface<ExpressionCase> {};

TEST_P(ExpressionTest, GroupsByPrecedenceAndAssociativity) {
    EXPECT_EQ(guardOf(GetParam().expression), GetParam().grouped);
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

TEST_F(GrammarTest, SubintBoundsTakeASignAndWrapAt32Bits) {
    parse("subint S {-3..-1}; subint T {- 3..1}; subint U {0..2147483648};"
          "subint V {-2147483648..0};");
    std::vector<std::pair<std::int32_t, std::int32_t>> bounds;
    for (auto const* type : kel::GetDefaultNamespace(store.model)->getTypes()) {
        auto const& subint = AsType<kel::IntTypeDeclaration>(*type);
        bounds.emplace_back(subint.getMinValue(), subint.getMaxValue());
    }
    EXPECT_THAT(bounds,
                testing::ElementsAre(testing::Pair(-3, -1), testing::Pair(-3, 1),
                                     testing::Pair(0, INT32_MIN), testing::Pair(INT32_MIN, 0)));
}

TEST_F(GrammarTest, PortsKeepDirectionAndTheirInjectedOrExternalMark) {
    parse("component C { provides I p; requires injected J q; requires external K r; "
          "provides external L s; }");
    std::vector<std::string> ports;
    for (auto const* port :
         kel::GetDefaultNamespace(store.model)->getModels().at(0)->getCompositionObjects("Ports")) {
        auto const& p = AsType<kel::PortDeclaration>(*port);
        ports.push_back(
            std::string(p.getDirection() == kel::idirProvided ? "provides" : "requires") +
            (p.getInjected() ? " injected" : "") + (p.getExternal() ? " external" : "") + " " +
            p.getInterface().getName() + " " + p.getName());
    }
    EXPECT_THAT(ports, testing::ElementsAre("provides I p", "requires injected J q",
                                            "requires external K r", "provides external L s"));
}

TEST_F(GrammarTest, ParametersAreInUnlessMarked) {
    parse("interface I { in void e(int a, out bool b, inout x.T c); }");
    std::map<kel::ParameterDirection, std::string> const directions{
        {kel::pdirIn, "in"}, {kel::pdirOut, "out"}, {kel::pdirInOut, "inout"}};
    std::vector<std::string> parameters;
    for (auto const* parameter : only<kel::EventDeclaration>().getParameters()) {
        parameters.push_back(directions.at(parameter->getDirection()) + " " +
                             parameter->getType().getName() + " " + parameter->getName());
    }
    EXPECT_THAT(parameters, testing::ElementsAre("in int a", "out bool b", "inout x.T c"));
}

TEST_F(GrammarTest, AnElseBelongsToTheNearestIf) {
    parse("interface I { behaviour { if (x) if (y) s; else t; } }");
    auto const& statements = kel::GetDefaultNamespace(store.model)
                                 ->getModels()
                                 .at(0)
                                 ->getBehaviour()
                                 .getStatement()
                                 .getStatements();
    auto const& outer = AsType<kel::IfStatement>(*statements.at(0));
    EXPECT_FALSE(outer.hasElseStatement());
    auto const& inner = AsType<kel::IfStatement>(outer.getThenStatement());
    EXPECT_EQ(infix(inner.getExpression()), "y");
    EXPECT_TRUE(inner.hasElseStatement());
}

TEST_F(GrammarTest, BindingSidesNameAPortOrAWildcardOfAnInstanceOrTheComponent) {
    parse("component C { system { i.p <=> *; * <=> p; a.* <=> b.c; } }");
    std::vector<std::string> bindings;
    for (om::Object const* object : store.model.getTreeVec(kel::GetRoot(store.model))) {
        if (auto const* binding = dynamic_cast<kel::BindingStatement const*>(object)) {
            bindings.push_back(infix(binding->getLeft()) + " <=> " + infix(binding->getRight()));
        }
    }
    EXPECT_THAT(bindings, testing::ElementsAre("i.p <=> *", "* <=> p", "a.* <=> b.c"));
}

TEST_F(GrammarTest, NativeTextKeepsItsDollarsAndABehaviourMayBeNamed) {
    parse("$int x = \\$1;$\ninterface I { behaviour B { } }");
    EXPECT_EQ(AsType<kel::NativeStatement>(only(kel::NativeStatement::ClassName)).getValue(),
              "$int x = \\$1;$");
    EXPECT_EQ(AsType<kel::Behaviour>(only(kel::Behaviour::ClassName)).getName(), "B");
}

struct SpanCase {
    std::string source;
    std::string className;
    std::string span; // begin-end@main, as line.column
};

void PrintTo(SpanCase const& c, std::ostream* out) { *out << c.className << " in " << c.source; }

class SpanTest : public GrammarTest, public testing::WithParamInterface<SpanCase> {};

TEST_P(SpanTest, EachPieceKeepsItsBeginEndAndMainPosition) {
    parse(GetParam().source);
    auto const& at = AsType<kel::Location>(only(GetParam().className));
    auto point = [](std::int32_t line, std::int32_t column) {
        return std::to_string(line) + "." + std::to_string(column);
    };
    EXPECT_EQ(point(at.getBeginLine(), at.getBeginColumn()) + "-" +
                  point(at.getEndLine(), at.getEndColumn()) + "@" +
                  point(at.getLine(), at.getColumn()),
              GetParam().span);
}

std::string const guarded = "interface I { behaviour { [x + 1] illegal; } }";

INSTANTIATE_TEST_SUITE_P(
    Locations, SpanTest,
    testing::Values(
        SpanCase{"enum E {\n  a\n};", kel::EnumTypeDeclaration::ClassName, "1.1-3.3@1.6"},
        SpanCase{"enum E {\n  a\n};", kel::EnumValueDeclaration::ClassName, "2.3-2.4@2.3"},
        SpanCase{"component C { provides I p; }", kel::PortDeclaration::ClassName,
                 "1.15-1.28@1.26"},
        SpanCase{"component C { provides I p; }", kel::ComponentDeclaration::ClassName,
                 "1.1-1.30@1.11"},
        SpanCase{guarded, kel::PlusExpression::ClassName, "1.28-1.33@1.30"},
        SpanCase{guarded, kel::NameExpression::ClassName, "1.28-1.29@1.28"},
        SpanCase{guarded, kel::GuardedStatement::ClassName, "1.27-1.43@1.27"},
        SpanCase{guarded, kel::Behaviour::ClassName, "1.15-1.45@1.15"},
        SpanCase{"interface I { in void e(); }", kel::EventDeclaration::ClassName,
                 "1.15-1.27@1.18"},
        SpanCase{"interface I { in void e(a.T x); }", kel::ParameterDeclaration::ClassName,
                 "1.25-1.30@1.25"},
        SpanCase{"interface I { in void e(out a.T x); }", kel::ParameterDeclaration::ClassName,
                 "1.25-1.34@1.29"},
        SpanCase{"$x$", kel::NativeStatement::ClassName, "1.1-1.4@1.1"},
        SpanCase{"component C { system { a.p <=> b.q; } }", kel::BindingStatement::ClassName,
                 "1.24-1.36@1.32"}));

} // namespace
