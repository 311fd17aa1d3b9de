// What starts an activation, and the steps that mark a thread entering and
// leaving the model.
#include "interpreter/ModelState.h"

#include "metamodel/EventSets.h"
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
              ? ProgramStep::ThreadEnter(*modelInstance->model, snapshot(), activationEvent)
              : ProgramStep::ThreadEnter(event, snapshot(), activationEvent));
}

void ModelState::traceThreadExit(kel::PortEvent const& event) {
    trace(IsModelThread(event)
              ? ProgramStep::ThreadExit(*modelInstance->model, snapshot(), activationEvent)
              : ProgramStep::ThreadExit(event, snapshot(), activationEvent));
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

void ModelState::singleStepInterfaceProgramActivation() {
    if (!isInterface()) {
        throw std::logic_error("Not an interface model");
    }
    auto ev = modelInstance->getPortEvent(head());
    if (ev.IsCall()) {
        continuations.push_back(std::make_unique<ModelState>(*this, kel::PortEvent()));
        continuations.push_back(std::make_unique<ModelState>(*this, std::move(ev)));
        return;
    }
    if (!stateVector.queue.empty() && stateVector.getQueueFront() == head()) {
        // A delayed out-event may show now, or the model may do something else first.
        continuations.push_back(std::make_unique<ModelState>(*this, kel::PortEvent()));
        traceActivate(kel::PortEvent());
        auto const delayed = stateVector.queue.front();
        stateVector.queue.pop_front();
        if (modelInstance->isOutputEvent(delayed)) {
            trace(ProgramStep::Receive(modelInstance->getPortEvent(delayed), snapshot(),
                                       activationEvent));
        }
        namedEventConsumed();
        traceThreadExit(kel::PortEvent());
        continuations.push_back(std::make_unique<ModelState>(*this));
        return;
    }
    singleStepActivate(kel::PortEvent());
}

void ModelState::singleStepComponentProgramActivation() {
    if (!isComponent()) {
        throw std::logic_error("Not a component model");
    }
    if (isActive) {
        throw std::logic_error("Precondition not met");
    }
    auto ev = modelInstance->getPortEvent(head());
    if (stateVector.queue.empty() && !armedPorts.empty()) {
        if (ev.IsInput() && ev.IsCall() && !isAutoActive) {
            // A call and an outstanding request compete: the call first.
            continuations.push_back(std::make_unique<ModelState>(*this, std::move(ev)));
            fireArmedPort();
            continuations.push_back(
                std::make_unique<ModelState>(*this, kel::PortEvent(GetQueuePort(), nullptr)));
        } else {
            fireArmedPort();
        }
        return;
    }
    if (stateVector.queue.empty()) {
        if (ev.event == nullptr || kel::IsBuiltin(*ev.event) || !ev.IsInput()) {
            deadend("Component activation by event " + head() + " not possible.");
        } else if (ev.IsCall()) {
            singleStepActivate(std::move(ev));
        } else {
            stateVector.queue.push_back(head());
            trace(ProgramStep::Enqueue(ev, snapshot(), activationEvent));
            namedEventConsumed();
        }
        return;
    }
    auto const* queuePort = GetQueuePort();
    bool const headOnQueuePort = queuePort != nullptr && queuePort == ev.port;
    bool const headHasOwnEvent = ev.event != nullptr && !kel::IsBuiltin(*ev.event);
    if (headOnQueuePort && headHasOwnEvent && ev.IsInput()) {
        stateVector.queue.push_back(head());
        trace(ProgramStep::Enqueue(ev, snapshot(), activationEvent));
        namedEventConsumed();
        return;
    }
    singleStepActivate(kel::PortEvent(queuePort, nullptr));
    if (headOnQueuePort && !headHasOwnEvent) {
        // The head is the queue-flush marker of the port: it asked for this.
        namedEventConsumed();
    }
}

void ModelState::fireArmedPort() {
    auto const* port = armedPorts.front();
    auto const event = kel::InputEvents(*port).front();
    stateVector.queue.push_back(event.str());
    trace(ProgramStep::Enqueue(event, snapshot(), activationEvent));
    armedPorts.erase(armedPorts.begin());
}
