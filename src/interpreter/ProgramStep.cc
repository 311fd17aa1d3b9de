// The making of steps: one factory per kind of thing that can happen.
#include "interpreter/ProgramStep.h"

#include "interpreter/KelSemantics.h"

#include "metamodel/Behaviour.h"
#include "metamodel/EnumTypeDeclaration.h"
#include "metamodel/EventReference.h"
#include "metamodel/IntTypeDeclaration.h"
#include "metamodel/InterfaceReference.h"
#include "metamodel/PortReference.h"
#include "metamodel/TreePredicates.h"
#include "metamodel/TypeReference.h"

namespace {

using Step = ProgramStep;

kel::PortDeclaration const* PortOf(kel::EventInstance const& instance) {
    auto const* port = instance.tryGetPort();
    return port == nullptr ? nullptr : port->tryGetDeclaration();
}

// The reply of the instance's event; typed and valued when `value` is given.
kel::PortReturn ReturnOf(kel::EventInstance const& instance, StateVariableValue const* value) {
    kel::PortReturn result;
    result.port = PortOf(instance);
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

ProgramStepPtr Make(Step::ProgramStepKind kind, Step::SV sv, Step::AE ae) {
    return std::make_shared<ProgramStep>(kind, sv, ae);
}

ProgramStepPtr WithEvent(Step::ProgramStepKind kind, kel::PortEvent const& event, Step::SV sv,
                         Step::AE ae) {
    auto step = Make(kind, sv, ae);
    step->portEvent = event;
    return step;
}

ProgramStepPtr WithInstance(Step::ProgramStepKind kind, kel::EventInstance const& instance,
                            Step::SV sv, Step::AE ae) {
    auto step = Make(kind, sv, ae);
    step->eventInstance = &instance;
    step->locationObject = &instance;
    return step;
}

ProgramStepPtr WithReturn(Step::ProgramStepKind kind, kel::EventInstance const& instance,
                      StateVariableValue const* value, Step::SV sv, Step::AE ae) {
    auto step = WithInstance(kind, instance, sv, ae);
    step->portReturn = ReturnOf(instance, value);
    if (value != nullptr) {
        step->value = value->clone();
    }
    return step;
}

ProgramStepPtr WithModel(Step::ProgramStepKind kind, kel::ModelDeclaration const& model,
                         Step::SV sv, Step::AE ae) {
    auto step = Make(kind, sv, ae);
    step->model = &model;
    return step;
}

} // namespace

ProgramStep::ProgramStep(ProgramStepKind kind, SV stateVector, AE activationEvent)
    : kind(kind), stateVector(stateVector), activationEvent(activationEvent) {}

ProgramStepPtr ProgramStep::Statement(kel::BehaviourStatement const& statement, SV sv, AE ae) {
    auto step = Make(PSK_Statement, sv, ae);
    step->statement = &statement;
    step->locationObject = &statement;
    if (KelSemantics::IsAction(statement)) {
        step->eventInstance = kel::tryGetActionEventInstance(statement);
        step->portEvent = kel::PortEvent(*step->eventInstance);
    }
    return step;
}

ProgramStepPtr ProgramStep::FunctionCall(kel::FunctionCallExpression const& call, SV sv, AE ae) {
    auto step = Make(PSK_FunctionCall, sv, ae);
    step->functionCall = &call;
    step->locationObject = &call;
    return step;
}

ProgramStepPtr ProgramStep::OnEvent(kel::EventInstance const& instance, SV sv, AE ae) {
    auto step = WithInstance(PSK_OnEvent, instance, sv, ae);
    step->portEvent = kel::PortEvent(instance);
    return step;
}

ProgramStepPtr ProgramStep::OnEventVoidReturn(kel::EventInstance const& instance, SV sv, AE ae) {
    return WithReturn(PSK_OnEventReturn, instance, nullptr, sv, ae);
}

ProgramStepPtr ProgramStep::OnEventValuedReturn(kel::EventInstance const& instance,
                                                StateVariableValue const& value, SV sv, AE ae) {
    return WithReturn(PSK_OnEventReturn, instance, &value, sv, ae);
}

ProgramStepPtr ProgramStep::ActionVoidReturn(kel::EventInstance const& instance, SV sv, AE ae) {
    return WithReturn(PSK_ActionReturn, instance, nullptr, sv, ae);
}

ProgramStepPtr ProgramStep::ActionValuedReturn(kel::EventInstance const& instance,
                                               StateVariableValue const& value, SV sv, AE ae) {
    return WithReturn(PSK_ActionReturn, instance, &value, sv, ae);
}

ProgramStepPtr ProgramStep::ValuedReturnAssignment(kel::BehaviourStatement const& statement,
                                                   StateVariableValue const& value, SV sv,
                                                   AE ae) {
    auto step = Make(PSK_ReturnAssignment, sv, ae);
    step->statement = &statement;
    step->locationObject = &statement;
    step->value = value.clone();
    return step;
}

ProgramStepPtr ProgramStep::Receive(kel::PortEvent const& event, SV sv, AE ae) {
    return WithEvent(PSK_Receive, event, sv, ae);
}

ProgramStepPtr ProgramStep::Receive(kel::EventInstance const& instance, SV sv, AE ae) {
    auto step = WithEvent(PSK_Receive, kel::PortEvent(instance), sv, ae);
    step->locationObject = &instance;
    return step;
}

ProgramStepPtr ProgramStep::Enqueue(kel::PortEvent const& event, SV sv, AE ae) {
    auto step = WithEvent(PSK_Enqueue, event, sv, ae);
    step->locationObject = sv.modelInstance->model->tryGetBehaviour();
    return step;
}

ProgramStepPtr ProgramStep::Dequeue(kel::PortEvent const& event, SV sv, AE ae) {
    return WithEvent(PSK_Dequeue, event, sv, ae);
}

ProgramStepPtr ProgramStep::ThreadEnter(kel::ModelDeclaration const& model, SV sv, AE ae) {
    return WithModel(PSK_ThreadEnter, model, sv, ae);
}

ProgramStepPtr ProgramStep::ThreadEnter(kel::PortEvent const& event, SV sv, AE ae) {
    return WithEvent(PSK_ThreadEnter, event, sv, ae);
}

ProgramStepPtr ProgramStep::ThreadExit(kel::ModelDeclaration const& model, SV sv, AE ae) {
    return WithModel(PSK_ThreadExit, model, sv, ae);
}

ProgramStepPtr ProgramStep::ThreadExit(kel::PortEvent const& event, SV sv, AE ae) {
    return WithEvent(PSK_ThreadExit, event, sv, ae);
}

ProgramStepPtr ProgramStep::Block(kel::PortEvent const& event, SV sv, AE ae) {
    return WithEvent(PSK_Block, event, sv, ae);
}

ProgramStepPtr ProgramStep::Release(kel::PortEvent const& event, SV sv, AE ae) {
    return WithEvent(PSK_Release, event, sv, ae);
}

ProgramStepPtr ProgramStep::Initialize(SV sv, AE ae) {
    auto step = Make(PSK_Initialize, sv, ae);
    step->locationObject = sv.modelInstance->model;
    return step;
}

ProgramStepPtr ProgramStep::Error(std::string const& message, SV sv, AE ae) {
    auto step = Make(PSK_Error, sv, ae);
    step->errorMessage = message;
    return step;
}
