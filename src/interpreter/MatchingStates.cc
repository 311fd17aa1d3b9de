#include "interpreter/MatchingStates.h"
#include "interpreter/SearchObserver.h"

#include "metamodel/ComponentDeclaration.h"
#include "metamodel/EventSets.h"

#include <algorithm>
#include <stdexcept>

namespace {

using Names = std::vector<std::string>;

void FileDeadEnd(ModelStatePtr state, ModelStates const& solutions, ModelStates& partials) {
    if (!solutions.empty()) {
        partials.clear();
        return;
    }
    if (!partials.empty()) {
        auto const best = partials.back()->namedEventIndex;
        if (state->namedEventIndex < best) {
            return;
        }
        if (state->namedEventIndex > best) {
            partials.clear();
        }
    }
    partials.push_back(std::move(state));
}

// Files every descendant of `state`, depth first in the order of the forks:
// solutions and errors in `solutions`, the dead ends that got furthest in
// `partials` while nothing else is found. The walk keeps its own stack, so
// that a long trace with a fork at every entry cannot exhaust the process's,
// and a state is let go as soon as it has forked. The installed observer
// hears how many states the walk explored and how far it got.
void CompleteMatchingStates(ModelStatePtr state, ModelStates& solutions, ModelStates& partials) {
    SearchTally tally;
    ModelStates pending;
    pending.push_back(std::move(state));
    while (!pending.empty()) {
        auto current = std::move(pending.back());
        pending.pop_back();
        current->runToNextBranchPoint();
        tally.Count(*current);
        if (current->IsSolution() || current->isProgramError) {
            solutions.push_back(std::move(current));
        } else if (!current->isStopped) {
            auto continuations = current->GetContinuations();
            current.reset();
            std::move(continuations.rbegin(), continuations.rend(), std::back_inserter(pending));
        } else {
            FileDeadEnd(std::move(current), solutions, partials);
        }
    }
    tally.Report();
}

// The search of MatchingStates; `wholeHistory` false for one whose states'
// histories nobody reads.
ModelStates Search(ModelInstancePtr const& instance, Names const& namedEventTrace,
                   bool wholeHistory) {
    ModelStates solutions;
    ModelStates partials;
    auto first = std::make_unique<ModelState>(instance, namedEventTrace);
    first->keepsWholeHistory = wholeHistory;
    CompleteMatchingStates(std::move(first), solutions, partials);
    if (solutions.empty() && !partials.empty()) {
        partials.front()->PromoteToError();
        solutions.push_back(std::move(partials.front()));
    }
    // Stable, so that among equals the order of discovery always stands.
    std::stable_sort(solutions.begin(), solutions.end(), [](auto const& a, auto const& b) {
        return a->namedEventIndex > b->namedEventIndex;
    });
    std::stable_partition(solutions.begin(), solutions.end(),
                          [](auto const& state) { return state->isProgramError; });
    if (solutions.empty()) {
        throw std::runtime_error("MatchingStates shall never return empty list");
    }
    return solutions;
}

bool isEligible(ModelState const& state, std::string const& name) {
    ModelStates solutions;
    ModelStates partials;
    auto next = std::make_unique<ModelState>(state, name);
    next->keepsWholeHistory = false;
    CompleteMatchingStates(std::move(next), solutions, partials);
    return !solutions.empty() &&
           std::none_of(solutions.begin(), solutions.end(),
                        [](auto const& solution) { return solution->IsIllegal(); });
}

// What may follow the trace whose matching states are `states`.
std::set<std::string> getEligible(ModelStates const& states) {
    std::set<std::string> eligible;
    if (states.front()->isProgramError) {
        return eligible;
    }
    for (auto state = states.rbegin(); state != states.rend(); ++state) {
        for (auto const& name : (*state)->EnabledEventNames()) {
            if (isEligible(**state, name)) {
                eligible.insert(name);
            }
        }
    }
    return eligible;
}

std::set<std::string> getEligible(ModelInstancePtr const& instance, Names const& trace) {
    return getEligible(Search(instance, trace, false));
}

Names filter(Names const& names, std::string const& portName) {
    Names kept;
    std::copy_if(names.begin(), names.end(), std::back_inserter(kept),
                 [&](auto const& name) { return name.starts_with(portName + "."); });
    return kept;
}

Names strip(Names const& names, std::string const& portName) {
    Names stripped;
    for (auto const& name : names) {
        stripped.push_back(name.starts_with(portName + ".") ? name.substr(portName.size() + 1)
                                                            : name);
    }
    return stripped;
}

std::set<std::string> addName(std::set<std::string> const& names, std::string const& portName) {
    std::set<std::string> named;
    for (auto const& name : names) {
        named.insert(portName + "." + name);
    }
    return named;
}

// What the protocol of `port` allows next, after its part of the trace.
std::set<std::string> EligibleOnPort(kel::PortDeclaration const& port, Names const& trace) {
    auto const& name = port.getName();
    auto const run = std::make_shared<ModelInstance const>(port);
    return addName(getEligible(run, strip(filter(trace, name), name)), name);
}

bool IsOccupiedPort(kel::PortDeclaration const& port, Names const& trace) {
    auto const& name = port.getName();
    return IsModelOccupied(std::make_shared<ModelInstance const>(port),
                           strip(filter(trace, name), name));
}

std::set<std::string> EligibleEventsOfComponent(ModelInstancePtr const& instance,
                                                Names const& trace, ModelStates const& states) {
    std::set<std::string> eligible;
    auto const& state = *states.front();
    if (state.isProgramError) {
        return eligible;
    }
    if (state.IsIdle()) {
        for (auto const* port : state.GetOpenPorts()) {
            auto const allowed = EligibleOnPort(*port, trace);
            for (auto const& event : kel::InputEvents(*port)) {
                if (allowed.contains(event.str())) {
                    eligible.insert(event.str());
                }
            }
        }
        if (state.stateVector.queue.empty() && !state.armedPorts.empty()) {
            for (auto const& name : getEligible(states)) {
                if (instance->isOutputEvent(name)) {
                    eligible.insert(name);
                }
            }
        }
        return eligible;
    }
    if (state.activeActionEvent == nullptr) {
        auto const* port = state.GetActivationPort();
        if (port != nullptr && port->getDirection() == kel::idirRequired &&
            IsOccupiedPort(*port, trace)) {
            return EligibleOnPort(*port, trace);
        }
        return getEligible(states);
    }
    auto const* port = state.GetActionPort();
    return port == nullptr ? eligible : EligibleOnPort(*port, trace);
}

} // namespace

ModelStates MatchingStates(ModelInstancePtr const& instance, Names const& namedEventTrace) {
    return Search(instance, namedEventTrace, true);
}

bool IsModelOccupied(ModelInstancePtr const& instance, Names const& namedEventTrace) {
    auto const states = Search(instance, namedEventTrace, false);
    return !states.front()->isProgramError &&
           std::all_of(states.begin(), states.end(),
                       [](auto const& state) { return state->isActive; });
}

std::set<std::string> EligibleEvents(ModelInstancePtr const& instance,
                                     Names const& namedEventTrace) {
    return EligibleEvents(instance, namedEventTrace, Search(instance, namedEventTrace, false));
}

std::set<std::string> EligibleEvents(ModelInstancePtr const& instance,
                                     Names const& namedEventTrace, ModelStates const& states) {
    auto const& model = *instance->model;
    if (model.asInterfaceDeclaration() != nullptr) {
        return getEligible(states);
    }
    if (model.asComponentDeclaration() != nullptr) {
        return EligibleEventsOfComponent(instance, namedEventTrace, states);
    }
    return {};
}
