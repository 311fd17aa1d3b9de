// One thing that happened in a run, with a snapshot of the state vector at
// that moment.
#pragma once

#include "interpreter/StateVector.h"
#include "interpreter/StateVariableValue.h"

#include "metamodel/BehaviourStatement.h"
#include "metamodel/EventDeclaration.h"
#include "metamodel/EventInstance.h"
#include "metamodel/FunctionCallExpression.h"
#include "metamodel/Location.h"
#include "metamodel/ModelDeclaration.h"
#include "metamodel/PortDeclaration.h"
#include "metamodel/PortEvent.h"
#include "metamodel/PortReturn.h"

#include <memory>
#include <optional>
#include <string>

class ProgramStep;
using ProgramStepPtr = std::shared_ptr<ProgramStep>;

class ProgramStep {
public:
    enum ProgramStepKind {
        PSK_Statement,
        PSK_FunctionCall,
        PSK_OnEvent,
        PSK_OnEventReturn,
        PSK_ActionReturn,
        PSK_ReturnAssignment,
        PSK_Receive,
        PSK_Enqueue,
        PSK_Dequeue,
        PSK_ThreadEnter,
        PSK_ThreadExit,
        PSK_Block,
        PSK_Release,
        PSK_Initialize,
        PSK_Error,
    };

    enum SynchronizationType { Call, Return, Notification, None };

    // The state vector as the step saw it, immutable, shared by consecutive
    // steps that saw it unchanged.
    using Snapshot = std::shared_ptr<StateVector const>;
    using SV = Snapshot const&;
    using AE = kel::PortEvent const&;

    ProgramStep(ProgramStepKind kind, SV stateVector, AE activationEvent);

    static ProgramStepPtr Statement(kel::BehaviourStatement const& statement, SV sv, AE ae);
    static ProgramStepPtr FunctionCall(kel::FunctionCallExpression const& call, SV sv, AE ae);
    static ProgramStepPtr OnEvent(kel::EventInstance const& instance, SV sv, AE ae);
    static ProgramStepPtr OnEventVoidReturn(kel::EventInstance const& instance, SV sv, AE ae);
    static ProgramStepPtr OnEventValuedReturn(kel::EventInstance const& instance,
                                              StateVariableValue const& value, SV sv, AE ae);
    static ProgramStepPtr ActionVoidReturn(kel::EventInstance const& instance, SV sv, AE ae);
    static ProgramStepPtr ActionValuedReturn(kel::EventInstance const& instance,
                                             StateVariableValue const& value, SV sv, AE ae);
    static ProgramStepPtr ValuedReturnAssignment(kel::BehaviourStatement const& statement,
                                                 StateVariableValue const& value, SV sv, AE ae);
    static ProgramStepPtr Receive(kel::PortEvent const& event, SV sv, AE ae);
    static ProgramStepPtr Receive(kel::EventInstance const& instance, SV sv, AE ae);
    static ProgramStepPtr Enqueue(kel::PortEvent const& event, SV sv, AE ae);
    static ProgramStepPtr Dequeue(kel::PortEvent const& event, SV sv, AE ae);
    static ProgramStepPtr ThreadEnter(kel::ModelDeclaration const& model, SV sv, AE ae);
    static ProgramStepPtr ThreadEnter(kel::PortEvent const& event, SV sv, AE ae);
    static ProgramStepPtr ThreadExit(kel::ModelDeclaration const& model, SV sv, AE ae);
    static ProgramStepPtr ThreadExit(kel::PortEvent const& event, SV sv, AE ae);
    static ProgramStepPtr Block(kel::PortEvent const& event, SV sv, AE ae);
    static ProgramStepPtr Release(kel::PortEvent const& event, SV sv, AE ae);
    static ProgramStepPtr Initialize(SV sv, AE ae);
    static ProgramStepPtr Error(std::string const& message, SV sv, AE ae);

    bool hasPortEvent() const;
    // The event, with the run's port in place of the event's own where the
    // run is that of a port: such a run's model has no ports of its own.
    kel::PortEvent getPortEvent() const;
    kel::PortReturn getPortReturn() const;
    kel::EventInstance const* tryGetEventInstance() const;
    kel::EventDeclaration const* tryGetEvent() const;
    kel::PortDeclaration const* tryGetPort() const;
    // std::runtime_error "ProgramStep not associated with a port" without one.
    kel::PortDeclaration const& getPort() const;
    SynchronizationType getSynchronizationType() const;
    // Whether the diagram draws the step as an arrow between two lifelines.
    bool isSynchronizationStep() const;
    std::string getObservableEventName() const;
    // The label of the step in the diagram.
    std::string getStepKindName() const;
    // The step as an entry of a named event trace.
    std::string to_net_string() const;
    // Whether b repeats this step: hidden-loop detection compares with it.
    bool operator<=(ProgramStep const& b) const;
    bool isLessEqual(ProgramStep const& b) const { return *this <= b; }

    ProgramStepKind kind;
    Snapshot stateVector;
    kel::PortEvent activationEvent;
    kel::BehaviourStatement const* statement = nullptr;
    kel::EventInstance const* eventInstance = nullptr;
    kel::FunctionCallExpression const* functionCall = nullptr;
    // Engaged, with a value, for a valued return or return assignment.
    std::optional<StateVariableValuePtr> value;
    kel::PortEvent portEvent;
    kel::ModelDeclaration const* model = nullptr;
    kel::Location const* locationObject = nullptr;
    // The message of an error step; held apart, as few steps have one.
    std::string const& errorMessage() const;
    std::unique_ptr<std::string const> error;

private:
    bool isActionStatement() const;
    ModelInstance const& instance() const { return *stateVector->modelInstance; }
};
