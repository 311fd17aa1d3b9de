// Duplicate declarations, merged namespaces and dotted lookups. Each test
// shows the source that its tree stands for, with the line of each piece.
#include "ResolverFixture.h"

#include <gmock/gmock.h>

namespace language::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SymbolTableTest : public ResolverFixture {
protected:
    // A component whose behaviour has one variable of the named type.
    om::Oid userOf(std::string const& typeName, int line) {
        om::Oid value = name("a", line, 30);
        return component("U", {}, behaviour({variable(typeName, "v", value, line)}, {}), line);
    }
};

TEST_F(SymbolTableTest, ATypeDeclaredTwiceInAnInterfaceIsReportedAtBothDeclarations) {
    // 1: interface I {
    // 2:   subint T {0..1};
    // 3:   subint T {0..2};
    om::Oid first = at(kel::constructIntTypeDeclaration(model, "T", 0, 1), 2, 3);
    om::Oid second = at(kel::constructIntTypeDeclaration(model, "T", 0, 2), 3, 3);
    declare({interface("I", {first, second}, om::NULL_OID, 1)});
    EXPECT_THAT(resolve(), ElementsAre("t.kel:3:3: identifier declared before: 'T'",
                                       "t.kel:2:3: previous 'T' defined here"));
    EXPECT_FALSE(succeeded);
}

TEST_F(SymbolTableTest, ExternTypesClashOnlyWithAnotherValue) {
    // 1: extern D "int";
    // 2: extern D "int";
    // 3: extern E "int";
    // 4: extern E "long";
    declare({at(kel::constructDataTypeDeclaration(model, "D", "int"), 1, 1),
             at(kel::constructDataTypeDeclaration(model, "D", "int"), 2, 1),
             at(kel::constructDataTypeDeclaration(model, "E", "int"), 3, 1),
             at(kel::constructDataTypeDeclaration(model, "E", "long"), 4, 1)});
    EXPECT_THAT(resolve(), ElementsAre("t.kel:2:1: identifier declared before: 'D'",
                                       "t.kel:1:1: previous 'D' defined here",
                                       "t.kel:4:1: identifier declared before: 'E'",
                                       "t.kel:3:1: previous 'E' defined here",
                                       "t.kel:4:1: conflicting DataType declaration: 'E'",
                                       "t.kel:3:1: previous 'E' declared here"));
}

TEST_F(SymbolTableTest, TwoEnumsOfOneNameConflictSinceTheirValuesAreOtherObjects) {
    // 1: enum E { a };
    // 2: enum E { a };
    declare({enumType("E", {"a"}, 1), enumType("E", {"a"}, 2)});
    EXPECT_THAT(resolve(), ElementsAre("t.kel:2:1: identifier declared before: 'E'",
                                       "t.kel:1:1: previous 'E' defined here",
                                       "t.kel:2:1: conflicting EnumType declaration: 'E'",
                                       "t.kel:1:1: previous 'E' declared here"));
    EXPECT_FALSE(succeeded);
}

TEST_F(SymbolTableTest, AnEnumAndAnInterfaceOfOneNameClash) {
    // 1: enum E { a };
    // 2: interface E { }
    declare({enumType("E", {"a"}, 1), interface("E", {}, om::NULL_OID, 2)});
    EXPECT_THAT(resolve(), ElementsAre("t.kel:2:1: identifier declared before: 'E'",
                                       "t.kel:1:1: previous 'E' defined here"));
}

TEST_F(SymbolTableTest, TwoBlocksOfANamespaceBecomeOne) {
    // 1: namespace a { enum x { p }; }
    // 2: namespace a { enum y { q }; }
    // 3: component U { behaviour { a.x v = a.x.p; a.y w = a.y.q; } }
    declare({space("a", {enumType("x", {"p"}, 1)}), space("a", {enumType("y", {"q"}, 2)})});
    om::Oid v = variable("a.x", "v", name("a.x.p", 3, 30), 3);
    om::Oid w = variable("a.y", "w", name("a.y.q", 3, 40), 3);
    declare({component("U", {}, behaviour({v, w}, {}), 3)});
    EXPECT_THAT(resolve(), IsEmpty());
    EXPECT_TRUE(succeeded);
    EXPECT_EQ(get<kel::VariableDeclaration>(w).getType().getDeclaration().getName(), "y");
    kel::ConstNamespaceVec twins = kel::GetDefaultNamespace(model)->getNamespaces();
    ASSERT_EQ(twins.size(), 2u);
    EXPECT_EQ(twins[0]->getTypesSize(), 2u);
    EXPECT_EQ(twins[1]->getTypesSize(), 0u);
}

TEST_F(SymbolTableTest, TheSameTypeInTwoBlocksOfANamespaceIsDeclaredTwice) {
    // 1: namespace a { subint x {0..1}; }
    // 2: namespace a { subint x {0..1}; }
    declare({space("a", {at(kel::constructIntTypeDeclaration(model, "x", 0, 1), 1, 15)}),
             space("a", {at(kel::constructIntTypeDeclaration(model, "x", 0, 1), 2, 15)})});
    EXPECT_THAT(resolve(), ElementsAre("t.kel:2:15: identifier declared before: 'x'",
                                       "t.kel:1:15: previous 'x' defined here"));
}

TEST_F(SymbolTableTest, DuplicateParametersOfAnEventAreReportedButNotEntered) {
    // 1: interface I {
    // 2:   in void e(subint p, subint p);
    om::Oid small = at(kel::constructIntTypeDeclaration(model, "S", 0, 1), 1, 20);
    om::Oid e = event("e", {parameter("S", "p", 2, 13), parameter("S", "p", 2, 23)}, 2);
    declare({interface("I", {small, e}, om::NULL_OID, 1)});
    EXPECT_THAT(resolve(),
                ElementsAre("t.kel:2:23: duplicate identifiers in Parameter declaration: 'p'",
                            "t.kel:2:13: previous 'p' defined here"));
}

TEST_F(SymbolTableTest, BehaviourNamesClashAcrossTablesButMayHideOuterOnes) {
    // 1: enum a { x };
    // 2: interface I { behaviour {
    // 3:   enum a { y };          hides the namespace's a
    // 4:   a b = a.y;
    // 5:   a b = a.y;             a second b
    // 6:   bool a() { }           a function named like the type
    om::Oid b1 = variable("a", "b", name("a.y", 4, 10), 4);
    om::Oid b2 = variable("a", "b", name("a.y", 5, 10), 5);
    om::Oid f = at(kel::constructFunctionDeclaration(model, "bool", "a", {}), 6, 3);
    om::Oid inner = enumType("a", {"y"}, 3);
    declare({enumType("a", {"x"}, 1), interface("I", {}, behaviour({inner, b1, b2, f}, {}), 2)});
    EXPECT_THAT(resolve(), ElementsAre("t.kel:5:1: identifier declared before: 'b'",
                                       "t.kel:4:1: previous 'b' defined here",
                                       "t.kel:6:3: identifier declared before: 'a'",
                                       "t.kel:3:1: previous 'a' defined here"));
    EXPECT_EQ(get<kel::VariableDeclaration>(b1).getType().getDeclarationOid(), inner);
}

TEST_F(SymbolTableTest, PortsAndInstancesOfASystemShareOneScope) {
    // 1: interface I { }
    // 2: component C { provides I p; }
    // 3: component S { provides I p; system { C p; C q; C q; } }
    om::Oid system = kel::constructSystem(
        model, {at(kel::constructInstantiationStatement(model, "C", "p"), 3, 40),
                at(kel::constructInstantiationStatement(model, "C", "q"), 3, 45),
                at(kel::constructInstantiationStatement(model, "C", "q"), 3, 50)});
    declare({interface("I", {}, om::NULL_OID, 1), component("C", {port("I", "p", 2)}, 0, 2),
             component("S", {port("I", "p", 3)}, om::NULL_OID, 3, at(system, 3, 30))});
    EXPECT_THAT(resolve(), ElementsAre("t.kel:3:40: identifier declared before: 'p'",
                                       "t.kel:3:1: previous 'p' defined here",
                                       "t.kel:3:50: identifier declared before: 'q'",
                                       "t.kel:3:45: previous 'q' defined here"));
}

} // namespace
} // namespace language::test
