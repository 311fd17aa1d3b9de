// What starts an activation, and the steps that mark a thread entering and
// leaving the model.
#include "interpreter/ModelState.h"

#include "metamodel/InternalDeclaration.h"
#include "metamodel/TreePredicates.h"

#include <stdexcept>

namespace {

// A thread step of the model itself, rather than of an event.
bool IsModelThread(kel::PortEvent const& event) {
    return event.port == nullptr && (event.event == nullptr || kel::IsBuiltin(*event.event));
}

} // namespace

void ModelState::namedEventConsumed() {
    if (isEventTraceEmpty()) {
        throw std::runtime_error("Unable to consume events beyond end of namedEventTrace");
    }
    ++namedEventIndex;
}

void ModelState::singleStepActivate(kel::PortEvent&& event) {
    if (isActive) {
        throw std::logic_error("Activation not possible when not idle");
    }
    isActive = true;
    isAutoActive = event.port != nullptr && event.port->asInternalDeclaration() != nullptr;
    activationEvent = std::move(event);
    traceActivate(activationEvent);
    if (isComponent() &&
        (activationEvent.port == nullptr || activationEvent.port->getDirection() == kel::idirProvided)) {
        claimProvidedPort(activationEvent.port);
    }
}

void ModelState::traceActivate(kel::PortEvent const& event) {
    trace(IsModelThread(event)
              ? ProgramStep::ThreadEnter(*modelInstance->model, stateVector, activationEvent)
              : ProgramStep::ThreadEnter(event, stateVector, activationEvent));
}

void ModelState::traceThreadExit(kel::PortEvent const& event) {
    trace(IsModelThread(event)
              ? ProgramStep::ThreadExit(*modelInstance->model, stateVector, activationEvent)
              : ProgramStep::ThreadExit(event, stateVector, activationEvent));
}

void ModelState::claimProvidedPort(kel::PortDeclaration const* port) {
    if (claimedProvidedPort != nullptr && port != nullptr && claimedProvidedPort != port) {
        programError("Out-events on provides port " + port->getName() + " not allowed." +
                     " Only out-events on provides port " + claimedProvidedPort->getName() +
                     " allowed in current call context.");
        return;
    }
    claimedProvidedPort = port;
}
