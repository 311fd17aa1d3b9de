#include "parser/grammar/Parser.h"

#include "metamodel/ConstructionSupport.h"
#include "metamodel/StatementConstructors.h"

namespace language {

namespace {

bool isEventArgument(om::Object const* argument) {
    return dynamic_cast<kel::AssignmentExpression const*>(argument) != nullptr ||
           dynamic_cast<kel::NameExpression const*>(argument) != nullptr;
}

} // namespace

om::Oid Parser::constructGuardedStatement(L const& b, L const& e, L const& a, om::Oid guard,
                                          om::Oid statement) {
    return skipsComponentsOnly()
               ? om::NULL_OID
               : updateLocation(kel::constructGuardedStatement(m_model, guard, statement), b, e, a);
}

om::Oid Parser::constructExpressionGuard(L const& b, L const& e, L const& a, om::Oid expression) {
    return skipsComponentsOnly()
               ? om::NULL_OID
               : updateLocation(kel::constructExpressionGuard(m_model, expression), b, e, a);
}

om::Oid Parser::constructOtherwiseGuard(L const& b, L const& e, L const& a) {
    return skipsComponentsOnly() ? om::NULL_OID
                                 : updateLocation(kel::constructOtherwiseGuard(m_model), b, e, a);
}

om::Oid Parser::constructCompoundBehaviourStatement(L const& b, L const& e, L const& a,
                                                    Oids const& statements) {
    return skipsComponentsOnly()
               ? om::NULL_OID
               : updateLocation(kel::constructCompoundBehaviourStatement(m_model, statements), b, e,
                                a);
}

om::Oid Parser::constructOnEventStatement(L const& b, L const& e, L const& a, Oids const& triggers,
                                          om::Oid statement) {
    return skipsComponentsOnly()
               ? om::NULL_OID
               : updateLocation(kel::constructOnEventStatement(m_model, triggers, statement), b, e,
                                a);
}

om::Oid Parser::constructBlockingStatement(L const& b, L const& e, L const& a, om::Oid statement) {
    return skipsComponentsOnly()
               ? om::NULL_OID
               : updateLocation(kel::constructBlockingStatement(m_model, statement), b, e, a);
}

om::Oid Parser::constructIfStatement(L const& b, L const& e, L const& a, om::Oid condition,
                                     om::Oid thenStatement, om::Oid elseStatement) {
    return skipsComponentsOnly()
               ? om::NULL_OID
               : updateLocation(
                     kel::constructIfStatement(m_model, condition, thenStatement, elseStatement), b,
                     e, a);
}

om::Oid Parser::constructReturnStatement(L const& b, L const& e, L const& a, om::Oid value) {
    return skipsComponentsOnly()
               ? om::NULL_OID
               : updateLocation(kel::constructReturnStatement(m_model, value), b, e, a);
}

om::Oid Parser::constructOptionalInstance(L const&, L const&, L const& a) {
    if (skipsComponentsOnly()) {
        return om::NULL_OID;
    }
    om::Oid id = kel::constructOptionalInstance(m_model);
    updateLocation(kel::Find<kel::EventInstance>(m_model, id).getEventOid(), a);
    return updateLocation(id, a);
}

om::Oid Parser::constructInevitableInstance(L const&, L const&, L const& a) {
    if (skipsComponentsOnly()) {
        return om::NULL_OID;
    }
    om::Oid id = kel::constructInevitableInstance(m_model);
    updateLocation(kel::Find<kel::EventInstance>(m_model, id).getEventOid(), a);
    return updateLocation(id, a);
}

om::Oid Parser::constructIllegalStatement(L const& b, L const& e, L const& a) {
    if (skipsComponentsOnly()) {
        return om::NULL_OID;
    }
    om::Oid id = kel::constructIllegalStatement(m_model);
    updateLocation(kel::Find<kel::ActionStatement>(m_model, id).getExpressionOid(), b, e, a);
    return updateLocation(id, b, e, a);
}

om::Oid Parser::constructAssignmentBehaviourStatement(L const& b, L const& e, L const& a,
                                                      Name const& variable, om::Oid expression) {
    if (skipsComponentsOnly()) {
        return om::NULL_OID;
    }
    om::Oid id = kel::constructAssignmentBehaviourStatement(m_model, variable.name, expression);
    updateLocation(kel::Find<kel::AssignmentStatement>(m_model, id).getVariableOid(),
                   variable.location);
    return updateLocation(id, b, e, a);
}

om::Oid Parser::constructActionOrFunctionCallStatement(L const& b, L const& e, L const& a,
                                                       Compound const& call) {
    if (skipsComponentsOnly()) {
        return om::NULL_OID;
    }
    om::Oid id = kel::constructNameStatement(m_model, concatNameIds(call.names), call.parentheses,
                                             call.arguments);
    updateLocation(kel::Find<kel::NameStatement>(m_model, id).getExpressionOid(), b, b, a);
    return updateLocation(id, b, e, a);
}

om::Oid Parser::constructReplyStatement(L const& b, L const& e, L const& a, Names const& port,
                                        om::Oid value) {
    if (skipsComponentsOnly()) {
        return om::NULL_OID;
    }
    Name portName = concatNames(port);
    if (port.size() > 1) {
        error(b, "syntax error, compound name not allowed here");
    }
    om::Oid id = kel::constructReplyStatement(m_model, portName.name, value);
    // The port is located where its name stands, like every other reference.
    auto const& reply = kel::Find<kel::ReplyStatement>(m_model, id);
    if (reply.hasPort()) {
        updateLocation(reply.getPortOid(), portName.location);
    }
    return updateLocation(id, b, e, a);
}

om::Oid Parser::constructEventInstance(L const& b, L const& e, L const& a, Compound const& event) {
    if (skipsComponentsOnly()) {
        return om::NULL_OID;
    }
    Name port = prepartName(event.names);
    Name eventName = lastName(event.names);
    om::Oid id = kel::constructEventInstance(m_model, port.name, eventName.name, event.parentheses,
                                             event.arguments);
    auto const& instance = kel::Find<kel::EventInstance>(m_model, id);
    updateLocation(instance.getEventOid(), eventName.location);
    if (instance.hasPort()) {
        updateLocation(instance.getPortOid(), port.location);
    }
    checkEventArguments(event.arguments, a);
    return updateLocation(id, b, e, a);
}

void Parser::checkEventArguments(Oids const& arguments, L const& at) {
    for (om::Oid argument : arguments) {
        om::Object const* object = m_model.tryFind(argument);
        if (isEventArgument(object)) {
            continue;
        }
        auto const* placed = dynamic_cast<kel::Location const*>(object);
        error(placed != nullptr ? getLocation(*placed) : at,
              "syntax error, expression not allowed here");
    }
}

om::Oid Parser::constructSystem(L const& b, L const& e, L const& a, Oids const& statements) {
    m_foreign = false;
    return skipsImported() ? om::NULL_OID
                           : updateLocation(kel::constructSystem(m_model, statements), b, e, a);
}

om::Oid Parser::constructInstantiationStatement(L const& b, L const& e, L const& a,
                                                Names const& component, Name const& name) {
    if (skipsImported()) {
        return om::NULL_OID;
    }
    Name componentName = concatNames(component);
    om::Oid id = kel::constructInstantiationStatement(m_model, componentName.name, name.name);
    updateLocation(kel::Find<kel::ComponentInstanceDeclaration>(m_model, id).getComponentOid(),
                   componentName.location);
    return updateLocation(id, b, e, a);
}

om::Oid Parser::constructBindingStatement(L const& b, L const& e, L const& a, Names const& left,
                                          Names const& right) {
    if (skipsImported()) {
        return om::NULL_OID;
    }
    om::Oid id =
        kel::constructBindingStatement(m_model, prepartName(left).name, lastName(left).name,
                                       prepartName(right).name, lastName(right).name);
    auto const& binding = kel::Find<kel::BindingStatement>(m_model, id);
    locateBindingSide(binding.getLeft(), left);
    locateBindingSide(binding.getRight(), right);
    return updateLocation(id, b, e, a);
}

void Parser::locateBindingSide(kel::InterfaceInstance const& side, Names const& names) {
    Name port = lastName(names);
    if (side.hasPort()) {
        updateLocation(side.getPortOid(), port.location);
    }
    if (names.size() == 1) {
        updateLocation(side.getOid(), port.location);
        return;
    }
    location instance = prepartName(names).location;
    if (side.hasComponent()) {
        updateLocation(side.getComponentOid(), instance);
    }
    updateLocation(side.getOid(), instance);
}

} // namespace language
