// The making of steps: one factory per kind of thing that can happen.
#include "interpreter/ProgramStep.h"

#include "interpreter/KelSemantics.h"
#include "interpreter/RunMemory.h"

#include "metamodel/Behaviour.h"
#include "metamodel/EventReference.h"
#include "metamodel/PortReference.h"
#include "metamodel/TreePredicates.h"

namespace {

using Step = ProgramStep;

ProgramStepPtr Make(Step::ProgramStepKind kind, Step::SV sv, Step::AE ae) {
    return MakeRunShared<ProgramStep>(kind, sv, ae);
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
    step->locationObject = sv->modelInstance->model->tryGetBehaviour();
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
    step->locationObject = sv->modelInstance->model;
    return step;
}

ProgramStepPtr ProgramStep::Error(std::string const& message, SV sv, AE ae) {
    auto step = Make(PSK_Error, sv, ae);
    step->error = std::make_unique<std::string const>(message);
    return step;
}
