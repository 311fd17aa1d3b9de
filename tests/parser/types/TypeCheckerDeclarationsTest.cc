// Unbound ports that end the bindings, initial values of behaviour variables,
// and the order in which the passes report.
#include "TypeTreeFixture.h"

#include <gmock/gmock.h>

namespace language::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TypeCheckerDeclarationsTest : public TypeTreeFixture {
protected:
    Oid addNamespace(Oid parent, std::string const& name) {
        Oid id = kel::NewNamed<kel::Namespace>(model, name);
        edit<kel::Namespace>(parent, [&](kel::Namespace& copy) { copy.addToNamespaces(id); });
        return id;
    }
    void addModel(Oid space, Oid model) {
        edit<kel::Namespace>(space, [&](kel::Namespace& copy) { copy.addToModels(model); });
    }
    Oid interface(std::string const& name, OidVec const& events, Oid behaviour = om::NULL_OID) {
        Oid id = kel::constructInterfaceDeclaration(model, name, behaviour);
        edit<kel::InterfaceDeclaration>(
            id, [&](kel::InterfaceDeclaration& copy) { copy.addToEvents(events); });
        return id;
    }
    // A behaviour with variables, functions and statements.
    Oid behaviour(OidVec const& variables, OidVec const& functions, OidVec const& statements) {
        Oid id = kel::constructBehaviour(model, "");
        edit<kel::Behaviour>(id, [&](kel::Behaviour& copy) {
            copy.addToVariables(variables);
            copy.addToFunctions(functions);
        });
        edit<kel::CompoundStatement>(
            find<kel::Behaviour>(id).getStatement().getOid(),
            [&](kel::CompoundStatement& copy) { copy.addToStatements(statements); });
        return id;
    }
    Oid port(Oid interface) {
        Oid id = kel::constructPortDeclaration(model, nameOf(interface), "p", kel::idirProvided,
                                               false, false);
        bind(find<kel::PortDeclaration>(id).getInterface(), interface);
        return id;
    }
    // left <=> right, with each side's port bound when it is given.
    Oid binding(Oid left, Oid right, int line) {
        Oid id =
            kel::constructBindingStatement(model, "a", left ? "p" : "*", "b", right ? "p" : "*");
        kel::BindingStatement const& statement = find<kel::BindingStatement>(id);
        for (auto [side, declaration] :
             {std::pair{&statement.getLeft(), left}, std::pair{&statement.getRight(), right}}) {
            if (declaration != om::NULL_OID) {
                bind(*side->tryGetPort(), declaration);
            }
        }
        return at(id, line, 5);
    }
    Oid component(OidVec const& ports, OidVec const& bindings, Oid behaviour = om::NULL_OID) {
        Oid system = bindings.empty() ? om::NULL_OID : kel::constructSystem(model, bindings);
        return kel::constructComponentDeclaration(model, "C", ports, behaviour, system);
    }
    // The return type, if any, stands at line:3.
    template <class T> Oid placeReturnType(Oid id, int line) {
        if (kel::TypeReference const* type = find<T>(id).tryGetReturnType()) {
            at(type->getOid(), line, 3);
        }
        return id;
    }
    Oid eventReturning(std::string const& type, int line) {
        return placeReturnType<kel::EventDeclaration>(event("e", type, {}), line);
    }
    Oid functionReturning(std::string const& type, int line) {
        return placeReturnType<kel::FunctionDeclaration>(function("f", type, {}), line);
    }
    Oid space() { return kel::GetDefaultNamespace(model)->getOid(); }
    kel::Namespace const& spaceOf(Oid id) { return find<kel::Namespace>(id); }
};

TEST_F(TypeCheckerDeclarationsTest, AnUnboundPortEndsTheBindingsOfTheNamespaceSilently) {
    Oid i = port(interface("I", {}));
    Oid j = port(interface("J", {}));
    Oid unbound = kel::constructBindingStatement(model, "a", "p", "b", "q");
    addModel(space(), component({}, {binding(i, i, 3), unbound, binding(i, j, 5)}));
    addModel(space(), component({}, {binding(i, j, 6)}));
    EXPECT_FALSE(checker.checkAllConstructorExpressionTypes(spaceOf(space())));
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(TypeCheckerDeclarationsTest, ABehaviourReportsVariablesThenFunctionsThenItsStatement) {
    Oid b = variable("b", boolType);
    auto assignment = [&](int line) {
        Oid id = kel::constructAssignmentBehaviourStatement(model, "b", integer(line, 5));
        bind(find<kel::AssignmentStatement>(id).getVariable(), b);
        return at(id, line, 1);
    };
    Oid checked = behaviour(
        {at(variable("v", boolType, integer(1, 10)), 1, 6)},
        {function("f", "void", {}, {assignment(3)}), function("g", "void", {}, {assignment(5)})},
        {assignment(8)});
    EXPECT_FALSE(checker.checkBehaviourExpressionTypes(find<kel::Behaviour>(checked)));
    EXPECT_THAT(errors(),
                ElementsAre("t.kel:1:6: type mismatch: 'bool' expected, found: 'int'",
                            "t.kel:3:1: Variable and expression types do not match: 'b'",
                            "t.kel:5:1: Variable and expression types do not match: 'b'",
                            "t.kel:8:1: Variable and expression types do not match: 'b'"));
}

TEST_F(TypeCheckerDeclarationsTest, InnerNamespacesFirstThenEventsFunctionsBindingsBehaviours) {
    auto behaviourWithError = [&](int line) {
        return behaviour({at(variable("v", boolType, integer(line, 10)), line, 6)}, {}, {});
    };
    Oid outer = addNamespace(space(), "outer");
    Oid inner = addNamespace(outer, "inner");
    addModel(inner, interface("K", {}, behaviourWithError(1)));
    Oid i = port(interface("I", {}));
    Oid j = port(interface("J", {}));
    // The component stands before the interface, and still its behaviour comes later.
    Oid withFunction = behaviourWithError(6);
    edit<kel::Behaviour>(withFunction, [&](kel::Behaviour& copy) {
        copy.addToFunctions(functionReturning("Msg", 3));
    });
    addModel(outer, component({}, {binding(i, j, 4)}, withFunction));
    addModel(outer, interface("L", {eventReturning("Msg", 2)}, behaviourWithError(5)));
    EXPECT_FALSE(checker.checkAllExpressionTypes());
    EXPECT_THAT(errors(), ElementsAre("t.kel:1:6: type mismatch: 'bool' expected, found: 'int'",
                                      "t.kel:2:3: Datatype is not allowed as return type: 'Msg'",
                                      "t.kel:3:3: Datatype is not allowed as return type: 'Msg'",
                                      "t.kel:4:5: '<=>' requires two arguments of equal type",
                                      "t.kel:5:6: type mismatch: 'bool' expected, found: 'int'",
                                      "t.kel:6:6: type mismatch: 'bool' expected, found: 'int'"));
}

} // namespace
} // namespace language::test
