// Every question that can be asked of a state.
#include "interpreter/ModelState.h"

#include "interpreter/StatementQueries.h"

#include "interpreter/KelSemantics.h"

#include "metamodel/ComponentDeclaration.h"
#include "metamodel/EventSets.h"
#include "metamodel/Kel.h"
#include "metamodel/PortReference.h"
#include "metamodel/TreePredicates.h"

#include <sstream>

namespace {

void AppendNames(std::vector<std::string>& names, kel::PortEventVec const& events) {
    for (auto const& event : events) {
        names.push_back(event.str());
    }
}

void AppendReturns(std::vector<std::string>& names, kel::PortEvent const& event) {
    for (auto const& reply : event.PortReturns()) {
        names.push_back(reply.str());
    }
}

char const* Text(bool value) { return value ? "true" : "false"; }

std::string NameOr0(kel::EventInstance const* instance) {
    return instance == nullptr ? "0" : instance->getName();
}

std::string const NoHead;

} // namespace

bool ModelState::isComponent() const {
    return modelInstance->model->asComponentDeclaration() != nullptr;
}

bool ModelState::isInterface() const {
    return modelInstance->model->asInterfaceDeclaration() != nullptr;
}

std::string const& ModelState::head() const {
    return isEventTraceEmpty() ? NoHead : namedEventTrace[namedEventIndex];
}

std::string ModelState::GetIdStr() const {
    return "(" + modelInstance->getName() + ":" + std::to_string(parentOid) + "-" +
           std::to_string(oid) + ")";
}

std::string ModelState::Print() const {
    std::ostringstream out;
    out << "ModelState  " << GetIdStr() << "\n";
    out << "IsProgramError = " << Text(IsProgramError()) << "\n";
    out << "isProgramExecutionStopped = " << Text(isProgramExecutionStopped()) << "\n";
    if (IsProgramError()) {
        out << "Message = " << message << "\n";
    }
    out << "IsIdle = " << Text(IsIdle()) << "\n";
    out << "IsQueued = " << Text(IsQueued()) << "\n";
    out << "IsArmed = " << Text(IsArmed()) << "\n";
    out << "IsAwaitingActionReturn = " << Text(IsAwaitingActionReturn()) << "\n";
    out << "IsActing = " << Text(IsActing()) << "\n";
    out << "IsAutoActive = " << Text(IsAutoActive()) << "\n";
    out << "variables = \n";
    for (auto const& [name, value] : stateVector.ToVarValPairVec()) {
        out << "(" << name << ", " << value << ")\n";
    }
    out << "isActive = " << Text(isActive) << "\n";
    out << "isAutoActive = " << Text(isAutoActive) << "\n";
    out << "activationEvent = " << activationEvent.str() << "\n";
    out << "currentCallContext = " << NameOr0(currentCallContext) << "\n";
    out << "activeActionEvent = " << NameOr0(activeActionEvent) << "\n";
    return out.str();
}

bool ModelState::IsQueued() const { return IsIdle() && !stateVector.queue.empty(); }

bool ModelState::IsArmed() const {
    return IsIdle() && stateVector.queue.empty() && !armedPorts.empty();
}

bool ModelState::IsAwaitingActionReturn() const {
    return isActive && activeActionEvent != nullptr;
}

bool ModelState::IsActing() const { return isActive && activeActionEvent == nullptr; }

bool ModelState::IsIllegal() const { return (isStopped || isProgramError) && message == "illegal"; }

bool ModelState::isEventTraceEmpty() const { return namedEventIndex >= namedEventTrace.size(); }

bool ModelState::isEventTraceConsumed() const {
    return isEventTraceEmpty() && stateVector.queue.empty();
}

bool ModelState::isProgramExecutionStopped() const {
    if (isStopped) {
        return true;
    }
    if (!isEventTraceEmpty()) {
        return false;
    }
    if (isActive) {
        return isNextProgramStepObservable();
    }
    if (stateVector.queue.empty()) {
        return true;
    }
    return !modelInstance->getPortEvent(stateVector.getQueueFront()).IsInput();
}

bool ModelState::isNextProgramStepObservable() const {
    if (program.IsCurrentScopeDepleted()) {
        auto const* scope = program.CurrentScope();
        if (scope == nullptr || !scope->IsMainProgram()) {
            return false;
        }
        if (isInterface()) {
            return activationEvent.event != nullptr && !kel::IsBuiltin(*activationEvent.event);
        }
        if (!stateVector.queue.empty()) {
            return false;
        }
        if (!pendingReturns.empty()) {
            return true;
        }
        if (activationEvent.IsCall() && !isBlocking) {
            return true;
        }
    }
    auto const* top = program.TopStatement();
    if (top == nullptr || !KelSemantics::IsAction(*top) || KelSemantics::IsInternalAction(*top)) {
        return false;
    }
    return !kel::IsIllegal(*top);
}

bool ModelState::IsSolution() const {
    return isProgramExecutionStopped() && continuations.empty() && !isStopped;
}

bool ModelState::IsPartialSolution() const { return !IsSolution() && !isStopped; }

kel::PortDeclaration const* ModelState::GetActionPort() const {
    return isActive && activeActionEvent != nullptr ? PortOf(*activeActionEvent) : nullptr;
}

kel::PortDeclaration const* ModelState::GetActivationPort() const {
    return isActive ? activationEvent.port : nullptr;
}

kel::PortDeclaration const* ModelState::GetQueuePort() const {
    if (stateVector.queue.empty()) {
        return nullptr;
    }
    return modelInstance->getPortEvent(stateVector.getQueueFront()).port;
}

kel::ConstPortDeclarationVec ModelState::GetOpenPorts() const {
    if (isActive && activeActionEvent != nullptr) {
        return {PortOf(*activeActionEvent)};
    }
    if (IsArmed()) {
        return modelInstance->getProvidesPorts();
    }
    kel::ConstPortDeclarationVec open;
    if (auto const* component = modelInstance->model->asComponentDeclaration()) {
        for (auto const* port : component->getPortsView()) {
            if (!isBlocked(*port) && port != activationEvent.port) {
                open.push_back(port);
            }
        }
    }
    return open;
}

std::vector<std::string> ModelState::EnabledEventNames() const {
    std::vector<std::string> names;
    auto const& model = *modelInstance->model;
    if (IsIdle()) {
        AppendNames(names, isInterface() ? kel::ObservableEvents(model) : kel::InputEvents(model));
        if (!stateVector.queue.empty() || armedPorts.empty()) {
            return names;
        }
    }
    if (isActive && activeActionEvent != nullptr) {
        kel::PortEvent const called(*activeActionEvent);
        AppendReturns(names, called);
        if (called.port != nullptr) {
            AppendNames(names, kel::InputEvents(*called.port));
        }
        return names;
    }
    AppendNames(names, kel::OutputEvents(model));
    AppendReturns(names, activationEvent);
    for (auto const& blocked : getBlockedEvents()) {
        AppendReturns(names, blocked);
    }
    return names;
}

ModelStates ModelState::GetContinuations() {
    ModelStates taken;
    taken.swap(continuations);
    return taken;
}

bool ModelState::isPassable(kel::Guard const& guard) const {
    if (auto const* expressionGuard = guard.asExpressionGuard()) {
        return stateVector.BoolExpressionValue(expressionGuard->getExpression());
    }
    return guard.asOtherwiseGuard() != nullptr;
}
