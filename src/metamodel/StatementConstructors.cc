#include "metamodel/StatementConstructors.h"

#include "metamodel/ConstActionExpressionVec.h"
#include "metamodel/ConstActionStatementVec.h"
#include "metamodel/ConstAssignmentStatementVec.h"
#include "metamodel/ConstBehaviourStatementVec.h"
#include "metamodel/ConstBlockingStatementVec.h"
#include "metamodel/ConstCompoundStatementVec.h"
#include "metamodel/ConstEventInstanceVec.h"
#include "metamodel/ConstEventReferenceVec.h"
#include "metamodel/ConstExpressionGuardVec.h"
#include "metamodel/ConstExpressionVec.h"
#include "metamodel/ConstGuardVec.h"
#include "metamodel/ConstGuardedStatementVec.h"
#include "metamodel/ConstIfStatementVec.h"
#include "metamodel/ConstNameExpressionVec.h"
#include "metamodel/ConstNameStatementVec.h"
#include "metamodel/ConstOnEventStatementVec.h"
#include "metamodel/ConstOtherwiseGuardVec.h"
#include "metamodel/ConstPortReferenceVec.h"
#include "metamodel/ConstReplyStatementVec.h"
#include "metamodel/ConstReturnStatementVec.h"
#include "metamodel/ConstVariableDeclarationVec.h"
#include "metamodel/ConstVariableReferenceVec.h"
#include "metamodel/ConstructionSupport.h"
#include "metamodel/ExpressionConstructors.h"
#include "metamodel/Locations.h"

namespace kel {
namespace {

// An event instance of a built-in event, named after it.
om::Oid BuiltinInstance(om::ObjectModel& model, std::string const& name) {
    auto copy = NewObject<EventInstance>(model);
    copy.setName(name);
    copy.setEvent(Find<EventReference>(model, NewNamed<EventReference>(model, name)));
    return Insert(model, std::move(copy));
}

template <class T> om::Oid WithStatement(om::ObjectModel& model, om::Oid statementId) {
    auto copy = NewObject<T>(model);
    copy.setStatement(Find<BehaviourStatement>(model, statementId));
    return Insert(model, std::move(copy));
}

template <class T>
void SetOptionalExpression(om::ObjectModel& model, T& copy, om::Oid expressionId) {
    if (expressionId != om::NULL_OID) {
        copy.setExpression(Find<Expression>(model, expressionId));
    }
}

// A declaration statement for the variable, at the variable's place in the source.
om::Oid WrappedVariable(om::ObjectModel& model, VariableDeclaration const& variable) {
    return UpdateLocation(constructVariableDeclarationStatement(model, variable.getOid()),
                          variable);
}

} // namespace

om::Oid constructGuardedStatement(om::ObjectModel& model, om::Oid guardId, om::Oid statementId) {
    auto copy = NewObject<GuardedStatement>(model);
    if (guardId != om::NULL_OID) {
        copy.setGuard(Find<Guard>(model, guardId));
    }
    copy.setStatement(Find<BehaviourStatement>(model, statementId));
    return Insert(model, std::move(copy));
}

om::Oid constructExpressionGuard(om::ObjectModel& model, om::Oid expressionId) {
    auto copy = NewObject<ExpressionGuard>(model);
    copy.setExpression(Find<Expression>(model, expressionId));
    return Insert(model, std::move(copy));
}

om::Oid constructOtherwiseGuard(om::ObjectModel& model) {
    return Insert(model, NewObject<OtherwiseGuard>(model));
}

om::Oid constructOnEventStatement(om::ObjectModel& model, OidVec const& eventIds,
                                  om::Oid statementId) {
    auto copy = NewObject<OnEventStatement>(model);
    copy.setEvents(Checked<EventInstance>(model, eventIds));
    copy.setStatement(Find<BehaviourStatement>(model, statementId));
    return Insert(model, std::move(copy));
}

om::Oid constructOnEventStatement(om::ObjectModel& model, om::Oid eventId, om::Oid statementId) {
    return constructOnEventStatement(model, OidVec{eventId}, statementId);
}

om::Oid constructBlockingStatement(om::ObjectModel& model, om::Oid statementId) {
    return WithStatement<BlockingStatement>(model, statementId);
}

om::Oid constructEventInstance(om::ObjectModel& model, std::string const& portName,
                               std::string const& eventName, bool parentheses,
                               OidVec const& argumentIds) {
    auto copy = NewObject<EventInstance>(model);
    copy.setEvent(Find<EventReference>(model, NewNamed<EventReference>(model, eventName)));
    if (portName.empty()) {
        copy.setName(eventName);
    } else {
        copy.setPort(Find<PortReference>(model, NewNamed<PortReference>(model, portName)));
        copy.setName(portName + "." + eventName);
    }
    copy.setParentheses(parentheses);
    copy.addToArguments(Checked<Expression>(model, argumentIds));
    return Insert(model, std::move(copy));
}

om::Oid constructEventInstance(om::ObjectModel& model, std::string const& portName,
                               std::string const& eventName, bool parentheses) {
    return constructEventInstance(model, portName, eventName, parentheses, {});
}

om::Oid constructIllegalInstance(om::ObjectModel& model) {
    return BuiltinInstance(model, "illegal");
}

om::Oid constructOptionalInstance(om::ObjectModel& model) {
    return BuiltinInstance(model, "optional");
}

om::Oid constructInevitableInstance(om::ObjectModel& model) {
    return BuiltinInstance(model, "inevitable");
}

om::Oid constructIllegalStatement(om::ObjectModel& model) {
    auto action = NewObject<ActionExpression>(model);
    action.setEvent(Find<EventInstance>(model, constructIllegalInstance(model)));
    auto copy = NewObject<ActionStatement>(model);
    copy.setExpression(Find<ActionExpression>(model, Insert(model, std::move(action))));
    return Insert(model, std::move(copy));
}

om::Oid constructAssignmentBehaviourStatement(om::ObjectModel& model,
                                              std::string const& variableName, om::Oid valueId) {
    auto copy = NewObject<AssignmentStatement>(model);
    copy.setVariable(
        Find<VariableReference>(model, NewNamed<VariableReference>(model, variableName)));
    if (valueId != om::NULL_OID) {
        copy.setValue(Find<Expression>(model, valueId));
    }
    return Insert(model, std::move(copy));
}

om::Oid constructNameStatement(om::ObjectModel& model, std::string const& name, bool parentheses,
                               OidVec const& argumentIds) {
    auto copy = NewObject<NameStatement>(model);
    auto const expressionId = constructNamedExpression(model, name, parentheses, argumentIds);
    copy.setExpression(Find<NameExpression>(model, expressionId));
    return Insert(model, std::move(copy));
}

om::Oid constructIfStatement(om::ObjectModel& model, om::Oid expressionId, om::Oid thenId,
                             om::Oid elseId) {
    auto copy = NewObject<IfStatement>(model);
    SetOptionalExpression(model, copy, expressionId);
    copy.setThenStatement(Find<BehaviourStatement>(model, thenId));
    if (elseId != om::NULL_OID) {
        copy.setElseStatement(Find<BehaviourStatement>(model, elseId));
    }
    return Insert(model, std::move(copy));
}

om::Oid constructReplyStatement(om::ObjectModel& model, std::string const& portName,
                                om::Oid expressionId) {
    auto copy = NewObject<ReplyStatement>(model);
    SetOptionalExpression(model, copy, expressionId);
    if (!portName.empty()) {
        copy.setPort(Find<PortReference>(model, NewNamed<PortReference>(model, portName)));
    }
    return Insert(model, std::move(copy));
}

om::Oid constructReturnStatement(om::ObjectModel& model, om::Oid expressionId) {
    auto copy = NewObject<ReturnStatement>(model);
    SetOptionalExpression(model, copy, expressionId);
    return Insert(model, std::move(copy));
}

om::Oid constructCompoundBehaviourStatement(om::ObjectModel& model, OidVec const& ids) {
    OidVec statementIds;
    for (auto const id : ids) {
        auto const* variable = dynamic_cast<VariableDeclaration const*>(model.find(id));
        statementIds.push_back(variable == nullptr ? id : WrappedVariable(model, *variable));
    }
    auto copy = NewObject<CompoundStatement>(model);
    copy.setStatements(statementIds);
    return Insert(model, std::move(copy));
}

} // namespace kel
