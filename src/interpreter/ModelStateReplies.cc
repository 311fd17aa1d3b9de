// Replies: to the call that activated the model, or to a call blocked on a port.
#include "interpreter/ModelState.h"

#include "metamodel/EventDeclaration.h"
#include "metamodel/Kel.h"
#include "metamodel/PortReference.h"
#include "metamodel/TreePredicates.h"
#include "metamodel/TypeReference.h"

namespace {

// Whether a reply with or without `expression` fits the return type of `event`.
bool Fits(StateVector const& vector, kel::ReplyStatement const& statement,
          kel::PortEvent const& event) {
    auto const* expression = statement.tryGetExpression();
    if (expression == nullptr) {
        return event.IsVoid();
    }
    if (event.IsVoid()) {
        return false;
    }
    auto const value = vector.EvaluateExpression(*expression);
    return value != nullptr &&
           value->isTypeMatch(event.event->getReturnType().tryGetDeclaration());
}

} // namespace

void ModelState::singleStepReplyStatement(kel::ReplyStatement const& statement) {
    auto const& event = activationEvent;
    auto const* portReference = statement.tryGetPort();
    auto const* port = portReference == nullptr ? nullptr : portReference->tryGetDeclaration();
    auto const* expression = statement.tryGetExpression();
    traceStatement(statement);
    program.PopNextStatement();

    bool const toCall = (portReference == nullptr && event.IsCall() &&
                         (expression != nullptr || isBlocking)) ||
                        (port != nullptr && port == event.port);
    bool const toBlocked = port != nullptr && isBlocked(*port);
    if (!toCall && !toBlocked) {
        if (portReference != nullptr) {
            programError("Reply not allowed: port '" + portReference->getName() + "' not blocked.");
        } else if (event.port != nullptr && event.port->getDirection() != kel::idirProvided) {
            programError("Reply not allowed on requires-port: '" + event.port->getName() + "'");
        } else if (isInterface() && (event.event == nullptr || kel::IsBuiltin(*event.event))) {
            programError("Reply not allowed for 'optional' or 'inevitable'");
        } else if (expression == nullptr && !isBlocking) {
            programError("Void reply not allowed in non-blocking action.");
        } else {
            programError("Reply not allowed.");
        }
        return;
    }

    bool const fitsCall = toCall && Fits(stateVector, statement, event);
    bool const fitsBlocked = toBlocked && Fits(stateVector, statement, getBlockedEvent(*port));
    if (!(fitsCall || fitsBlocked) || (fitsCall && toBlocked && !fitsBlocked)) {
        programError("Reply statement does not match event return type.");
        return;
    }
    // A reply to the call is stored as such even when only the blocked call's
    // type fits it: the check above has already let it through.
    if (toCall) {
        if (expression != nullptr) {
            setReply(*expression);
        } else {
            setReply();
        }
        isBlocking = false;
    }
    if (toBlocked) {
        if (expression != nullptr) {
            setReply(*port, *expression);
        } else {
            setReply(*port);
        }
    }
}

void ModelState::setReply() { replyValue.reset(); }

void ModelState::setReply(kel::Expression const& expression) {
    replyValue = stateVector.EvaluateExpression(expression);
}

void ModelState::setReply(kel::PortDeclaration const& port) {
    pendingReturns.emplace_back(&getBlockedEvent_(port), nullptr);
    release(port);
}

void ModelState::setReply(kel::PortDeclaration const& port, kel::Expression const& expression) {
    pendingReturns.emplace_back(&getBlockedEvent_(port),
                                stateVector.EvaluateExpression(expression));
    release(port);
}
