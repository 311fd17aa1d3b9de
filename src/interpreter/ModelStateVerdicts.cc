// How a way through the model that goes wrong is classified: a hidden loop,
// the illegal action, or the verdict on the best dead end of a search.
#include "interpreter/ModelState.h"

#include "metamodel/InternalDeclaration.h"
#include "metamodel/TreePredicates.h"

namespace {

// Taking a notification from outside is progress, as a synchronization is.
bool IsOutsideDequeue(ProgramStep const& step) {
    if (step.kind != ProgramStep::PSK_Dequeue) {
        return false;
    }
    auto const* port = step.getPortEvent().port;
    return port == nullptr || port->asInternalDeclaration() == nullptr;
}

} // namespace

void ModelState::CheckLivelock() {
    auto const* head = programTrace.get();
    if (head->parent == nullptr || head->size() < 2) {
        return;
    }
    auto const& newest = *head->step;
    if (newest.isSynchronizationStep() || IsOutsideDequeue(newest)) {
        return;
    }
    for (auto const* node = head->parent.get(); node != nullptr; node = node->parent.get()) {
        if (node->step == nullptr) {
            return;
        }
        auto const& step = *node->step;
        if (step.isSynchronizationStep() || IsOutsideDequeue(step)) {
            return;
        }
        if (step.activationEvent == newest.activationEvent && step <= newest) {
            tauLoop();
            return;
        }
    }
}

void ModelState::tauLoop() {
    isStopped = true;
    message = "hidden loop found in program execution";
    if (isComponent()) {
        programError("livelock in model " + modelInstance->getName());
    }
}

void ModelState::illegal() {
    auto const* port = modelInstance->port;
    if (port != nullptr && port->getDirection() == kel::idirProvided) {
        // The environment would have had to avoid this: this way does not fit.
        deadend("illegal");
    } else {
        programError("illegal");
    }
}

void ModelState::PromoteToError() {
    if (message == "illegal") {
        programError("illegal");
        return;
    }
    auto const* top = program.TopStatement();
    if (isActive && activeActionEvent == nullptr && top != nullptr && !kel::IsImperative(*top)) {
        // The model was waiting at an `on` statement or a guard.
        if (activationEvent.event != nullptr && !kel::IsBuiltin(*activationEvent.event)) {
            programError(activationEvent.str() + " (implicitly) illegal");
        } else {
            auto const pending = isComponent() && !stateVector.queue.empty()
                                     ? stateVector.getQueueFront()
                                     : std::string();
            programError(pending + " (implicitly) illegal");
        }
        return;
    }
    programError("Invalid event trace");
}
