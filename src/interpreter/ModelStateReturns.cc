// The end of an activation: the return of the accepted call, the returns of
// released calls, or the blocking of a call that has no reply yet.
#include "interpreter/ModelState.h"

#include "metamodel/EventDeclaration.h"
#include "metamodel/TreePredicates.h"

#include <stdexcept>

namespace {

bool IsValued(kel::PortEvent const& event) {
    return event.event != nullptr && !kel::IsBuiltin(*event.event) && event.event->hasReturnType();
}

// Whether `name` is the trace text of the return of `event` with `value`.
bool isMatchingEventReturn(kel::PortEvent const& event, StateVariableValue const* value,
                           std::string const& name) {
    if (IsValued(event) && value == nullptr) {
        return false;
    }
    auto const prefix = event.port == nullptr ? std::string() : event.port->getName() + ".";
    return name == prefix + (IsValued(event) ? value->netName() : "return");
}

bool HasOwnEvent(kel::PortEvent const& event) {
    return event.event != nullptr && !kel::IsBuiltin(*event.event);
}

} // namespace

void ModelState::singleStepBlockedThreadExit() {
    auto const [instance, value] = pendingReturns.front();
    kel::PortEvent const event(*instance);
    if (!isMatchingEventReturn(event, value.get(), head())) {
        deadend("Thread release statement does not match remaining event trace head (" + head() +
                ")");
        return;
    }
    trace(ProgramStep::Release(event, snapshot(), activationEvent));
    if (IsValued(event) && value != nullptr) {
        trace(ProgramStep::OnEventValuedReturn(*instance, *value, snapshot(), activationEvent));
    } else {
        trace(ProgramStep::OnEventVoidReturn(*instance, snapshot(), activationEvent));
    }
    namedEventConsumed();
    auto const* activationPort = activationEvent.port;
    if (activationPort == nullptr || activationPort->getDirection() != kel::idirProvided) {
        traceThreadExit(event);
    } else {
        programError("Provides port " + activationPort->getName() +
                     " is not allowed to unblock port " + event.port->getName());
    }
    pendingReturns.erase(pendingReturns.begin());
}

void ModelState::returnToInitialStatement() {
    if (!isActive) {
        throw std::runtime_error("Unable to return when not in call");
    }
    auto const event = activationEvent;
    if (HasOwnEvent(event) && currentCallContext == nullptr) {
        programError(isComponent() ? event.str() + " (implicitly) illegal"
                                   : modelInstance->getName() + " is incomplete: '" +
                                         event.str() + "' not handled");
        return;
    }
    if (isComponent() && !stateVector.queue.empty()) {
        if (IsValued(event) && replyValue == nullptr && !isBlocking) {
            programError("Completeness: " + event.str() + " reply value not set");
            return;
        }
        program.MainProgramReturn();
        return;
    }
    if (!pendingReturns.empty()) {
        singleStepBlockedThreadExit();
        return;
    }
    bool const matches =
        !isEventTraceEmpty() && isMatchingEventReturn(event, replyValue.get(), head());
    bool const ready = event.IsVoid() ? !isBlocking : replyValue != nullptr;
    if (HasOwnEvent(event) && !(matches && ready)) {
        if (event.IsCall() && !isBlocking) {
            deadend(event.str() + " return does not match remaining event trace head (" + head() +
                    ")");
        } else {
            block(*currentCallContext);
            program.MainProgramReturn();
        }
        return;
    }
    if (event.IsCall()) {
        if (!event.IsVoid() && replyValue != nullptr) {
            trace(ProgramStep::OnEventValuedReturn(*currentCallContext, *replyValue, snapshot(),
                                                   activationEvent));
        } else {
            trace(ProgramStep::OnEventVoidReturn(*currentCallContext, snapshot(),
                                                 activationEvent));
        }
        namedEventConsumed();
    }
    traceThreadExit(event);
    isActive = false;
    isAutoActive = isAutoActive && !armedPorts.empty();
    activationEvent = {};
    currentCallContext = nullptr;
    replyValue.reset();
    claimedProvidedPort = nullptr;
    program.MainProgramReturn();
}
