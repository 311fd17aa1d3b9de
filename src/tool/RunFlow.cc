#include "tool/RunFlow.h"

#include "tool/SequenceDiagram.h"
#include "tool/TraceInput.h"

#include "interpreter/MatchingStates.h"
#include "trace/MicroTrace.h"
#include "trace/TraceAnnotator.h"

#include "metamodel/ComponentDeclaration.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace {

std::string const Rule(40, '=');

void PrintPortBanner(ModelInstance const& instance, ModelStates const& states, TraceType type,
                     std::ostream& out) {
    out << "===== PortStates - " << instance.getName() << "\n";
    for (auto const& state : states) {
        out << "===== " << (state->isProgramError ? "Error:" : "Valid") << state->message << "\n"
            << Rule << "\n";
        printTrace(MicroTrace(*state), type, out);
    }
}

void PrintComponentBanner(ModelInstance const& instance, ModelStates const& states,
                          TraceType type, std::ostream& out) {
    out << "=====Component States - " << instance.getName() << "\n";
    for (auto const& state : states) {
        out << "===== " << state->GetIdStr() << " " << (state->isProgramError ? "Error: " : "Valid")
            << state->message << "\n"
            << state->Print() << "\n"
            << Rule << "\n";
        printTrace(MicroTrace(*state), type, out);
    }
    out << "=====Zipped Trace=====\n";
}

TraceType TraceTypeOf(kel::ModelDeclaration const& model, Options const& options) {
    if (model.asComponentDeclaration() == nullptr) {
        return TT_Interface;
    }
    return isComponentConstrainedByPorts(options) ? TT_Constrained : TT_Unconstrained;
}

// Each port against its own events: the provided ports' trace (-s or -S) for
// a provided port, the trace for any other.
PortStates RunPorts(kel::ComponentDeclaration const& component, NamedEventTrace const& trace,
                    NamedEventTrace const& specTrace, bool debug, TraceType type,
                    std::ostream& out, ProgressLine& progress) {
    PortStates portStates;
    for (auto const* port : component.getPorts()) {
        auto const& name = port->getName();
        auto const& events = port->getDirection() == kel::idirProvided ? specTrace : trace;
        auto const instance = std::make_shared<ModelInstance const>(*port);
        auto states =
            MatchingStates(instance, stripOffCspChannelName(filterCspChannelEvents(events, name), name));
        if (debug) {
            progress.Erase();
            PrintPortBanner(*instance, states, type, out);
        }
        if (!states.empty()) {
            portStates.emplace(port, std::move(states.front()));
        }
    }
    return portStates;
}

bool EndsCleanly(MicroTrace const& trace) {
    return !trace.isProtocolViolation && trace.steps.back()->kind != ProgramStep::PSK_Error;
}

// Whether nothing may follow the trace without its queue-flush markers. Where
// it had none, the main run's states are those of that trace already.
bool IsDeadlocked(ModelInstancePtr const& instance, NamedEventTrace const& trace,
                  ModelStates const& states) {
    if (std::none_of(trace.begin(), trace.end(), TraceAnnotator::is_queue_flush)) {
        return EligibleEvents(instance, trace, states).empty();
    }
    return EligibleEvents(instance, TraceAnnotator::rm_queue_flushes(trace)).empty();
}

} // namespace

void RunModel(kel::ModelDeclaration const& model, Options const& options, std::istream& in,
              std::ostream& out, ProgressLine& progress, PhaseListener const& phaseDone) {
    auto trace = readTrace(options, in);
    auto const specTrace = readSpecTrace(options, trace);
    auto const errorText = getOption(options, "errormessage");
    auto const type = TraceTypeOf(model, options);
    bool const debug = options.contains("debug");

    PortStates portStates;
    if (type == TT_Constrained) {
        portStates =
            RunPorts(*model.asComponentDeclaration(), trace, specTrace, debug, type, out, progress);
        trace = TraceAnnotator::add_queue_flushes(trace, portStates);
    } else if (type == TT_Interface) {
        trace = stripOffCspChannelName(trace, model.getName());
    }
    phaseDone("ports");

    auto const instance = std::make_shared<ModelInstance const>(model);
    auto const states = MatchingStates(instance, trace);
    phaseDone("main run");
    if (debug && type != TT_Interface) {
        progress.Erase();
        PrintComponentBanner(*instance, states, type, out);
    }
    auto const& state = *states.front();
    MicroTrace microTrace = type == TT_Constrained ? MicroTrace(state, portStates) : MicroTrace(state);
    if (microTrace.steps.empty()) {
        throw std::runtime_error("The run of model '" + model.getName() + "' recorded no step");
    }
    phaseDone("reconciliation");
    if (!errorText.empty() && EndsCleanly(microTrace) && microTrace.error().empty()) {
        microTrace.error(errorText);
    }
    if (EndsCleanly(microTrace) && microTrace.error().empty() &&
        IsDeadlocked(instance, trace, states)) {
        microTrace.error("deadlock in model " + instance->getName());
    }
    phaseDone("deadlock check");
    progress.Erase();
    printTrace(microTrace, type, out);
    phaseDone("diagram");
}
