// The analyses that the well-formedness checks call: recursion, silence, the
// system graph and the small queries on statements and bindings.
#include "ParsedSource.h"
#include "om/AsType.h"
#include "om/OMException.h"
#include "parser/checks/BindingQueries.h"
#include "parser/checks/Recurser.h"
#include "parser/checks/SilentChecker.h"
#include "parser/checks/SystemGraph.h"

#include <gmock/gmock.h>

namespace language::test {
namespace {

using S = Silentness;

std::string const service = "interface I { in void e(); out void o(); behaviour { on e: {} } }\n";

// Functions of component C over the service interface, each with its body.
std::string component(std::string const& functions) {
    return service + "component C { provides I p; requires I r; behaviour { bool b = true;\n" +
           functions + "\non p.e(): {} } }\n";
}

TEST(RecurserTest, FindsFunctionsThatReachThemselves) {
    ResolvedSource source(component(R"kel(
void self() { self(); }
void ping() { if (b) pong(); }
void pong() { ping(); }
void caller() { self(); }
void intoTheCycle() { ping(); }
void nested() { b = f(f(b)); }
bool f(bool x) { return x; }
bool inGuard() { [inGuard()] r.e(); return true; }
)kel"));
    auto recursive = [&](char const* name) { return isRecursive(source.function("C", name)); };
    EXPECT_TRUE(recursive("self"));
    EXPECT_TRUE(recursive("ping"));
    EXPECT_TRUE(recursive("pong"));
    EXPECT_FALSE(recursive("caller"));
    EXPECT_FALSE(recursive("intoTheCycle")) << "calls into a cycle that does not lead back";
    EXPECT_FALSE(recursive("nested"));
    EXPECT_FALSE(recursive("inGuard"));
}

TEST(RecurserTest, AStatementOfAnotherFunctionReachesThroughItsCalls) {
    ResolvedSource source(component(R"kel(
void ping() { if (b) pong(); }
void pong() { ping(); tail(); }
void tail() { }
void viaPong() { pong(); }
void viaSelf() { viaSelf(); }
)kel"));
    Recurser recurser(source.behaviour("C"));
    auto reached = [&](char const* function, char const* from) {
        return recurser.containsRecursiveCallTo(source.function("C", function),
                                                source.function("C", from).getStatement());
    };
    EXPECT_TRUE(reached("ping", "viaPong"));
    EXPECT_TRUE(reached("tail", "viaPong")) << "reached, though not on a cycle with pong";
    EXPECT_FALSE(reached("ping", "viaSelf"));
}

TEST(RecurserTest, ListsCalleesOnceInOrderOfFirstCall) {
    ResolvedSource source(component(R"kel(
void a() { c(); b = g(g(b)); c(); if (g(b)) c(); }
void c() { }
bool g(bool x) { return x; }
)kel"));
    Recurser recurser(source.behaviour("C"));
    EXPECT_THAT(recurser.containingCalls(source.function("C", "a")),
                testing::ElementsAre(source.function("C", "c").getOid(),
                                     source.function("C", "g").getOid()));
}

TEST(RecurserTest, OutsideABehaviourIsAnError) {
    TestStore store;
    kel::FunctionDeclaration const& loose = om::AsType<kel::FunctionDeclaration>(
        *store.model.createRecursive(kel::FunctionDeclaration::ClassName));
    EXPECT_THROW(isRecursive(loose), om::OMException);
}

TEST(SilentCheckerTest, TablesOfSequenceAndAlternative) {
    // Rows by the first value, columns by the second, in the order of the enumeration.
    int const sequence[6][6] = {{0, 1, 2, 3, 4, 5}, {1, 1, 2, 1, 1, 1}, {2, 2, 2, 2, 2, 2},
                                {3, 1, 2, 3, 4, 5}, {4, 1, 2, 4, 4, 1}, {5, 1, 2, 5, 1, 5}};
    int const alternative[6][6] = {{0, 1, 1, 5, 1, 5}, {1, 1, 1, 1, 1, 1}, {1, 1, 2, 4, 4, 1},
                                   {5, 1, 4, 3, 4, 5}, {1, 1, 4, 4, 4, 1}, {5, 1, 1, 5, 1, 5}};
    for (int a = 0; a < 6; ++a) {
        for (int b = 0; b < 6; ++b) {
            EXPECT_EQ(SilentChecker::isSilentSemicolon(S(a), S(b)), S(sequence[a][b])) << a << b;
            EXPECT_EQ(SilentChecker::isSilentIf(S(a), S(b)), S(alternative[a][b])) << a << b;
        }
    }
}

TEST(SilentCheckerTest, ValuesOfFunctionsAtTheFixedPoint) {
    ResolvedSource source(component(R"kel(
void empty() { }
void act() { r.e(); }
void half() { if (b) r.e(); }
void actThenUnknown() { r.e(); later(); }
void later() { }
void callsLoudLater() { loud(); }
void loud() { r.e(); }
void recSilent() { if (b) { b = false; recSilent(); } }
void recMixed() { if (b) { r.e(); recMixed(); } }
void recLoud() { if (b) { recLoud(); } else { r.e(); } }
)kel"));
    SilentChecker checker(source.behaviour("C"));
    checker.getFixedPoint(source.behaviour("C"));
    auto value = [&](char const* name) {
        return checker.isSilentFunction(source.function("C", name));
    };
    EXPECT_EQ(value("empty"), S::Silent);
    EXPECT_EQ(value("act"), S::NotSilent);
    EXPECT_EQ(value("half"), S::Indeterminate);
    EXPECT_EQ(value("actThenUnknown"), S::NotSilent);
    // A callee declared later is read before it is known, and not read again.
    EXPECT_EQ(value("callsLoudLater"), S::Silent);
    EXPECT_EQ(value("loud"), S::NotSilent);
    EXPECT_EQ(value("recSilent"), S::Silent);
    EXPECT_EQ(value("recMixed"), S::Indeterminate);
    EXPECT_EQ(value("recLoud"), S::NotSilent);
}

std::string const systems = service + R"kel(
component Leaf { provides I p; requires I r; behaviour { on p.e(): r.e(); } }
component Dual { provides I p; provides I q; requires I r; behaviour { on p.e(): r.e(); on q.e(): r.e(); } }
component Top {
  provides I p;
  requires I ext;
  system {
    Dual a; Dual b; Leaf c; Leaf d;
    p <=> c.p;
    c.r <=> a.p;
    a.r <=> b.p;
    b.r <=> a.q;
    b.q <=> d.p;
    d.r <=> ext;
    b.q <=> *;
  }
}
component Self { provides I p; system { Self inner; p <=> inner.p; } }
component Outer { provides I p; system { Self s; p <=> s.p; } }
)kel";

kel::ComponentInstanceDeclaration const& instance(kel::System const& system,
                                                  std::string const& name) {
    for (kel::ComponentInstanceDeclaration const* instance : system.getInstancesVec()) {
        if (instance->getName() == name) {
            return *instance;
        }
    }
    throw std::logic_error("no instance " + name);
}

TEST(SystemGraphTest, InstancesOnOrLeadingToACycle) {
    ResolvedSource source(systems);
    kel::System const& system = source.model("Top").asComponentDeclaration()->getSystem();
    SystemGraph graph(system);
    EXPECT_TRUE(graph.isCyclic(instance(system, "a")));
    EXPECT_TRUE(graph.isCyclic(instance(system, "b")));
    EXPECT_TRUE(graph.isCyclic(instance(system, "c")));
    EXPECT_FALSE(graph.isCyclic(instance(system, "d")));
    EXPECT_FALSE(graph.isRecursive(system));
}

TEST(SystemGraphTest, SelfNestingIsNotCarriedUp) {
    ResolvedSource source(systems);
    kel::System const& self = source.model("Self").asComponentDeclaration()->getSystem();
    kel::System const& outer = source.model("Outer").asComponentDeclaration()->getSystem();
    EXPECT_TRUE(SystemGraph(self).isRecursive(self));
    EXPECT_FALSE(SystemGraph(outer).isRecursive(outer));
}

TEST(BindingQueriesTest, SidesAndBindingsCompareDeclarations) {
    ResolvedSource source(systems);
    auto const& top = *source.model("Top").asComponentDeclaration();
    kel::ConstBindingStatementVec bindings = top.getSystem().getObjBindingStatement();
    kel::InterfaceInstance const& cP = bindings[0]->getRight();
    kel::InterfaceInstance const& aP = bindings[1]->getRight();
    kel::InterfaceInstance const& wildcard = bindings[6]->getRight();
    EXPECT_TRUE(equalPortDecl(cP, cP));
    EXPECT_FALSE(equalPortDecl(cP, aP));
    EXPECT_FALSE(equalPortDecl(cP, bindings[0]->getLeft()));
    EXPECT_FALSE(equalPortDecl(wildcard, wildcard));
    EXPECT_TRUE(hasBinding(*top.getPortsVec()[1], top.getSystem()));
    auto const& self = *source.model("Self").asComponentDeclaration();
    // A port of Leaf is not bound in the system of Self.
    auto const& leaf = *source.model("Leaf").asComponentDeclaration();
    EXPECT_FALSE(hasBinding(*leaf.getPortsVec()[0], self.getSystem()));
}

} // namespace
} // namespace language::test
