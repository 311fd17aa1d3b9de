// The pairing of port steps with component steps, and the verdict on the
// first pair that disagrees.
#include "trace/MicroTrace.h"

#include "metamodel/TreePredicates.h"

#include <optional>

namespace {

bool IsReturn(ProgramStep const& step) {
    return step.kind == ProgramStep::PSK_OnEventReturn ||
           step.kind == ProgramStep::PSK_ActionReturn;
}

// The interface does not count: a port names it already.
bool SameReturn(kel::PortReturn const& a, kel::PortReturn const& b) {
    return a.port == b.port && a.type == b.type && a.enumValue == b.enumValue &&
           a.boolValue == b.boolValue && a.intValue == b.intValue;
}

bool Agree(ProgramStep const& a, ProgramStep const& b) {
    if (IsReturn(a) && IsReturn(b)) {
        return SameReturn(a.getPortReturn(), b.getPortReturn());
    }
    if (IsReturn(a) || IsReturn(b)) {
        return false;
    }
    return a.getPortEvent() == b.getPortEvent();
}

bool IsIllegalOnProvided(ProgramStep const& step) {
    return step.eventInstance != nullptr && kel::IsIllegal(*step.eventInstance) &&
           step.stateVector->modelInstance->getRoleName() == "provided";
}

bool OfPort(ProgramStep const& step) { return step.stateVector->modelInstance->port != nullptr; }

} // namespace

MicroSteps MicroTrace::compliant(MicroSteps steps) {
    if (steps.empty() || steps.back()->kind == ProgramStep::PSK_Error) {
        return steps;
    }
    std::optional<std::size_t> first;
    std::size_t i = 0;
    for (; i < steps.size(); ++i) {
        if (!is_match_required(*steps[i])) {
            continue;
        }
        if (!first) {
            first = i;
            continue;
        }
        if (Agree(*steps[*first], *steps[i])) {
            first.reset();
            continue;
        }
        isProtocolViolation = true;
        if (!IsIllegalOnProvided(*steps[*first]) && !IsIllegalOnProvided(*steps[i])) {
            break;
        }
        // The provided side calls the event illegal: the violation lies with
        // the component, which accepted that event on the port.
        auto const blamed = OfPort(*steps[*first]) ? i : *first;
        violatingPort = steps[blamed]->tryGetPort();
        for (auto j = blamed; j > 0; --j) {
            auto const& candidate = *steps[j];
            if (!OfPort(candidate) && candidate.tryGetPort() == violatingPort &&
                candidate.kind == ProgramStep::PSK_OnEvent) {
                violatingIndex = j;
                steps.erase(steps.begin() + static_cast<long>(j) + 1, steps.end());
                return steps;
            }
        }
        steps.erase(steps.begin() + static_cast<long>(i) + 1, steps.end());
        return steps;
    }
    if (first) {
        // A plain mismatch, or a step left without partner at the end.
        isProtocolViolation = true;
        violatingPort = steps[*first]->tryGetPort();
        violatingIndex = *first;
        steps.erase(steps.begin() + static_cast<long>(*first) + 1, steps.end());
    }
    return steps;
}

std::string MicroTrace::getProtocolViolationErrorMsg() const {
    if (violatingStep == nullptr) {
        return {};
    }
    auto const& step = **violatingStep;
    if (OfPort(step)) {
        return step.to_net_string() + " not performed by component";
    }
    return step.to_net_string() + " not allowed by port " +
           (violatingPort == nullptr ? std::string() : violatingPort->getName());
}
