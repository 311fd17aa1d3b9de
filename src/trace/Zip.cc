#include "trace/Zip.h"

#include "interpreter/KelSemantics.h"

#include "metamodel/InternalDeclaration.h"
#include "metamodel/TreePredicates.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <set>
#include <stdexcept>

namespace {

using Port = kel::PortDeclaration const*;
constexpr Port comp_trace_handle = nullptr;

// One history with its cursor, and what the walk needs to know of the part
// behind the cursor without walking it again.
struct Cursor {
    // Whether the steps from a position to the end show nothing before a
    // thread exit; or whether asking throws, as a step that must name a port
    // and does not makes it.
    enum Silence : std::uint8_t { Silent, Shown, Throws };

    explicit Cursor(MicroSteps const& steps) : steps(steps), silenceFrom(steps.size() + 1, Shown) {
        for (auto i = steps.size(); i-- > 0;) {
            silenceFrom[i] = silenceAt(i);
        }
    }

    bool exhausted() const { return position == steps.size(); }
    ProgramStep const& next() const { return *steps[position]; }
    // is_silent_transition from the cursor to the end.
    bool silentRest() const {
        if (silenceFrom[position] == Throws) {
            throw std::runtime_error("PortEvent has no port");
        }
        return silenceFrom[position] == Silent;
    }

    MicroSteps const& steps;
    std::vector<Silence> silenceFrom;
    std::size_t position = 0;
    // The threads that the copied part leaves running: enters and releases
    // less exits and blocks.
    int threads = 0;

private:
    // Where no step decides, the end of the range does: silent.
    Silence silenceAt(std::size_t i) const {
        auto const& step = *steps[i];
        if (step.kind == ProgramStep::PSK_ThreadExit) {
            return Silent;
        }
        try {
            if (step.isSynchronizationStep()) {
                return Shown;
            }
        } catch (std::runtime_error const&) {
            return Throws;
        }
        if (step.eventInstance != nullptr && kel::IsIllegal(*step.eventInstance)) {
            return Shown;
        }
        return i + 1 == steps.size() ? Silent : silenceFrom[i + 1];
    }
};

bool IsInternal(kel::PortEvent const& event) {
    return event.GetPort().asInternalDeclaration() != nullptr;
}

bool IsCallAction(ProgramStep const& step) {
    return step.kind == ProgramStep::PSK_Statement && step.statement != nullptr &&
           KelSemantics::IsEventCallAction(*step.statement);
}

Port PortOfRun(ProgramStep const& step) { return step.stateVector->modelInstance->port; }

// Where the walk goes on after the step `s` was copied.
Port NextHistory(ProgramStep const& s) {
    bool const ofPort = PortOfRun(s) != nullptr;
    switch (s.kind) {
    case ProgramStep::PSK_OnEvent: {
        auto const event = s.getPortEvent();
        if (ofPort && PortOfRun(s)->getDirection() == kel::idirProvided &&
            event.event != nullptr && !kel::IsBuiltin(*event.event)) {
            return comp_trace_handle;
        }
        break;
    }
    case ProgramStep::PSK_Statement:
        if (IsCallAction(s)) {
            auto const event = s.getPortEvent();
            if (event.port == nullptr || event.port->asInternalDeclaration() != nullptr) {
                return comp_trace_handle;
            }
            return event.port;
        }
        break;
    case ProgramStep::PSK_Receive:
        return ofPort ? comp_trace_handle : s.getPortEvent().port;
    case ProgramStep::PSK_Enqueue:
        return IsInternal(s.getPortEvent()) ? comp_trace_handle : s.getPortEvent().port;
    case ProgramStep::PSK_ThreadExit:
        if (ofPort || s.portEvent.event == nullptr) {
            return comp_trace_handle;
        }
        return s.getPortEvent().port;
    default:
        break;
    }
    return PortOfRun(s);
}

class Walk {
public:
    explicit Walk(Histories const& histories) {
        for (auto const& [port, steps] : histories) {
            cursors.emplace(port, Cursor(steps));
        }
    }

    MicroSteps run() {
        Port current = comp_trace_handle;
        while (!cursor(current).exhausted()) {
            // Only when every running thread is blocked, or none runs, may the
            // walk change its history.
            if (blockedPorts.size() == busyHistories) {
                auto const silent = silentRequiredPort();
                current = silent ? *silent : componentOrItsNextPort();
            }
            auto& in = cursor(current);
            if (in.exhausted()) {
                break;
            }
            if (current != comp_trace_handle &&
                in.next().kind == ProgramStep::PSK_ThreadEnter && in.silentRest()) {
                copyActivity(current);
                continue;
            }
            copy(current);
            if (current != comp_trace_handle && current->getDirection() == kel::idirProvided &&
                !in.exhausted() && in.silentRest()) {
                copyActivity(current);
            }
            auto const next = NextHistory(*microSteps.back());
            current = cursor(next).exhausted() ? comp_trace_handle : next;
        }
        finish();
        return std::move(microSteps);
    }

private:
    Cursor& cursor(Port port) { return cursors.at(port); }

    // A required port whose rest starts with an activity that shows nothing.
    std::optional<Port> silentRequiredPort() {
        for (auto& [port, in] : cursors) {
            if (port != comp_trace_handle && port->getDirection() != kel::idirProvided &&
                !in.exhausted() && in.silentRest()) {
                return port;
            }
        }
        return std::nullopt;
    }

    // The component, or the port whose thread its next step takes in, unless
    // queued events are to be served first.
    Port componentOrItsNextPort() {
        auto const& component = cursor(comp_trace_handle);
        if (pendingEvents != 0 || component.exhausted()) {
            return comp_trace_handle;
        }
        auto const& next = component.next();
        if (next.kind == ProgramStep::PSK_ThreadEnter) {
            return next.tryGetPort();
        }
        if (next.kind == ProgramStep::PSK_Enqueue && !IsInternal(next.getPortEvent())) {
            return next.tryGetPort();
        }
        return comp_trace_handle;
    }

    void copy(Port port) {
        auto& in = cursor(port);
        auto const& step = in.steps[in.position++];
        count(port, in, *step);
        microSteps.push_back(step);
    }

    // Copies up to and including the next thread exit.
    void copyActivity(Port port) {
        auto& in = cursor(port);
        while (!in.exhausted()) {
            bool const exit = in.next().kind == ProgramStep::PSK_ThreadExit;
            copy(port);
            if (exit) {
                break;
            }
        }
    }

    void count(Port port, Cursor& in, ProgramStep const& step) {
        int delta = 0;
        switch (step.kind) {
        case ProgramStep::PSK_ThreadEnter:
            delta = 1;
            break;
        case ProgramStep::PSK_Release:
            delta = 1;
            if (port == comp_trace_handle) {
                blockedPorts.erase(step.tryGetPort());
            }
            break;
        case ProgramStep::PSK_ThreadExit:
            delta = -1;
            break;
        case ProgramStep::PSK_Block:
            delta = -1;
            if (port == comp_trace_handle) {
                blockedPorts.insert(step.tryGetPort());
            }
            break;
        case ProgramStep::PSK_Enqueue:
            ++pendingEvents;
            break;
        case ProgramStep::PSK_Dequeue:
            --pendingEvents;
            break;
        default:
            break;
        }
        bool const wasBusy = in.threads != 0;
        in.threads += delta;
        busyHistories += (in.threads != 0) - wasBusy;
    }

    // The provided port has the last word; errors of its own run are no
    // errors of the trace, and nothing stands behind the first other error.
    void finish() {
        auto provided = cursors.begin();
        while (provided != cursors.end() &&
               (provided->first == comp_trace_handle ||
                provided->first->getDirection() != kel::idirProvided)) {
            ++provided;
        }
        if (provided == cursors.end()) {
            throw std::runtime_error("provided_port_handle precondition not met");
        }
        auto& in = provided->second;
        while (!in.exhausted()) {
            bool const required = is_match_required(in.next());
            microSteps.push_back(in.steps[in.position++]);
            if (required) {
                break;
            }
        }
        std::erase_if(microSteps, [](MicroStep const& step) {
            return step->kind == ProgramStep::PSK_Error &&
                   step->stateVector->modelInstance->getRoleName() == "provided";
        });
        auto const error = std::find_if(microSteps.begin(), microSteps.end(), [](auto const& step) {
            return step->kind == ProgramStep::PSK_Error;
        });
        if (error != microSteps.end()) {
            microSteps.erase(error + 1, microSteps.end());
        }
    }

    std::map<Port, Cursor, PortOrder> cursors;
    MicroSteps microSteps;
    std::set<Port> blockedPorts;
    std::size_t busyHistories = 0;
    long pendingEvents = 0;
};

} // namespace

MicroSteps zipHistories(Histories const& histories) { return Walk(histories).run(); }
