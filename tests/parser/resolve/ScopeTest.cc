#include "parser/resolve/BehaviourScope.h"
#include "parser/resolve/ComponentScope.h"
#include "parser/resolve/CompoundScope.h"
#include "parser/resolve/EnumTypeScope.h"
#include "parser/resolve/FunctionScope.h"
#include "parser/resolve/InterfaceScope.h"
#include "parser/resolve/LocalVariablesScope.h"
#include "parser/resolve/ModelScope.h"
#include "parser/resolve/NamespaceScope.h"
#include "parser/resolve/OnEventScope.h"
#include "parser/resolve/Resolver.h"
#include "parser/resolve/RootScope.h"
#include "parser/resolve/SystemScope.h"

#include <gtest/gtest.h>

#include <functional>
#include <iostream>
#include <memory>
#include <sstream>

namespace language {
namespace {

// The log stream's output while the scope prints.
std::string printed(Scope const& scope) {
    std::ostringstream captured;
    std::streambuf* previous = std::clog.rdbuf(captured.rdbuf());
    scope.print();
    std::clog.rdbuf(previous);
    return captured.str();
}

TEST(ScopeTest, SystemScopePrefersAnInstanceToAPortOfTheSameName) {
    RootScope root;
    SystemScope scope(root);
    scope.ports["a"] = 1;
    scope.instances["a"] = 2;
    scope.ports["p"] = 3;
    EXPECT_EQ(scope.findName("a"), 2);
    EXPECT_EQ(scope.getType("a"), "Instance");
    EXPECT_EQ(scope.findName("p"), 3);
    EXPECT_EQ(scope.getType("p"), "Port");
    EXPECT_EQ(scope.findName("q"), 0);
    EXPECT_EQ(scope.getType("q"), "");
}

TEST(ScopeTest, InBehavioursTypesHideVariablesAndInternalsAreEvents) {
    RootScope root;
    BehaviourScope scope(root);
    scope.variables["t"] = 1;
    scope.types["t"] = 2;
    scope.internals["x"] = 3;
    scope.functions["f"] = 4;
    EXPECT_EQ(scope.findName("t"), 2);
    EXPECT_EQ(scope.getType("t"), "Type");
    EXPECT_EQ(scope.getType("x"), "Event");
    EXPECT_EQ(scope.getType("f"), "Function");
}

TEST(ScopeTest, InFunctionsParametersHideVariables) {
    RootScope root;
    FunctionScope scope(root);
    scope.variables["v"] = 1;
    scope.parameters["v"] = 2;
    EXPECT_EQ(scope.findName("v"), 2);
    EXPECT_EQ(scope.getType("v"), "Parameter");
}

TEST(ScopeTest, AModelScopeHoldsNoNames) {
    ModelScope scope;
    EXPECT_EQ(scope.findName(""), 0);
    EXPECT_EQ(scope.getType("x"), "");
    EXPECT_EQ(printed(scope), "ModelScope: \n");
}

TEST(ScopeTest, NamespaceScopeSearchesNamespacesInterfacesComponentsTypes) {
    RootScope root;
    NamespaceScope scope(root);
    scope.types["n"] = 4;
    scope.components["n"] = 3;
    scope.interfaces["n"] = 2;
    EXPECT_EQ(scope.findName("n"), 2);
    EXPECT_EQ(scope.getType("n"), "Interface");
    scope.namespaces["n"] = 1;
    EXPECT_EQ(scope.findName("n"), 1);
    EXPECT_EQ(scope.getType("n"), "Namespace");
}

TEST(ScopeTest, PrintWritesTablesInTheirPrintOrderAndEntriesInNameOrder) {
    RootScope root;
    BehaviourScope scope(root);
    scope.variables["v"] = 7;
    scope.functions["g"] = 12;
    scope.functions["f"] = 11;
    EXPECT_EQ(printed(scope), "BehaviourScope: \n"
                              "  variables: \n"
                              "    v: 7\n"
                              "  types: \n"
                              "  internals: \n"
                              "  functions: \n"
                              "    f: 11\n"
                              "    g: 12\n");
}

struct PrintCase {
    std::function<std::unique_ptr<Scope>(Scope const&)> make;
    std::string text;
};

template <class S> std::function<std::unique_ptr<Scope>(Scope const&)> maker() {
    return [](Scope const& parent) { return std::make_unique<S>(parent); };
}

TEST(ScopeTest, AnEmptyScopePrintsItsHeaderAndTheLabelOfEachTable) {
    std::vector<PrintCase> const cases = {
        {maker<NamespaceScope>(),
         "NamespaceScope: \n  namespaces: \n  interfaces: \n  components: \n  types: \n"},
        {maker<InterfaceScope>(), "InterfaceScope: \n  types: \n  internals: \n"},
        {maker<ComponentScope>(), "ComponentScope: \n  ports: \n"},
        {maker<SystemScope>(), "SystemScope: \n  ports: \n  instances: \n"},
        {maker<EnumTypeScope>(), "EnumTypeScope: \n  values: \n"},
        {maker<LocalVariablesScope>(), "LocalVariablesScope: \n  variables: \n"},
        {maker<FunctionScope>(), "FunctionScope: \n  variables: \n  parameters: \n"},
        {maker<CompoundScope>(), "CompoundScope: \n  variables: \n"},
        {maker<OnEventScope>(), "OnEventScope: \n  variables: \n"},
    };
    RootScope root;
    EXPECT_EQ(printed(root), "RootScope: \n  namespaces: \n");
    for (PrintCase const& entry : cases) {
        EXPECT_EQ(printed(*entry.make(root)), entry.text);
    }
}

TEST(ScopeTest, ACopyKeepsTheTablesAndHasTheOriginalAsParent) {
    RootScope root;
    NamespaceScope original(root);
    original.types["T"] = 5;
    NamespaceScope copy(original);
    EXPECT_EQ(copy.parent(), &original);
    EXPECT_EQ(copy.findName("T"), 5);
    EXPECT_EQ(original.parent(), &root);
    EXPECT_EQ(root.parent(), nullptr);
}

TEST(ScopeTest, LookupsWalkOutwardAndTheInnermostAnswerCounts) {
    RootScope root;
    root.namespaces[""] = 1;
    NamespaceScope space(root);
    space.types["x"] = 2;
    BehaviourScope behaviour(space);
    behaviour.variables["x"] = 3;
    EXPECT_EQ(Resolver::lookupName("x", behaviour), 3);
    EXPECT_EQ(Resolver::lookupTypeName("x", behaviour), "Variable");
    EXPECT_EQ(Resolver::lookupName("x", space), 2);
    EXPECT_EQ(Resolver::lookupTypeName("", behaviour), "Namespace");
    EXPECT_EQ(Resolver::lookupName("y", behaviour), 0);
    EXPECT_EQ(Resolver::lookupTypeName("y", behaviour), "");
}

} // namespace
} // namespace language
