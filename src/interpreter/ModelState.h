// One node of the interpreter's state graph: what a run of a model has
// reached after consuming part of a named event trace. Where the model allows
// more than one way on, the state is copied once per way into
// `continuations` and is itself spent; a state never backtracks.
#pragma once

#include "interpreter/ModelInstance.h"
#include "interpreter/SharedTrace.h"
#include "interpreter/Program.h"
#include "interpreter/ProgramTrace.h"
#include "interpreter/RunMemory.h"
#include "interpreter/StateVector.h"

#include "metamodel/ActionExpression.h"
#include "metamodel/ActionStatement.h"
#include "metamodel/AssignmentStatement.h"
#include "metamodel/BlockingStatement.h"
#include "metamodel/CompoundStatement.h"
#include "metamodel/ConstPortDeclarationVec.h"
#include "metamodel/EventInstance.h"
#include "metamodel/FunctionCallExpression.h"
#include "metamodel/FunctionCallStatement.h"
#include "metamodel/Guard.h"
#include "metamodel/GuardedStatement.h"
#include "metamodel/IfStatement.h"
#include "metamodel/OnEventStatement.h"
#include "metamodel/PortEvent.h"
#include "metamodel/ReplyStatement.h"
#include "metamodel/ReturnStatement.h"
#include "metamodel/VariableDeclarationStatement.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class ModelState;
using ModelStatePtr = std::unique_ptr<ModelState>;
using ModelStates = std::vector<ModelStatePtr>;

class ModelState {
public:
    // The first state of a run.
    ModelState(ModelInstancePtr const& instance, std::vector<std::string> const& namedEventTrace);
    // A copy with an id of its own and no continuations; history shared.
    ModelState(ModelState const& source);
    // A copy activated by `event`.
    ModelState(ModelState const& source, kel::PortEvent&& event);
    // A copy that runs `statement` next.
    ModelState(ModelState const& source, kel::BehaviourStatement const& statement);
    // A copy whose trace is longer by `name`; the source's trace is unchanged.
    ModelState(ModelState const& source, std::string const& name);
    ModelState& operator=(ModelState const&) = delete;

    // A search makes and drops a state at nearly every fork: they come from
    // the run's pool.
    static void* operator new(std::size_t size) { return RunMemory().allocate(size); }
    static void operator delete(void* state, std::size_t size) {
        RunMemory().deallocate(state, size);
    }

    // Queries.
    std::string GetIdStr() const;
    std::string Print() const;
    bool IsProgramError() const { return isProgramError; }
    bool IsIdle() const { return !isActive; }
    bool IsQueued() const;
    bool IsArmed() const;
    bool IsAwaitingActionReturn() const;
    bool IsActing() const;
    bool IsAutoActive() const { return isAutoActive; }
    bool IsIllegal() const;
    bool isEventTraceEmpty() const;
    bool isEventTraceConsumed() const;
    // Whether the state may not step on: stopped, or the next step would show
    // something the trace does not hold.
    bool isProgramExecutionStopped() const;
    bool isNextProgramStepObservable() const;
    bool IsSolution() const;
    bool IsPartialSolution() const;
    kel::PortDeclaration const* GetActionPort() const;
    kel::PortDeclaration const* GetActivationPort() const;
    kel::PortDeclaration const* GetQueuePort() const;
    // The ports on which an event may come next.
    kel::ConstPortDeclarationVec GetOpenPorts() const;
    // The texts of every event that could come next, duplicates included.
    std::vector<std::string> EnabledEventNames() const;
    // Moves the continuations out.
    ModelStates GetContinuations();
    bool isPassable(kel::Guard const& guard) const;
    // The head of the named trace; "" when it has run out.
    std::string const& head() const;

    // Adds a step to the history; an error on top of an error replaces it.
    void trace(ProgramStepPtr step);
    // The state vector as a step made now records it: the snapshot of the
    // step before where nothing changed since, so that the two share it.
    ProgramStep::Snapshot snapshot();

    // Stepping.
    void runToNextBranchPoint();
    void singleStep();
    void returnFromCurrentScope();
    void stepInto(kel::BehaviourStatement const& statement);
    void stepIntoImperativeCompound(kel::CompoundStatement const& compound);
    void stepIntoDeclarativeCompound(kel::CompoundStatement const& compound);
    void stepIntoFunctionExpression(kel::FunctionCallExpression const& call);
    void singleStepGuardedStatement(kel::GuardedStatement const& statement);
    void singleStepCompoundStatement(kel::CompoundStatement const& statement);
    void singleStepOnEventStatement(kel::OnEventStatement const& statement);
    void singleStepAssignmentStatement(kel::AssignmentStatement const& statement);
    void singleStepFunctionCallStatement(kel::FunctionCallStatement const& statement);
    void singleStepReturnStatement(kel::ReturnStatement const& statement);
    void singleStepVariableDeclarationStatement(kel::VariableDeclarationStatement const& statement);
    void singleStepIfStatement(kel::IfStatement const& statement);
    void singleStepBlockingStatement(kel::BlockingStatement const& statement);

    // Actions, replies and blocking.
    void singleStepActionStatement(kel::ActionStatement const& statement);
    void executeSynchronousActionCall(kel::ActionStatement const& statement);
    void executeSynchronousActionReturn(kel::ActionStatement const& statement);
    void executeActionExpressionCall(kel::ActionExpression const& expression);
    void executeActionExpressionReturn(kel::ActionExpression const& expression);
    void singleStepReplyStatement(kel::ReplyStatement const& statement);
    void setReply();
    void setReply(kel::Expression const& expression);
    void setReply(kel::PortDeclaration const& port);
    void setReply(kel::PortDeclaration const& port, kel::Expression const& expression);
    void block(kel::EventInstance const& eventInstance);
    void release(kel::PortDeclaration const& port);
    std::vector<kel::EventInstance const*> getBlockedEvents_() const;
    kel::EventInstance const& getBlockedEvent_(kel::PortDeclaration const& port) const;
    std::vector<kel::PortEvent> getBlockedEvents() const;
    kel::PortEvent getBlockedEvent(kel::PortDeclaration const& port) const;
    bool isBlocked(kel::PortDeclaration const& port) const;
    void singleStepBlockedThreadExit();
    void returnToInitialStatement();

    // Activation and the queue.
    void singleStepActivate(kel::PortEvent&& event);
    void singleStepInterfaceProgramActivation();
    void singleStepComponentProgramActivation();
    void claimProvidedPort(kel::PortDeclaration const* port);
    void traceActivate(kel::PortEvent const& event);
    void traceThreadExit(kel::PortEvent const& event);
    void namedEventConsumed();
    void CheckLivelock();
    void tauLoop();
    void illegal();
    void PromoteToError();
    void deadend(std::string message);
    void programError(std::string const& message);

    // Process-wide: ids are for reading logs only.
    static std::int32_t next_oid;

    std::int32_t oid;
    std::int32_t parentOid;
    ModelInstancePtr modelInstance;
    ProgramTracePtr programTrace;
    StateVector stateVector;
    bool isActive = false;
    bool isAutoActive = false;
    kel::PortEvent activationEvent;
    kel::EventInstance const* currentCallContext = nullptr;
    kel::EventInstance const* activeActionEvent = nullptr;
    kel::PortDeclaration const* claimedProvidedPort = nullptr;
    bool isBlocking = false;
    // Ordered by id, the order in which the source made them, so that which
    // of two calls blocked on one port goes first never depends on addresses.
    std::vector<kel::EventInstance const*> blockedEvents;
    // Replied blocked calls, oldest first; a null value for a void reply.
    std::vector<std::pair<kel::EventInstance const*, std::shared_ptr<StateVariableValue const>>>
        pendingReturns;
    StateVariableValuePtr replyValue;
    Program program;
    bool isStopped = false;
    bool isProgramError = false;
    std::string message;
    ModelStates continuations;
    SharedTrace namedEventTrace;
    std::size_t namedEventIndex = 0;
    std::vector<kel::PortDeclaration const*> armedPorts;
    // False in a search whose histories nobody reads: each state then keeps
    // only what the hidden-loop check reads, the steps back to its last
    // synchronization, and a long run's history need not fit in memory twice.
    bool keepsWholeHistory = true;
    ProgramStep::Snapshot lastSnapshot;

private:
    bool isComponent() const;
    bool isInterface() const;
    // A Statement step of `statement` with this state's snapshot.
    void traceStatement(kel::BehaviourStatement const& statement);
    // While the model awaits the return of `called`, an event that its port
    // sends at the head goes into the queue; whether it did. Throws for a
    // call without port, which can have no return.
    bool enqueueWhileCalling(kel::EventInstance const& called);
    // The oldest armed port's first input event goes into the queue.
    void fireArmedPort();
};
