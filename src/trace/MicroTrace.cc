#include "trace/MicroTrace.h"

#include "trace/Zip.h"

#include "interpreter/KelSemantics.h"

#include "metamodel/ComponentDeclaration.h"
#include "metamodel/InternalDeclaration.h"
#include "metamodel/TreePredicates.h"

#include <stdexcept>

MicroTrace::MicroTrace(ModelState const& state)
    : steps(createUnconstrainedMicroTrace(state)), model(state.modelInstance->model),
      m_error(state.isProgramError ? state.message : std::string()) {}

MicroTrace::MicroTrace(ModelState const& state, PortStates const& portStates)
    : model(state.modelInstance->model),
      m_error(state.isProgramError ? state.message : std::string()) {
    // Zipping sets the violation fields, so it runs once all are in place.
    steps = zip(state, portStates);
    if (violatingIndex) {
        violatingStep = &steps[*violatingIndex];
    }
}

namespace {

MicroSteps HistoryOf(ModelState const& state) {
    MicroSteps steps;
    for (auto& step : state.programTrace->ToVector()) {
        steps.emplace_back(std::move(step));
    }
    return steps;
}

} // namespace

MicroSteps MicroTrace::createUnconstrainedMicroTrace(ModelState const& state) {
    MicroSteps steps;
    for (auto& step : state.programTrace->ToVector()) {
        bool const isError = step->kind == ProgramStep::PSK_Error;
        steps.emplace_back(std::move(step));
        if (isError) {
            break;
        }
    }
    return steps;
}

std::string MicroTrace::getErrorMsg() const {
    if (isProtocolViolation) {
        return getProtocolViolationErrorMsg();
    }
    if (!m_error.empty()) {
        return m_error;
    }
    if (!steps.empty() && steps.back()->kind == ProgramStep::PSK_Error) {
        return steps.back()->errorMessage();
    }
    return "failed";
}

MicroStep const* MicroTrace::MainModelLastStep() const {
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
        if ((*step)->stateVector->modelInstance->port == nullptr) {
            return &*step;
        }
    }
    return nullptr;
}

bool is_silent_transition(MicroSteps::const_iterator first, MicroSteps::const_iterator last) {
    if (first == last) {
        return false;
    }
    for (; first != last; ++first) {
        auto const& step = **first;
        if (step.kind == ProgramStep::PSK_ThreadExit) {
            return true;
        }
        if (step.isSynchronizationStep() ||
            (step.eventInstance != nullptr && kel::IsIllegal(*step.eventInstance))) {
            return false;
        }
    }
    return true;
}

namespace {

bool IsInternal(kel::PortEvent const& event) {
    return event.GetPort().asInternalDeclaration() != nullptr;
}

} // namespace

bool is_match_required(ProgramStep const& step) {
    switch (step.kind) {
    case ProgramStep::PSK_OnEvent: {
        auto const event = step.getPortEvent();
        return event.event != nullptr && !kel::IsBuiltin(*event.event);
    }
    case ProgramStep::PSK_Statement:
        return step.statement != nullptr && KelSemantics::IsEventCallAction(*step.statement) &&
               !IsInternal(step.getPortEvent());
    case ProgramStep::PSK_Enqueue:
        return !IsInternal(step.getPortEvent());
    case ProgramStep::PSK_Receive:
    case ProgramStep::PSK_OnEventReturn:
    case ProgramStep::PSK_ActionReturn:
    case ProgramStep::PSK_Dequeue:
        return true;
    default:
        return false;
    }
}

MicroSteps MicroTrace::zip(ModelState const& state, PortStates const& portStates) {
    if (auto const* component = state.modelInstance->model->asComponentDeclaration()) {
        for (auto const* port : component->getPorts()) {
            if (!portStates.contains(port)) {
                throw std::runtime_error("MicroTrace: port microtrace missing");
            }
        }
    }
    Histories histories;
    for (auto const& [port, portState] : portStates) {
        histories.emplace(port, HistoryOf(*portState));
    }
    histories.emplace(nullptr, HistoryOf(state));
    return compliant(zipHistories(histories));
}
