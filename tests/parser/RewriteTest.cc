// Names in expressions and statements become what they denote; what they
// can't denote is reported. Each test shows the source its tree stands for.
#include "ResolverFixture.h"

#include <gmock/gmock.h>

namespace language::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// 1: interface I { in void e(); enum R { ok, nok }; }
// 2: component C { provides I p; behaviour {
// 3:   I.R r = I.R.ok;
// 4:   bool f(bool x) { return x; }
// then the variables and statements of each test, from line 5 on.
class RewriteTest : public ResolverFixture {
protected:
    void declareComponent(Ids variables, Ids statements) {
        om::Oid e = event("e", {}, 1);
        om::Oid i = interface("I", {e, enumType("R", {"ok", "nok"}, 1)}, om::NULL_OID, 1);
        // r stands first: an enum test reads the type of a variable resolved before it.
        variables.insert(variables.begin(), variable("I.R", "r", name("I.R.ok", 3, 11), 3));
        om::Oid f = at(
            kel::constructFunctionDeclaration(model, "bool", "f", {parameter("bool", "x", 4, 10)}),
            4, 3);
        changeFunctionBody(f, {at(kel::constructReturnStatement(model, name("x", 4, 27)), 4, 20)});
        variables.push_back(f);
        declare({i, component("C", {port("I", "p", 2)}, behaviour(variables, statements), 2)});
    }

    void changeFunctionBody(om::Oid function, Ids const& statements) {
        kel::FunctionDeclaration copy(get<kel::FunctionDeclaration>(function));
        copy.setStatement(get<kel::CompoundStatement>(block(statements, 4)));
        model.update(copy);
    }

    kel::Expression const& valueOf(om::Oid variable) {
        return get<kel::VariableDeclaration>(variable).getInitialValue();
    }
};

TEST_F(RewriteTest, NamesBecomeVariablesEnumConstantsEnumTestsActionsAndCalls) {
    // 5: bool a = r.nok;
    // 6: bool b = a;
    // 7: bool c = f(b);
    // 8: bool d = p.e();
    om::Oid a = variable("bool", "a", name("r.nok", 5, 10), 5);
    om::Oid b = variable("bool", "b", name("a", 6, 10), 6);
    om::Oid c = variable("bool", "c", call("f", {name("b", 7, 12)}, 7, 10), 7);
    om::Oid d = variable("bool", "d", call("p.e", {}, 8, 10), 8);
    declareComponent({a, b, c, d}, {});
    EXPECT_THAT(resolve(), IsEmpty());
    EXPECT_TRUE(succeeded);

    auto const& test = om::AsType<kel::EnumVariableValueExpression>(valueOf(a));
    EXPECT_EQ(test.getVariable().getName(), "r");
    EXPECT_EQ(test.getValue().getName(), "r.nok");
    EXPECT_EQ(test.getValue().getDeclaration().getName(), "nok");
    EXPECT_EQ(test.getLine(), 5);
    EXPECT_EQ(test.getColumn(), 10);

    EXPECT_EQ(om::AsType<kel::VariableExpression>(valueOf(b)).getVariable().getDeclarationOid(), a);

    auto const& call = om::AsType<kel::FunctionCallExpression>(valueOf(c));
    EXPECT_EQ(call.getFunction().getDeclaration().getName(), "f");
    ASSERT_EQ(call.getArgumentsSize(), 1u);
    auto const& argument = om::AsType<kel::VariableExpression>(*call.getArguments().front());
    EXPECT_EQ(argument.getVariable().getDeclarationOid(), b);

    auto const& action = om::AsType<kel::ActionExpression>(valueOf(d)).getEvent();
    EXPECT_EQ(action.getName(), "p.e");
    EXPECT_TRUE(action.getParentheses());
    EXPECT_EQ(action.getPort().getDeclaration().getName(), "p");
    EXPECT_EQ(action.getEvent().getDeclaration().getName(), "e");

    auto const& constant = om::AsType<kel::EnumConstantExpression>(
        valueOf(get<kel::Behaviour>(get<kel::VariableDeclaration>(a).getParentOid())
                    .getVariables()
                    .front()
                    ->getOid()));
    EXPECT_EQ(constant.getValue().getName(), "I.R.ok");
    EXPECT_EQ(constant.getValue().getDeclaration().getName(), "ok");
}

TEST_F(RewriteTest, NameStatementsBecomeActionsAndCallsInPlace) {
    // 5: p.e();
    // 6: f(true);
    // 7: p.e;
    om::Oid action = nameStatement("p.e", true, {}, 5, 3);
    om::Oid function = nameStatement("f", true, {number(1, 6)}, 6, 3);
    om::Oid bare = nameStatement("p.e", false, {}, 7, 3);
    declareComponent({}, {action, function, bare});
    EXPECT_THAT(resolve(), ElementsAre("t.kel:7:3: Event must be used with parentheses: 'e'"));
    kel::ConstBehaviourStatementVec statements = kel::GetDefaultNamespace(model)
                                                     ->getModels()
                                                     .back()
                                                     ->getBehaviour()
                                                     .getStatement()
                                                     .getStatements();
    ASSERT_EQ(statements.size(), 3u);
    auto const& first = om::AsType<kel::ActionStatement>(*statements[0]);
    EXPECT_EQ(first.getExpression().getEvent().getEvent().getDeclaration().getName(), "e");
    EXPECT_EQ(first.getLine(), 5);
    auto const& second = om::AsType<kel::FunctionCallStatement>(*statements[1]);
    EXPECT_EQ(second.getExpression().getArgumentsSize(), 1u);
    EXPECT_NE(dynamic_cast<kel::ActionStatement const*>(statements[2]), nullptr);
    EXPECT_EQ(model.tryFind(action), nullptr);
}

TEST_F(RewriteTest, NamesThatDenoteTheWrongThingAreReportedAtTheExpression) {
    // 5:  bool a = u;
    // 6:  bool b = p;
    // 7:  bool c = a();
    // 8:  bool d = f;
    // 9:  bool e = I.R.ok();
    // 10: bool g = r.ok();
    // 11: bool h = a.x;
    // 12: bool i = u.x;
    // 13: bool j = I.e;
    std::vector<std::pair<std::string, bool>> const values = {
        {"u", false},   {"p", false},   {"a", true},    {"f", false},  {"I.R.ok", true},
        {"r.ok", true}, {"a.x", false}, {"u.x", false}, {"I.e", false}};
    Ids variables;
    std::string names = "abcdeghij";
    for (std::size_t index = 0; index < values.size(); ++index) {
        int line = 5 + static_cast<int>(index);
        auto const& [text, parentheses] = values[index];
        om::Oid value = parentheses ? call(text, {}, line, 10) : name(text, line, 10);
        variables.push_back(variable("bool", names.substr(index, 1), value, line));
    }
    declareComponent(variables, {});
    EXPECT_THAT(resolve(),
                ElementsAre("t.kel:5:10: Undefined identifier: 'u'",
                            "t.kel:6:10: Expression with type 'Port' not allowed here: 'p'",
                            "t.kel:7:10: Parentheses not allowed for variable: 'a'",
                            "t.kel:8:10: Function call without parameters is not allowed: 'f'",
                            "t.kel:9:10: Parentheses not allowed in Enum constant: 'I.R.ok'",
                            "t.kel:10:10: Parentheses not allowed in variable expression: 'r.ok'",
                            "t.kel:11:10: Variable is not an Enum variable: 'a'",
                            "t.kel:12:10: Undefined identifier: 'u'",
                            "t.kel:13:10: undefined Port reference: 'I'"));
    EXPECT_FALSE(succeeded);
    EXPECT_NE(dynamic_cast<kel::NameExpression const*>(&valueOf(variables[4])), nullptr);
}

TEST_F(RewriteTest, StatementsOfOtherNamesAreReported) {
    // 5: a;
    // 6: u.x();
    // 7: r.ok;
    // 8: I.R;
    om::Oid a = variable("bool", "a", name("a", 3, 30), 3);
    declareComponent(
        {a}, {nameStatement("a", false, {}, 5, 3), nameStatement("u.x", true, {}, 6, 3),
              nameStatement("r.ok", false, {}, 7, 3), nameStatement("I.R", false, {}, 8, 3)});
    EXPECT_THAT(resolve(),
                ElementsAre("t.kel:5:3: Expression with type 'Variable' not allowed here: 'a'",
                            "t.kel:6:3: Undefined identifier: 'u'",
                            "t.kel:7:3: Expression with type 'Variable' not allowed here: 'r'",
                            "t.kel:8:3: Expression with type 'Interface' not allowed here: 'I'"));
}

TEST_F(RewriteTest, LocalVariablesAreVisibleFromTheirDeclarationToTheEndOfTheirBlock) {
    // 5: { bool y = z; bool z = z; { bool z = y; } bool x = y; }
    // 6: reply(x);
    om::Oid inner = block({variable("bool", "z", name("y", 5, 40), 5)}, 5);
    om::Oid outer = block({variable("bool", "y", name("z", 5, 12), 5),
                           variable("bool", "z", name("z", 5, 25), 5), inner,
                           variable("bool", "x", name("y", 5, 60), 5)},
                          5);
    om::Oid reply = at(kel::constructReplyStatement(model, "", name("x", 6, 9)), 6, 3);
    declareComponent({}, {outer, reply});
    EXPECT_THAT(resolve(), ElementsAre("t.kel:5:12: Undefined identifier: 'z'",
                                       "t.kel:6:9: Undefined identifier: 'x'"));
}

TEST_F(RewriteTest, LocalDeclarationsRepeatingANameInOneBlockOrMissingAValueAreReported) {
    // 5: { bool y = r.ok; bool y = r.ok; I.R w; bool x = r.ok;
    // 6:   q.reply(x); }
    om::Oid reply = at(kel::constructReplyStatement(model, "q", name("x", 6, 11)), 6, 3);
    om::Oid statements =
        block({variable("bool", "y", name("r.ok", 5, 10), 5),
               variable("bool", "y", name("r.ok", 5, 20), 5), variable("I.R", "w", om::NULL_OID, 5),
               variable("bool", "x", name("r.ok", 5, 40), 5), reply},
              5);
    declareComponent({}, {statements});
    EXPECT_THAT(resolve(), ElementsAre("t.kel:5:1: identifier declared before: 'y'",
                                       "t.kel:5:1: previous 'y' defined here",
                                       "t.kel:5:1: Variable must have initial value: 'w'",
                                       "t.kel:6:3: undefined Port reference: 'q'"));
}

} // namespace
} // namespace language::test
