// What the model does to its ports: send events, call them and take their
// returns, each matched against the head of the trace.
#include "interpreter/ModelState.h"

#include "interpreter/KelSemantics.h"
#include "interpreter/StatementQueries.h"

#include "metamodel/EventReference.h"
#include "metamodel/EventSets.h"
#include "metamodel/Kel.h"
#include "metamodel/PortReference.h"
#include "metamodel/TreePredicates.h"
#include "metamodel/VariableReference.h"

#include <algorithm>
#include <stdexcept>

void ModelState::singleStepActionStatement(kel::ActionStatement const& statement) {
    auto const& instance = statement.getExpression().getEvent();
    if (kel::IsIllegal(statement)) {
        traceStatement(statement);
        illegal();
        return;
    }
    if (KelSemantics::IsInternalAction(statement)) {
        kel::PortEvent const event(instance);
        if (event.event == nullptr) {
            throw std::runtime_error("PortEvent has no event");
        }
        if (event.event->getName() == "req") {
            armedPorts.push_back(event.port);
        } else if (event.event->getName() == "clr") {
            auto const armed = std::find(armedPorts.begin(), armedPorts.end(), event.port);
            if (armed != armedPorts.end()) {
                armedPorts.erase(armed);
            }
        }
        traceStatement(statement);
        program.PopNextStatement();
        return;
    }
    if (KelSemantics::IsEventCallAction(statement)) {
        if (activeActionEvent == nullptr) {
            executeSynchronousActionCall(statement);
        } else {
            executeSynchronousActionReturn(statement);
        }
        return;
    }
    isAutoActive = false;
    auto const* port = modelInstance->port;
    if (port != nullptr && port->getExternal() && port->getDirection() == kel::idirRequired) {
        // An external port delays what it sends; the trace shows it later.
        traceStatement(statement);
        stateVector.queue.push_back(kel::PortEvent(instance).str());
        program.PopNextStatement();
        return;
    }
    if (!isMatchingEventStatement(statement, head())) {
        deadend("Action statement on line: " + std::to_string(statement.getBeginLine()) +
                " does not represent remaining event trace head (" + head() + ")");
        return;
    }
    traceStatement(statement);
    trace(ProgramStep::Receive(instance, snapshot(), activationEvent));
    if (isComponent()) {
        claimProvidedPort(kel::PortEvent(instance).port);
    }
    namedEventConsumed();
    program.PopNextStatement();
}

void ModelState::executeSynchronousActionCall(kel::ActionStatement const& statement) {
    if (!isMatchingEventStatement(statement, head())) {
        deadend("Action statement on line: " + std::to_string(statement.getBeginLine()) +
                " does not represent remaining event trace head (" + head() + ")");
        return;
    }
    traceStatement(statement);
    namedEventConsumed();
    activeActionEvent = &statement.getExpression().getEvent();
}

bool ModelState::enqueueWhileCalling(kel::EventInstance const& called) {
    auto const* port = PortOf(called);
    if (port == nullptr) {
        throw std::runtime_error(
            "Well-formedness error: Out Event with non void return type is not allowed");
    }
    if (!kel::IsPortInputEvent(*port, head())) {
        return false;
    }
    stateVector.queue.push_back(head());
    trace(ProgramStep::Enqueue(kel::InputEvent(*port, head()), snapshot(), activationEvent));
    namedEventConsumed();
    return true;
}

void ModelState::executeSynchronousActionReturn(kel::ActionStatement const& statement) {
    auto const& instance = statement.getExpression().getEvent();
    if (enqueueWhileCalling(instance)) {
        return;
    }
    if (!kel::PortEvent(*activeActionEvent).IsValidReturn(head())) {
        deadend("No matching action return found in event trace.");
        return;
    }
    trace(ProgramStep::ActionVoidReturn(instance, snapshot(), activationEvent));
    namedEventConsumed();
    program.PopNextStatement();
    activeActionEvent = nullptr;
}

void ModelState::executeActionExpressionCall(kel::ActionExpression const& expression) {
    if (kel::PortEvent(expression.getEvent()).str() != head()) {
        deadend("Action expression does not match remaining event trace head (" + head() + ")");
        return;
    }
    traceStatement(NearestStatement(expression));
    namedEventConsumed();
    activeActionEvent = &expression.getEvent();
}

void ModelState::executeActionExpressionReturn(kel::ActionExpression const& expression) {
    auto const& instance = expression.getEvent();
    // An instance without port cannot return; it stops the run as the
    // statement form does rather than wait for ever.
    if (enqueueWhileCalling(instance)) {
        return;
    }
    kel::PortEvent const called(instance);
    StateVariableValuePtr value;
    for (auto const& reply : called.PortReturns()) {
        if (reply.str() == head()) {
            value = CreateStateVariableValue(reply);
            break;
        }
    }
    if (value == nullptr) {
        deadend("Action return not found in event trace.");
        return;
    }
    trace(ProgramStep::ActionValuedReturn(instance, *value, snapshot(), activationEvent));
    auto const& statement = NearestStatement(expression);
    if (auto const* variable = AssignedVariable(statement)) {
        try {
            stateVector.AssignStateVariable(*variable, *value);
        } catch (std::out_of_range const& error) {
            programError(std::string("Illegal value in assignment: ") + error.what());
        }
    }
    namedEventConsumed();
    trace(ProgramStep::ValuedReturnAssignment(statement, *value, snapshot(), activationEvent));
    program.PopNextStatement();
    activeActionEvent = nullptr;
}
