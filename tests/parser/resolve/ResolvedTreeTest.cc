// What resolution makes of a parsed tree: the declarations that references
// are bound to, and the nodes that names are rewritten into.
#include "ErrorText.h"
#include "ParsedSource.h"
#include "metamodel/ConstructionSupport.h"
#include "metamodel/StatementConstructors.h"
#include "om/AsType.h"
#include "parser/resolve/LocalVariablesScope.h"
#include "parser/resolve/Resolver.h"
#include "parser/resolve/RootScope.h"

#include <gmock/gmock.h>

namespace language::test {
namespace {

using om::AsType;

kel::VariableDeclaration const& variable(kel::Behaviour const& behaviour, std::string const& name) {
    for (kel::VariableDeclaration const* variable : behaviour.getVariables()) {
        if (variable->getName() == name) {
            return *variable;
        }
    }
    throw std::logic_error("no variable " + name);
}

kel::OnEventStatement const& on(kel::Behaviour const& behaviour, std::size_t index) {
    return AsType<kel::OnEventStatement>(*behaviour.getStatement().getStatements().at(index));
}

// The variable that an argument of a trigger binds, by itself or as the target of "<-".
kel::VariableReference const& boundBy(kel::EventInstance const& trigger, std::size_t index) {
    auto const& argument = *trigger.getArguments().at(index);
    if (auto const* assignment = dynamic_cast<kel::AssignmentExpression const*>(&argument)) {
        return assignment->getVariable();
    }
    return AsType<kel::VariableExpression>(argument).getVariable();
}

TEST(ResolvedTreeTest, NamesBecomeVariablesEnumConstantsEnumTestsActionsAndCalls) {
    ResolvedSource const source(R"kel(interface I { in void e(); enum R { ok, nok }; }
component C { provides I p; behaviour {
  I.R r = I.R.ok;
  bool f(bool x) { return x; }
  bool a = r.nok;
  bool b = a;
  bool c = f(b);
  bool d = p.e();
} })kel");
    auto const& behaviour = source.behaviour("C");
    auto valueOf = [&](std::string const& name) -> kel::Expression const& {
        return variable(behaviour, name).getInitialValue();
    };

    auto const& constant = AsType<kel::EnumConstantExpression>(valueOf("r"));
    EXPECT_EQ(constant.getValue().getName(), "I.R.ok");
    EXPECT_EQ(constant.getValue().getDeclaration().getName(), "ok");

    auto const& test = AsType<kel::EnumVariableValueExpression>(valueOf("a"));
    EXPECT_EQ(test.getVariable().getName(), "r");
    EXPECT_EQ(test.getValue().getName(), "r.nok");
    EXPECT_EQ(test.getValue().getDeclaration().getName(), "nok");
    EXPECT_EQ(test.getLine(), 5);
    EXPECT_EQ(test.getColumn(), 12);

    EXPECT_EQ(&AsType<kel::VariableExpression>(valueOf("b")).getVariable().getDeclaration(),
              &variable(behaviour, "a"));

    auto const& call = AsType<kel::FunctionCallExpression>(valueOf("c"));
    EXPECT_EQ(&call.getFunction().getDeclaration(), &source.function("C", "f"));
    ASSERT_EQ(call.getArgumentsSize(), 1u);
    auto const& argument = AsType<kel::VariableExpression>(*call.getArguments().front());
    EXPECT_EQ(&argument.getVariable().getDeclaration(), &variable(behaviour, "b"));

    auto const& action = AsType<kel::ActionExpression>(valueOf("d")).getEvent();
    EXPECT_EQ(action.getName(), "p.e");
    EXPECT_TRUE(action.getParentheses());
    EXPECT_EQ(action.getPort().getDeclaration().getName(), "p");
    EXPECT_EQ(action.getEvent().getDeclaration().getName(), "e");
}

TEST(ResolvedTreeTest, NameStatementsBecomeActionsAndCallsInPlace) {
    ResolvedSource const source(R"kel(interface I { in void e(); }
component C { provides I p; behaviour {
  void f(bool x) { }
  on p.e(): {
    p.e();
    f(true);
  }
} })kel");
    auto const& body = AsType<kel::CompoundStatement>(on(source.behaviour("C"), 0).getStatement());
    auto const statements = body.getStatements();
    ASSERT_EQ(statements.size(), 2u);
    auto const& action = AsType<kel::ActionStatement>(*statements[0]);
    EXPECT_EQ(action.getExpression().getEvent().getEvent().getDeclaration().getName(), "e");
    EXPECT_EQ(action.getLine(), 5);
    auto const& call = AsType<kel::FunctionCallStatement>(*statements[1]);
    EXPECT_EQ(&call.getExpression().getFunction().getDeclaration(), &source.function("C", "f"));
    EXPECT_EQ(call.getExpression().getArgumentsSize(), 1u);
}

TEST(ResolvedTreeTest, BehaviourVariablesAreVisibleAboveTheirDeclarationAndInTheirOwnValue) {
    ResolvedSource const source("component C { behaviour {\n"
                                "  bool a = b;\n"
                                "  bool b = b;\n"
                                "} }");
    auto const& behaviour = source.behaviour("C");
    for (std::string name : {"a", "b"}) {
        auto const& value =
            AsType<kel::VariableExpression>(variable(behaviour, name).getInitialValue());
        EXPECT_EQ(&value.getVariable().getDeclaration(), &variable(behaviour, "b")) << name;
    }
}

TEST(ResolvedTreeTest, TwoBlocksOfANamespaceBecomeOne) {
    ResolvedSource const source("namespace a { enum x { p }; }\n"
                                "namespace a { enum y { q }; }\n"
                                "component U { behaviour { a.x v = a.x.p; a.y w = a.y.q; } }");
    EXPECT_EQ(variable(source.behaviour("U"), "w").getType().getDeclaration().getName(), "y");
    kel::ConstNamespaceVec twins = kel::GetDefaultNamespace(source.store.model)->getNamespaces();
    ASSERT_EQ(twins.size(), 2u);
    EXPECT_EQ(twins[0]->getTypesSize(), 2u);
    EXPECT_EQ(twins[1]->getTypesSize(), 0u);
}

TEST(ResolvedTreeTest, TriggerArgumentsDeclareTheVariablesOfTheirOn) {
    ResolvedSource const source(R"kel(subint S {0..3};
interface I { in void e(S a); in void f(S a); in void k(S a, S b); }
component C { provides I p; behaviour {
  S s = 0;
  on p.e(x), p.f(x): s = x;
  on p.k(x, x <- s): s = x;
  on optional: s = 1;
} })kel");
    auto const& behaviour = source.behaviour("C");
    // One name in two triggers of one on is one variable, with no parent.
    auto const& twoTriggers = on(behaviour, 0);
    kel::VariableDeclaration const& x = boundBy(*twoTriggers.getEvents().at(0), 0).getDeclaration();
    EXPECT_EQ(&boundBy(*twoTriggers.getEvents().at(1), 0).getDeclaration(), &x);
    EXPECT_EQ(x.getName(), "x");
    EXPECT_EQ(x.getType().getDeclaration().getName(), "S");
    EXPECT_EQ(x.getLine(), 5);
    EXPECT_EQ(x.getColumn(), 10);
    EXPECT_FALSE(x.hasParent());
    auto const& body = AsType<kel::AssignmentStatement>(twoTriggers.getStatement());
    EXPECT_EQ(&AsType<kel::VariableExpression>(body.getValue()).getVariable().getDeclaration(), &x);

    // An arrow's target may repeat a name; its source is found outside the on.
    auto const& arrow = *on(behaviour, 1).getEvents().at(0);
    EXPECT_EQ(&boundBy(arrow, 0).getDeclaration(), &boundBy(arrow, 1).getDeclaration());
    auto const& from = AsType<kel::VariableExpression>(
        AsType<kel::AssignmentExpression>(*arrow.getArguments()[1]).getValue());
    EXPECT_EQ(&from.getVariable().getDeclaration(), &variable(behaviour, "s"));

    // Optional in a component stays unresolved.
    EXPECT_FALSE(on(behaviour, 2).getEvents().at(0)->getEvent().hasDeclaration());
}

TEST(ResolvedTreeTest, AnInterfaceGetsTheInevitableEventItsTriggersName) {
    ResolvedSource const source("interface I { in void e(); behaviour {\n"
                                "  on e: { }\n"
                                "  on inevitable: { }\n"
                                "} }");
    auto const& behaviour = source.behaviour("I");
    EXPECT_EQ(on(behaviour, 0).getEvents().at(0)->getEvent().getDeclaration().getName(), "e");
    kel::EventDeclaration const& created =
        on(behaviour, 1).getEvents().at(0)->getEvent().getDeclaration();
    EXPECT_EQ(created.getName(), "inevitable");
    EXPECT_EQ(created.getDirection(), kel::edirIn);
    EXPECT_EQ(created.getParentOfType(kel::InterfaceDeclaration::ClassName), &source.model("I"));
}

// Broken preconditions are exceptions, not errors of the source.
TEST(ResolvedTreeTest, AnEventOutsideAnyModelAndAnUnknownStatementAreExceptions) {
    TestStore store;
    std::vector<kel::File const*> files;
    Resolver resolver(store.model, &files);
    RootScope root;
    LocalVariablesScope scope(root);
    auto const& loose = kel::Find<kel::EventInstance>(
        store.model, kel::constructEventInstance(store.model, "", "e", true, {}));
    EXPECT_EQ(::test::errorOf([&] { resolver.resolve(loose, scope, true); }),
              "Object doesn't have parent of type kel::ModelDeclaration");
    auto const& bare = *store.model.createRecursive(kel::BehaviourStatement::ClassName);
    EXPECT_EQ(::test::errorOf([&] {
                  resolver.resolveReferencesBehaviourStatement(
                      AsType<kel::BehaviourStatement>(bare), scope);
              }),
              "unexpected statement type in "
              "resolveReferencesBehaviourStatement: kel::BehaviourStatement");
}

} // namespace
} // namespace language::test
