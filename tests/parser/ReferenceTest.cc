// Resolution of the references of declarations: ports, instances, bindings,
// types and variables. Each test shows the source its tree stands for.
#include "ResolverFixture.h"

#include <gmock/gmock.h>

namespace language::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ReferenceTest : public ResolverFixture {};

TEST_F(ReferenceTest, APortTypedByAComponentNamesNoModel) {
    // 1: interface I { }
    // 2: component C { provides I p; }
    // 3: component D { provides C q; }
    om::Oid p = port("I", "p", 2);
    declare({interface("I", {}, om::NULL_OID, 1), component("C", {p}, om::NULL_OID, 2),
             component("D", {port("C", "q", 3)}, om::NULL_OID, 3)});
    EXPECT_THAT(resolve(), ElementsAre("t.kel:3:1: undefined Model reference: 'C'"));
    EXPECT_FALSE(succeeded);
    EXPECT_EQ(get<kel::PortDeclaration>(p).getInterface().getDeclaration().getName(), "I");
}

TEST_F(ReferenceTest, BoolTypesFunctionsAndEventResultsButNoEventParameter) {
    // 1: interface I {
    // 2:   in bool e(bool b);
    // 3:   behaviour { bool f(bool c) { } bool v = f(true); }
    om::Oid f =
        at(kel::constructFunctionDeclaration(model, "bool", "f", {parameter("bool", "c", 3, 25)}),
           3, 15);
    om::Oid v = variable("bool", "v", call("f", {number(1, 3)}, 3, 40), 3);
    om::Oid e = event("e", {parameter("bool", "b", 2, 13)}, 2, "bool");
    declare({interface("I", {e}, behaviour({f, v}, {}), 1)});
    EXPECT_THAT(resolve(), ElementsAre("t.kel:2:13: bool is not allowed as type here"));
    kel::TypeDeclaration const* boolType = kel::GetBoolTypeDeclaration(model);
    EXPECT_EQ(&get<kel::EventDeclaration>(e).getReturnType().getDeclaration(), boolType);
    EXPECT_EQ(&get<kel::FunctionDeclaration>(f).getReturnType().getDeclaration(), boolType);
    auto const& c = *get<kel::FunctionDeclaration>(f).getParameters().front();
    EXPECT_EQ(&c.getType().getDeclaration(), boolType);
}

TEST_F(ReferenceTest, DataVariablesAreForComponentsAndNeedNoInitialValue) {
    // 1: extern D "x";
    // 2: subint S {0..1};
    // 3: interface I { behaviour { D d; S s; } }
    // 4: component C { behaviour { D d; S s; } }
    declare({at(kel::constructDataTypeDeclaration(model, "D", "x"), 1, 1),
             at(kel::constructIntTypeDeclaration(model, "S", 0, 1), 2, 1),
             interface("I", {},
                       behaviour({variable("D", "d", om::NULL_OID, 3),
                                  variable("S", "s", om::NULL_OID, 3)},
                                 {}),
                       3),
             component("C", {},
                       behaviour({variable("D", "d", om::NULL_OID, 4),
                                  variable("S", "s", om::NULL_OID, 4)},
                                 {}),
                       4)});
    EXPECT_THAT(resolve(), ElementsAre("t.kel:3:1: Datavariable not allowed in Interface: 'd'",
                                       "t.kel:3:1: Variable must have initial value: 's'",
                                       "t.kel:4:1: Variable must have initial value: 's'"));
}

TEST_F(ReferenceTest, BehaviourVariablesAreVisibleAboveTheirDeclarationAndInTheirOwnValue) {
    // 1: component C { behaviour {
    // 2:   bool a = b;
    // 3:   bool b = b;
    om::Oid a = variable("bool", "a", name("b", 2, 12), 2);
    om::Oid b = variable("bool", "b", name("b", 3, 12), 3);
    declare({component("C", {}, behaviour({a, b}, {}), 1)});
    EXPECT_THAT(resolve(), IsEmpty());
    EXPECT_TRUE(succeeded);
    for (om::Oid id : {a, b}) {
        auto const& value = om::AsType<kel::VariableExpression>(
            get<kel::VariableDeclaration>(id).getInitialValue());
        EXPECT_EQ(value.getVariable().getDeclarationOid(), b);
    }
}

TEST_F(ReferenceTest, OnlyTheFirstPartOfATypeNameLooksOutward) {
    // 1: namespace a {
    // 2:   enum E { x };
    // 3:   namespace b { }
    // 4:   component C { behaviour { b.E v = b.E.x; E w = E.y; } }
    om::Oid v = variable("b.E", "v", name("b.E.x", 4, 40), 4);
    om::Oid w = variable("E", "w", name("E.y", 4, 60), 4);
    om::Oid c = component("C", {}, behaviour({v, w}, {}), 4);
    declare({space("a", {enumType("E", {"x"}, 2), space("b", {}), c})});
    EXPECT_THAT(resolve(), ElementsAre("t.kel:4:1: undefined Type reference: 'b.E'",
                                       "t.kel:4:60: undefined Enum value reference: 'y' in 'E.y'"));
    // The tail of a name in an expression is searched outward from b.
    auto const& value =
        om::AsType<kel::EnumConstantExpression>(get<kel::VariableDeclaration>(v).getInitialValue());
    EXPECT_EQ(value.getValue().getDeclaration().getName(), "x");
}

TEST_F(ReferenceTest, BehindAnInterfaceOnlyItsTypesAndEventsAreFound) {
    // 1: subint S {0..1};
    // 2: interface I { subint T {0..1}; }
    // 3: component C { behaviour { I.T t = 0; I.S s = 0; } }
    om::Oid t = variable("I.T", "t", number(0, 3), 3);
    om::Oid inner = at(kel::constructIntTypeDeclaration(model, "T", 0, 1), 2, 15);
    declare({at(kel::constructIntTypeDeclaration(model, "S", 0, 1), 1, 1),
             interface("I", {inner}, om::NULL_OID, 2),
             component("C", {}, behaviour({t, variable("I.S", "s", number(0, 3), 3)}, {}), 3)});
    EXPECT_THAT(resolve(), ElementsAre("t.kel:3:1: undefined Type reference: 'I.S'"));
    EXPECT_EQ(get<kel::VariableDeclaration>(t).getType().getDeclarationOid(), inner);
}

TEST_F(ReferenceTest, ALeadingDotStartsFromTheDefaultNamespace) {
    // 1: enum E { x };
    // 2: namespace n { enum E { y }; component C { behaviour { .E v = .E.x; } } }
    om::Oid v = variable(".E", "v", name(".E.x", 2, 40), 2);
    om::Oid inner = enumType("E", {"y"}, 2);
    om::Oid outer = enumType("E", {"x"}, 1);
    declare({outer, space("n", {inner, component("C", {}, behaviour({v}, {}), 2)})});
    EXPECT_THAT(resolve(), IsEmpty());
    auto const& variable = get<kel::VariableDeclaration>(v);
    EXPECT_EQ(variable.getType().getDeclarationOid(), outer);
    auto const& value = om::AsType<kel::EnumConstantExpression>(variable.getInitialValue());
    EXPECT_EQ(value.getValue().getDeclaration().getParentOid(), outer);
}

TEST_F(ReferenceTest, BindingsResolveInstancesAndTheirComponentsPorts) {
    // 1: interface I { }
    // 2: component C { provides I p; }
    // 3: component S { provides I q; system {
    // 4:   C a; X b;
    // 5:   a.* <=> q;
    // 6:   a.r <=> x;
    // 7:   z.p <=> b.p;
    om::Oid wildcard = at(kel::constructBindingStatement(model, "a", "*", "", "q"), 5, 3);
    om::Oid system = kel::constructSystem(
        model, {at(kel::constructInstantiationStatement(model, "C", "a"), 4, 3),
                at(kel::constructInstantiationStatement(model, "X", "b"), 4, 8), wildcard,
                at(kel::constructBindingStatement(model, "a", "r", "", "x"), 6, 3),
                at(kel::constructBindingStatement(model, "z", "p", "b", "p"), 7, 3)});
    declare({interface("I", {}, om::NULL_OID, 1),
             component("C", {port("I", "p", 2)}, om::NULL_OID, 2),
             component("S", {port("I", "q", 3)}, om::NULL_OID, 3, at(system, 3, 30))});
    EXPECT_THAT(resolve(), ElementsAre("t.kel:4:8: undefined Model reference: 'X'",
                                       "t.kel:6:3: undefined Port reference: 'r'",
                                       "t.kel:6:3: undefined Port reference: 'x'",
                                       "t.kel:7:3: undefined Component variable reference: 'z'"));
    auto const& binding = get<kel::BindingStatement>(wildcard);
    EXPECT_EQ(binding.getLeft().getComponent().getDeclaration().getName(), "a");
    EXPECT_EQ(binding.getRight().getPort().getDeclaration().getName(), "q");
}

} // namespace
} // namespace language::test
