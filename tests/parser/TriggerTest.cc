// Triggers of on statements: their events, their parentheses and counts, and
// the variables their arguments bind. Each test shows the source its tree stands for.
#include "ErrorText.h"
#include "ResolverFixture.h"

#include <gmock/gmock.h>

namespace language::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// 1: subint S {0..3}; subint T {0..3};
// 2: interface I { in void e(S a); in void f(S a); in void g(T a); in void h();
//                  in void k(S a, S b); behaviour { ...interface statements... } }
// 3: component C { provides I p; behaviour { S s = 0; ...component statements... } }
class TriggerTest : public ResolverFixture {
protected:
    void declareModels(Ids const& interfaceStatements, Ids const& componentStatements) {
        Ids events = {event("e", {parameter("S", "a", 2, 26)}, 2),
                      event("f", {parameter("S", "a", 2, 42)}, 2),
                      event("g", {parameter("T", "a", 2, 58)}, 2), event("h", {}, 2),
                      event("k", {parameter("S", "a", 2, 90), parameter("S", "b", 2, 95)}, 2)};
        om::Oid s = variable("S", "s", number(0, 3), 3);
        declare({at(kel::constructIntTypeDeclaration(model, "S", 0, 3), 1, 1),
                 at(kel::constructIntTypeDeclaration(model, "T", 0, 3), 1, 20),
                 interface("I", events, behaviour({}, interfaceStatements), 2),
                 component("C", {port("I", "p", 3)}, behaviour({s}, componentStatements), 3)});
    }

    om::Oid pTrigger(std::string const& event, Ids const& arguments, int line, int column) {
        return trigger("p", event, true, arguments, line, column);
    }
    om::Oid useOf(std::string const& variable, int line) {
        return assign("s", name(variable, line, 40), line);
    }
    kel::VariableReference const& boundBy(om::Oid trigger, std::size_t index) {
        auto const& argument = *get<kel::EventInstance>(trigger).getArguments().at(index);
        if (auto const* assignment = dynamic_cast<kel::AssignmentExpression const*>(&argument)) {
            return assignment->getVariable();
        }
        return om::AsType<kel::VariableExpression>(argument).getVariable();
    }
};

TEST_F(TriggerTest, OneNameInTwoTriggersOfOneOnIsOneVariable) {
    // 4: on p.e(x), p.f(x): s = x;
    om::Oid first = pTrigger("e", {name("x", 4, 10)}, 4, 4);
    om::Oid second = pTrigger("f", {name("x", 4, 18)}, 4, 14);
    om::Oid use = useOf("x", 4);
    declareModels({}, {on({first, second}, use, 4)});
    EXPECT_THAT(resolve(), IsEmpty());
    EXPECT_TRUE(succeeded);
    kel::VariableDeclaration const& x = boundBy(first, 0).getDeclaration();
    EXPECT_EQ(&boundBy(second, 0).getDeclaration(), &x);
    EXPECT_EQ(x.getName(), "x");
    EXPECT_EQ(x.getType().getDeclaration().getName(), "S");
    EXPECT_EQ(x.getLine(), 4);
    EXPECT_EQ(x.getColumn(), 10);
    EXPECT_FALSE(x.hasParent());
    auto const& value =
        om::AsType<kel::VariableExpression>(get<kel::AssignmentStatement>(use).getValue());
    EXPECT_EQ(&value.getVariable().getDeclaration(), &x);
}

TEST_F(TriggerTest, OneNameForParametersOfDifferentTypesIsReported) {
    // 4: on p.e(x), p.g(x): s = 1;
    om::Oid second = pTrigger("g", {name("x", 4, 18)}, 4, 14);
    declareModels({}, {on({pTrigger("e", {name("x", 4, 10)}, 4, 4), second}, useOf("s", 4), 4)});
    EXPECT_THAT(resolve(),
                ElementsAre("t.kel:4:18: Trigger parameters with same name but different type: 'x'",
                            "t.kel:4:10: previous 'x' defined here"));
    EXPECT_FALSE(boundBy(second, 0).hasDeclaration());
}

TEST_F(TriggerTest, OneNameTwiceInOneTriggerNeedsAnArrow) {
    // 4: on p.k(x, x): s = 1;
    // 5: on p.k(x <- u, x): s = x;
    om::Oid twice = pTrigger("k", {name("x", 4, 10), name("x", 4, 13)}, 4, 4);
    om::Oid arrow = pTrigger(
        "k", {at(kel::constructAssignmentExpression(model, "x", "u"), 5, 10), name("x", 5, 18)}, 5,
        4);
    declareModels({}, {on({twice}, useOf("s", 4), 4), on({arrow}, useOf("x", 5), 5)});
    EXPECT_THAT(resolve(), ElementsAre("t.kel:4:13: identifier declared before: 'x'",
                                       "t.kel:4:10: previous 'x' defined here",
                                       "t.kel:5:10: Undefined identifier: 'u'",
                                       "t.kel:5:18: identifier declared before: 'x'",
                                       "t.kel:5:10: previous 'x' defined here"));
    EXPECT_TRUE(boundBy(arrow, 0).hasDeclaration());
}

TEST_F(TriggerTest, AnArrowTargetMayRepeatANameAndItsSourceBelongsOutside) {
    // 4: on p.k(x, x <- s): s = x;
    om::Oid arrow = pTrigger(
        "k", {name("x", 4, 10), at(kel::constructAssignmentExpression(model, "x", "s"), 4, 13)}, 4,
        4);
    declareModels({}, {on({arrow}, useOf("x", 4), 4)});
    EXPECT_THAT(resolve(), IsEmpty());
    EXPECT_EQ(&boundBy(arrow, 0).getDeclaration(), &boundBy(arrow, 1).getDeclaration());
    auto const& source = om::AsType<kel::VariableExpression>(
        om::AsType<kel::AssignmentExpression>(*get<kel::EventInstance>(arrow).getArguments()[1])
            .getValue());
    EXPECT_EQ(source.getVariable().getDeclaration().getName(), "s");
}

TEST_F(TriggerTest, AWrongCountBindsNothing) {
    // 4: on p.h(x): s = x;
    // 5: on p.e(): s = 1;
    // 6: on p.e(y.z): s = 1;
    declareModels({}, {on({pTrigger("h", {name("x", 4, 10)}, 4, 4)}, useOf("x", 4), 4),
                       on({pTrigger("e", {}, 5, 4)}, useOf("s", 5), 5),
                       on({pTrigger("e", {name("y.z", 6, 10)}, 6, 4)}, useOf("s", 6), 6)});
    EXPECT_THAT(
        resolve(),
        ElementsAre(
            "t.kel:4:4: Event must have the same number of arguments as its definition: 'p.h'",
            "t.kel:4:40: Undefined identifier: 'x'",
            "t.kel:5:4: Event must have the same number of arguments as its definition: 'p.e'",
            "t.kel:6:10: Variable expected"));
}

TEST_F(TriggerTest, AnIllegalBodyNeedsNoArguments) {
    // 4: on p.e: illegal;
    // 5: on p.e(): { illegal; }
    // 6: on p.e: s = 1;
    declareModels({}, {on({trigger("p", "e", false, {}, 4, 4)},
                          at(kel::constructIllegalStatement(model), 4, 12), 4),
                       on({pTrigger("e", {}, 5, 4)},
                          block({at(kel::constructIllegalStatement(model), 5, 14)}, 5), 5),
                       on({trigger("p", "e", false, {}, 6, 4)}, useOf("s", 6), 6)});
    EXPECT_THAT(resolve(), ElementsAre("t.kel:6:4: Event must be used with parentheses: 'e'"));
}

TEST_F(TriggerTest, TriggersOfAnInterfaceNameItsOwnEventsWithoutParentheses) {
    // interface behaviour:
    // 4: on e: { }
    // 5: on e(x): { }
    // 6: on p.e: { }
    // 7: on inevitable: { }
    om::Oid plain = trigger("", "e", false, {}, 4, 4);
    om::Oid inevitable = at(kel::constructInevitableInstance(model), 7, 4);
    declareModels({on({plain}, block({}, 4), 4),
                   on({trigger("", "e", true, {name("x", 5, 6)}, 5, 4)}, block({}, 5), 5),
                   on({trigger("p", "e", false, {}, 6, 4)}, block({}, 6), 6),
                   on({inevitable}, block({}, 7), 7)},
                  {});
    EXPECT_THAT(resolve(), ElementsAre("t.kel:5:4: Event must be used without parentheses: 'e'",
                                       "t.kel:6:4: this is not a valid InterfaceInstance: 'p.e'"));
    EXPECT_EQ(get<kel::EventInstance>(plain).getEvent().getDeclaration().getName(), "e");
    kel::EventDeclaration const& created =
        get<kel::EventInstance>(inevitable).getEvent().getDeclaration();
    EXPECT_EQ(created.getName(), "inevitable");
    EXPECT_EQ(created.getDirection(), kel::edirIn);
    EXPECT_EQ(model.getParentOfTypeOid(created, kel::InterfaceDeclaration::ClassName),
              kel::GetDefaultNamespace(model)->getModels()[0]->getOid());
}

TEST_F(TriggerTest, OptionalInAComponentStaysUnresolvedAndAnUnknownPortIsReported) {
    // 4: on optional: s = 1;
    // 5: on q.e(): s = 1;
    om::Oid optional = at(kel::constructOptionalInstance(model), 4, 4);
    declareModels({}, {on({optional}, useOf("s", 4), 4),
                       on({trigger("q", "e", true, {}, 5, 4)}, useOf("s", 5), 5)});
    EXPECT_THAT(resolve(), ElementsAre("t.kel:5:4: undefined Port reference: 'q'"));
    EXPECT_FALSE(get<kel::EventInstance>(optional).getEvent().hasDeclaration());
}

// Broken preconditions are exceptions, not errors of the source.
TEST_F(TriggerTest, AnEventOutsideAnyModelAndAnUnknownStatementAreExceptions) {
    Resolver resolver(model, &files);
    RootScope root;
    LocalVariablesScope scope(root);
    auto const& loose = get<kel::EventInstance>(trigger("", "e", true, {}, 1, 1));
    EXPECT_EQ(::test::errorOf([&] { resolver.resolve(loose, scope, true); }),
              "Object doesn't have parent of type kel::ModelDeclaration");
    auto const& bare = *model.createRecursive(kel::BehaviourStatement::ClassName);
    EXPECT_EQ(::test::errorOf([&] {
                  resolver.resolveReferencesBehaviourStatement(
                      om::AsType<kel::BehaviourStatement>(bare), scope);
              }),
              "unexpected statement type in "
              "resolveReferencesBehaviourStatement: kel::BehaviourStatement");
}

} // namespace
} // namespace language::test
