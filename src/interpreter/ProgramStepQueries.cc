// What the diagram, the reconciliation and the loop detection ask of a step.
#include "interpreter/ProgramStep.h"

#include "interpreter/KelSemantics.h"

#include "metamodel/ActionExpression.h"
#include "metamodel/AssignmentStatement.h"
#include "metamodel/EnumTypeDeclaration.h"
#include "metamodel/EventReference.h"
#include "metamodel/IntTypeDeclaration.h"
#include "metamodel/InterfaceReference.h"
#include "metamodel/InternalDeclaration.h"
#include "metamodel/Kel.h"
#include "metamodel/PortReference.h"
#include "metamodel/TreePredicates.h"
#include "metamodel/TypeReference.h"

#include <stdexcept>

namespace {

bool SameObject(om::Object const* a, om::Object const* b) {
    return (a == nullptr && b == nullptr) ||
           (a != nullptr && b != nullptr && a->getOid() == b->getOid());
}

kel::PortDeclaration const* PortOf(kel::EventInstance const* instance) {
    auto const* port = instance == nullptr ? nullptr : instance->tryGetPort();
    return port == nullptr ? nullptr : port->tryGetDeclaration();
}

// The reply of the instance's event; typed and valued when `value` is given.
kel::PortReturn ReturnOf(kel::EventInstance const& instance, StateVariableValue const* value) {
    kel::PortReturn result;
    result.port = PortOf(&instance);
    auto const* event = instance.getEvent().tryGetDeclaration();
    if (result.port != nullptr) {
        result.interface = result.port->getInterface().tryGetDeclaration();
    } else if (event != nullptr) {
        result.interface = dynamic_cast<kel::InterfaceDeclaration const*>(event->tryGetParent());
    }
    if (value == nullptr || event == nullptr || !event->hasReturnType()) {
        return result;
    }
    result.type = event->getReturnType().tryGetDeclaration();
    if (auto const* enumValue = dynamic_cast<EnumStateVariableValue const*>(value)) {
        result.enumValue = enumValue->value;
    } else if (auto const* boolValue = dynamic_cast<BoolStateVariableValue const*>(value)) {
        result.boolValue = boolValue->value == kel::boolTrue;
    } else if (auto const* intValue = dynamic_cast<IntStateVariableValue const*>(value)) {
        result.intValue = intValue->value;
    }
    return result;
}

// The reply as the step's own event instance names it; only the returns of
// calls have one. Worked out when asked for: a history holds millions of steps.
kel::PortReturn OwnReturn(ProgramStep const& step) {
    if (step.kind != ProgramStep::PSK_OnEventReturn && step.kind != ProgramStep::PSK_ActionReturn) {
        return {};
    }
    return ReturnOf(*step.eventInstance, step.value ? step.value->get() : nullptr);
}

bool IsBetween(ProgramStep::ProgramStepKind kind, ProgramStep::ProgramStepKind first,
               ProgramStep::ProgramStepKind last) {
    return first <= kind && kind <= last;
}

std::string StatementClassName(kel::BehaviourStatement const& statement) {
    if (statement.asVariableDeclarationStatement() != nullptr) {
        return "VariableDeclarationStatement";
    }
    if (statement.asGuardedStatement() != nullptr) {
        return "GuardedStatement";
    }
    if (statement.asCompoundStatement() != nullptr) {
        return "CompoundStatement";
    }
    if (statement.asOnEventStatement() != nullptr) {
        return "OnEventStatement";
    }
    if (statement.asAssignmentStatement() != nullptr) {
        return "AssignmentStatement";
    }
    if (statement.asActionStatement() != nullptr) {
        return "ActionStatement";
    }
    if (statement.asIfStatement() != nullptr) {
        return "IfStatement";
    }
    if (statement.asFunctionCallStatement() != nullptr) {
        return "FunctionCallStatement";
    }
    if (statement.asReplyStatement() != nullptr) {
        return "ReplyStatement";
    }
    if (statement.asReturnStatement() != nullptr) {
        return "ReturnStatement";
    }
    return kel::BehaviourStatement::ClassName;
}

} // namespace

std::string const& ProgramStep::errorMessage() const {
    static std::string const none;
    return error ? *error : none;
}

bool ProgramStep::isActionStatement() const {
    return kind == PSK_Statement && statement != nullptr && KelSemantics::IsAction(*statement);
}

bool ProgramStep::hasPortEvent() const {
    return kind == PSK_OnEvent || IsBetween(kind, PSK_Receive, PSK_Release) ||
           isActionStatement();
}

kel::PortEvent ProgramStep::getPortEvent() const {
    auto result = portEvent;
    if (instance().port != nullptr) {
        result.port = instance().port;
    }
    return result;
}

kel::PortReturn ProgramStep::getPortReturn() const {
    auto result = OwnReturn(*this);
    if (instance().port != nullptr) {
        result.port = instance().port;
    }
    return result;
}

kel::EventInstance const* ProgramStep::tryGetEventInstance() const {
    if (eventInstance != nullptr) {
        return eventInstance;
    }
    return statement == nullptr ? nullptr : kel::tryGetActionEventInstance(*statement);
}

kel::EventDeclaration const* ProgramStep::tryGetEvent() const {
    auto const* instance = tryGetEventInstance();
    return instance == nullptr ? portEvent.event : instance->getEvent().tryGetDeclaration();
}

kel::PortDeclaration const* ProgramStep::tryGetPort() const {
    if (instance().port != nullptr) {
        return instance().port;
    }
    if (kind == PSK_OnEvent || kind == PSK_OnEventReturn || kind == PSK_ActionReturn) {
        return PortOf(eventInstance);
    }
    if (isActionStatement()) {
        return PortOf(tryGetEventInstance());
    }
    if (IsBetween(kind, PSK_Receive, PSK_Release)) {
        return portEvent.port;
    }
    return nullptr;
}

kel::PortDeclaration const& ProgramStep::getPort() const {
    auto const* port = tryGetPort();
    if (port == nullptr) {
        throw std::runtime_error("ProgramStep not associated with a port");
    }
    return *port;
}

ProgramStep::SynchronizationType ProgramStep::getSynchronizationType() const {
    switch (kind) {
    case PSK_Statement:
        return statement != nullptr && KelSemantics::IsEventCallAction(*statement) ? Call : None;
    case PSK_ThreadEnter:
        return portEvent.event != nullptr ? Call : None;
    case PSK_OnEventReturn:
    case PSK_ActionReturn:
        return Return;
    case PSK_Receive:
    case PSK_Enqueue:
        return Notification;
    default:
        return None;
    }
}

bool ProgramStep::isSynchronizationStep() const {
    switch (kind) {
    case PSK_Statement:
        return statement != nullptr && KelSemantics::IsEventCallAction(*statement) &&
               !KelSemantics::IsInternalAction(*statement);
    case PSK_Enqueue:
        return getPortEvent().GetPort().asInternalDeclaration() == nullptr;
    case PSK_ThreadEnter:
        return portEvent.event != nullptr;
    case PSK_Receive:
    case PSK_OnEventReturn:
    case PSK_ActionReturn:
        return true;
    default:
        return false;
    }
}

std::string ProgramStep::getObservableEventName() const {
    switch (kind) {
    case PSK_Receive:
    case PSK_Enqueue:
    case PSK_ThreadEnter:
        return portEvent.str();
    case PSK_Statement:
        return isActionStatement() ? portEvent.str() : "PSK_Statement";
    case PSK_OnEventReturn:
    case PSK_ActionReturn:
        return OwnReturn(*this).str();
    case PSK_FunctionCall:
        return "PSK_FunctionCall";
    case PSK_OnEvent:
        return "PSK_OnEvent";
    case PSK_ReturnAssignment:
        return "PSK_ReturnAssignment";
    case PSK_Dequeue:
        return "PSK_Dequeue";
    case PSK_ThreadExit:
        return "PSK_ThreadExit";
    case PSK_Block:
        return "PSK_Block";
    case PSK_Release:
        return "PSK_Release";
    case PSK_Initialize:
        return "PSK_Initialize";
    case PSK_Error:
        return "PSK_Error";
    }
    return {};
}

std::string ProgramStep::getStepKindName() const {
    switch (kind) {
    case PSK_Statement:
        return StatementClassName(*statement);
    case PSK_FunctionCall:
        return "FunctionCall";
    case PSK_OnEvent:
        return "OnEvent";
    case PSK_OnEventReturn:
        return "OnEventReturn";
    case PSK_ActionReturn:
        return "ActionReturn";
    case PSK_ReturnAssignment:
        // The diagram's readers know the label by this spelling.
        return "ReturnAssignement";
    case PSK_Receive:
        return "Receive";
    case PSK_Enqueue:
        return "Enqueue";
    case PSK_Dequeue:
        return "Dequeue";
    case PSK_ThreadEnter:
        return "ThreadEnter";
    case PSK_ThreadExit:
        return "ThreadExit";
    case PSK_Block:
        return "Block";
    case PSK_Release:
        return "Release";
    case PSK_Initialize:
        return "Initialize";
    case PSK_Error:
        return "Error";
    }
    return {};
}

std::string ProgramStep::to_net_string() const {
    if (hasPortEvent()) {
        return getPortEvent().str();
    }
    if (kind == PSK_OnEventReturn || kind == PSK_ActionReturn) {
        return getPortReturn().str();
    }
    auto const* port = instance().port;
    return (port == nullptr ? "" : port->getName() + ".") + getObservableEventName();
}

bool ProgramStep::operator<=(ProgramStep const& b) const {
    if (this == &b) {
        return true;
    }
    if (kind != b.kind || value.has_value() != b.value.has_value()) {
        return false;
    }
    if (value.has_value() && value->get() != b.value->get()) {
        return false;
    }
    if (!SameObject(statement, b.statement) || !SameObject(eventInstance, b.eventInstance) ||
        !SameObject(functionCall, b.functionCall) || hasPortEvent() != b.hasPortEvent()) {
        return false;
    }
    if (hasPortEvent()) {
        auto const mine = getPortEvent();
        auto const theirs = b.getPortEvent();
        if (mine.port != theirs.port || mine.event != theirs.event) {
            return false;
        }
    }
    return *stateVector <= *b.stateVector;
}
