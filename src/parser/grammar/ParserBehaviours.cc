#include "parser/grammar/Parser.h"

#include "metamodel/AsyncInterface.h"
#include "metamodel/ConstructionSupport.h"
#include "metamodel/DeclarationConstructors.h"

namespace language {

namespace {

// The one interface that an internal port of a behaviour may have.
std::string const asyncInterfaceName = "kel.async";

} // namespace

om::Oid Parser::constructBehaviour(L const& b, L const& e, L const& a, Name const& name,
                                   Oids const& declarationsAndStatements) {
    m_foreign = false;
    if (skipsComponentsOnly()) {
        return om::NULL_OID;
    }
    kel::Behaviour behaviour(
        kel::Find<kel::Behaviour>(m_model, kel::constructBehaviour(m_model, name.name)));
    kel::CompoundStatement body(behaviour.getStatement());
    setLocation(body, b, e, a);
    for (om::Oid id : declarationsAndStatements) {
        fileBehaviourPart(behaviour, body, id);
    }
    m_model.update(body);
    setLocation(behaviour, b, e, a);
    return kel::Store(m_model, behaviour);
}

void Parser::fileBehaviourPart(kel::Behaviour& behaviour, kel::CompoundStatement& body,
                               om::Oid id) {
    om::Object const* object = m_model.find(id);
    if (auto const* misplaced = dynamic_cast<kel::Namespace const*>(object)) {
        reportCompoundName(*misplaced);
    } else if (dynamic_cast<kel::TypeDeclaration const*>(object) != nullptr) {
        behaviour.addToTypes(id);
    } else if (dynamic_cast<kel::VariableDeclaration const*>(object) != nullptr) {
        behaviour.addToVariables(id);
    } else if (auto const* internal = dynamic_cast<kel::InternalDeclaration const*>(object)) {
        fileAsyncInternal(*internal);
        behaviour.addToInternals(id);
    } else if (dynamic_cast<kel::FunctionDeclaration const*>(object) != nullptr) {
        behaviour.addToFunctions(id);
    } else if (dynamic_cast<kel::BehaviourStatement const*>(object) != nullptr) {
        body.addToStatements(id);
    }
}

void Parser::fileAsyncInternal(kel::InternalDeclaration const& internal) {
    kel::InterfaceReference reference(internal.getInterface());
    if (reference.getName() != asyncInterfaceName) {
        error(getLocation(reference), "Only 'kel.async' allowed: " + q(reference.getName()));
        return;
    }
    reference.setDeclaration(
        kel::getAsyncInterfaceDeclaration(m_model, internal, internal.getParameters()));
    m_model.update(reference);
}

om::Oid Parser::constructFunctionDeclaration(L const& b, L const& e, L const& a, Names const& type,
                                             Name const& name, Oids const& parameters,
                                             Oids const& body) {
    if (skipsComponentsOnly()) {
        return om::NULL_OID;
    }
    Name typeName = concatNames(type);
    kel::FunctionDeclaration function(kel::Find<kel::FunctionDeclaration>(
        m_model, kel::constructFunctionDeclaration(m_model, typeName.name, name.name, parameters)));
    if (function.hasReturnType()) {
        updateLocation(function.getReturnTypeOid(), typeName.location);
    }
    kel::CompoundStatement statement(function.getStatement());
    setLocation(statement, b, e, a);
    for (om::Oid id : body) {
        fileFunctionPart(statement, id);
    }
    m_model.update(statement);
    setLocation(function, b, e, a);
    return kel::Store(m_model, function);
}

void Parser::fileFunctionPart(kel::CompoundStatement& body, om::Oid id) {
    om::Object const* object = m_model.find(id);
    if (auto const* type = dynamic_cast<kel::TypeDeclaration const*>(object)) {
        error(getLocation(*type), "syntax error, unexpected type declaration");
    } else if (auto const* variable = dynamic_cast<kel::VariableDeclaration const*>(object)) {
        kel::VariableDeclarationStatement wrapper(kel::Find<kel::VariableDeclarationStatement>(
            m_model, kel::constructVariableDeclarationStatement(m_model, id)));
        setLocation(wrapper, *variable);
        body.addToStatements(kel::Store(m_model, wrapper));
        return;
    } else if (auto const* function = dynamic_cast<kel::FunctionDeclaration const*>(object)) {
        error(getLocation(*function), "syntax error, unexpected function declaration");
    } else if (dynamic_cast<kel::BehaviourStatement const*>(object) != nullptr) {
        body.addToStatements(id);
        return;
    }
    // A function body holds statements only; what else was written leaves the store.
    drop(id);
}

} // namespace language
