#include "trace/TraceAnnotator.h"

#include "interpreter/ProgramStep.h"

#include <cstddef>
#include <map>

namespace {

std::string const queueFlush = ".<<flush_queue>>";

// The events that each required port showed, by port name, with a marker
// wherever one of its spontaneous activities had delivered a notification.
using PortTraces = std::map<std::string, std::vector<std::string>>;

std::vector<std::string> AnnotatedHistory(kel::PortDeclaration const& port,
                                          ModelState const& state) {
    std::vector<std::string> annotated;
    int received = 0;
    bool spontaneous = false;
    for (auto const& step : state.programTrace->ToVector()) {
        // A thread without an event is the port acting on its own initiative.
        if (step->kind == ProgramStep::PSK_ThreadEnter && step->portEvent.event == nullptr) {
            received = 0;
            spontaneous = true;
        } else if (step->kind == ProgramStep::PSK_ThreadExit && step->portEvent.event == nullptr) {
            if (spontaneous && received > 0) {
                annotated.push_back(port.getName() + queueFlush);
            }
            received = 0;
            spontaneous = false;
        }
        if (step->isSynchronizationStep()) {
            if (step->kind == ProgramStep::PSK_Receive) {
                ++received;
            }
            annotated.push_back(step->to_net_string());
        }
    }
    return annotated;
}

PortTraces RequiredPortTraces(PortStates const& portStates) {
    PortTraces portTraces;
    for (auto const& [port, state] : portStates) {
        if (port != nullptr && state != nullptr && port->getDirection() == kel::idirRequired) {
            portTraces[port->getName()] = AnnotatedHistory(*port, *state);
        }
    }
    return portTraces;
}

std::map<std::string, std::size_t> trace_ends(PortTraces const& portTraces) {
    std::map<std::string, std::size_t> ends;
    for (auto const& [name, events] : portTraces) {
        ends[name] = events.size();
    }
    return ends;
}

std::string PortName(std::string const& event) { return event.substr(0, event.find('.')); }

} // namespace

bool TraceAnnotator::is_queue_flush(std::string const& event) {
    return event.find(queueFlush) != std::string::npos;
}

std::vector<std::string> TraceAnnotator::rm_queue_flushes(std::vector<std::string> const& trace) {
    std::vector<std::string> plain;
    for (auto const& event : trace) {
        if (!is_queue_flush(event)) {
            plain.push_back(event);
        }
    }
    return plain;
}

std::vector<std::string> TraceAnnotator::add_queue_flushes(std::vector<std::string> const& trace,
                                                           PortStates const& portStates) {
    PortTraces const portTraces = RequiredPortTraces(portStates);
    auto const ends = trace_ends(portTraces);
    std::map<std::string, std::size_t> cursor;
    for (auto const& [name, events] : portTraces) {
        cursor[name] = 0;
    }

    std::vector<std::string> annotated;
    for (auto const& event : trace) {
        annotated.push_back(event);
        auto const found = cursor.find(PortName(event));
        if (found == cursor.end()) {
            continue;
        }
        auto& [name, at] = *found;
        auto const& events = portTraces.at(name);
        auto const end = ends.at(name);
        if (at != end) {
            // Once the trace and the port's history part, the port's markers
            // no longer say where they belong.
            at = events[at] == event ? at + 1 : end;
        }
        if (at != end && is_queue_flush(events[at])) {
            annotated.push_back(events[at]);
            ++at;
        }
    }
    return annotated;
}
