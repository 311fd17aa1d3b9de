// How states are made, how they record their history and how they stop.
#include "interpreter/ModelState.h"

#include "interpreter/RunMemory.h"

#include "metamodel/Behaviour.h"
#include "metamodel/ConstVariableDeclarationVec.h"
#include "metamodel/TreePredicates.h"

#include <stdexcept>

std::int32_t ModelState::next_oid = 0;

namespace {

// Ids wrap around instead of overflowing: a search through more than 2^31
// states is long, not wrong, and an id only labels a state in the banners.
std::int32_t TakeOid() {
    auto const oid = ModelState::next_oid;
    ModelState::next_oid = static_cast<std::int32_t>(static_cast<std::uint32_t>(oid) + 1u);
    return oid;
}

} // namespace

ModelState::ModelState(ModelInstancePtr const& instance,
                       std::vector<std::string> const& namedEventTrace)
    : oid(TakeOid()), parentOid(oid), modelInstance(instance),
      programTrace(std::make_shared<ProgramTrace>()), stateVector(instance),
      program(*instance->model), namedEventTrace(namedEventTrace) {
    auto const& model = *modelInstance->model;
    auto const* behaviour = model.tryGetBehaviour();
    if (behaviour == nullptr) {
        programError("model has no behaviour: " + model.getName());
        return;
    }
    try {
        for (auto const* variable : behaviour->getVariablesView()) {
            if (!kel::IsStateVariable(*variable)) {
                continue;
            }
            auto const* initial = variable->tryGetInitialValue();
            auto const value = initial == nullptr ? nullptr : stateVector.EvaluateExpression(*initial);
            if (value == nullptr) {
                stateVector.DeclareStateVariable(*variable);
            } else {
                stateVector.DeclareStateVariable(*variable, *value);
            }
        }
    } catch (std::out_of_range const& error) {
        trace(ProgramStep::Initialize(snapshot(), activationEvent));
        programError(std::string("Global variable declaration failed. ") + error.what());
        return;
    }
    trace(ProgramStep::Initialize(snapshot(), activationEvent));
}

ModelState::ModelState(ModelState const& source)
    : oid(TakeOid()), parentOid(source.oid), modelInstance(source.modelInstance),
      programTrace(source.programTrace), stateVector(source.stateVector),
      isActive(source.isActive), isAutoActive(source.isAutoActive),
      activationEvent(source.activationEvent), currentCallContext(source.currentCallContext),
      activeActionEvent(source.activeActionEvent),
      claimedProvidedPort(source.claimedProvidedPort), isBlocking(source.isBlocking),
      blockedEvents(source.blockedEvents), pendingReturns(source.pendingReturns),
      replyValue(source.replyValue ? source.replyValue->clone() : nullptr),
      program(source.program), isStopped(source.isStopped),
      isProgramError(source.isProgramError), message(source.message),
      namedEventTrace(source.namedEventTrace), namedEventIndex(source.namedEventIndex),
      armedPorts(source.armedPorts), keepsWholeHistory(source.keepsWholeHistory),
      lastSnapshot(source.lastSnapshot) {}

ModelState::ModelState(ModelState const& source, kel::PortEvent&& event) : ModelState(source) {
    singleStepActivate(std::move(event));
}

ModelState::ModelState(ModelState const& source, kel::BehaviourStatement const& statement)
    : ModelState(source) {
    program.PushStatement(statement);
}

ModelState::ModelState(ModelState const& source, std::string const& name) : ModelState(source) {
    namedEventTrace.push_back(name);
}

void ModelState::trace(ProgramStepPtr step) {
    auto const& newest = programTrace->step;
    if (step->kind == ProgramStep::PSK_Error && newest &&
        newest->kind == ProgramStep::PSK_Error) {
        programTrace->step = std::move(step);
        return;
    }
    if (!keepsWholeHistory && step->isSynchronizationStep()) {
        programTrace = MakeRunShared<ProgramTrace>(programTrace->size(), std::move(step));
        return;
    }
    programTrace = MakeRunShared<ProgramTrace>(std::move(programTrace), std::move(step));
}

ProgramStep::Snapshot ModelState::snapshot() {
    if (lastSnapshot == nullptr || !stateVector.isUnchangedSince(*lastSnapshot)) {
        lastSnapshot = MakeRunShared<StateVector const>(stateVector);
    }
    return lastSnapshot;
}

void ModelState::traceStatement(kel::BehaviourStatement const& statement) {
    trace(ProgramStep::Statement(statement, snapshot(), activationEvent));
}

void ModelState::deadend(std::string text) {
    message = std::move(text);
    isStopped = true;
}

void ModelState::programError(std::string const& text) {
    isStopped = true;
    isProgramError = true;
    message = text;
    trace(ProgramStep::Error(message, snapshot(), activationEvent));
}
