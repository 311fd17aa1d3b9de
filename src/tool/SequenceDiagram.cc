#include "tool/SequenceDiagram.h"

#include "tool/DiagramElements.h"

#include "interpreter/ModelInstance.h"
#include "interpreter/ProgramStep.h"

#include "metamodel/Behaviour.h"
#include "metamodel/ComponentDeclaration.h"
#include "metamodel/Guard.h"
#include "metamodel/ModelDeclaration.h"
#include "metamodel/PortDeclaration.h"

#include <cstddef>
#include <optional>
#include <vector>
#include <string>

namespace {

JsonValue Header(TraceType type) {
    static char const* const names[] = {"interface", "constrained", "unconstrained"};
    JsonValue element;
    element["kind"] = "TraceType";
    element["type"] = names[type];
    return element;
}

ModelInstance const& InstanceOf(MicroStep const& step) { return *step->stateVector.modelInstance; }

bool IsInitialize(MicroStep const& step) { return step->getStepKindName() == "Initialize"; }

// The port's own "Initialize" step, or its placeholder.
JsonValue PortLifeline(MicroTrace const& trace, kel::PortDeclaration const& port) {
    for (auto const& step : trace.steps) {
        if (IsInitialize(step) && InstanceOf(step).getName() == port.getName()) {
            return Step(step);
        }
    }
    return Step(port);
}

void AddPortLifelines(std::vector<JsonValue>& lifelines, MicroTrace const& trace,
                      kel::ComponentDeclaration const& component, kel::PortDirection direction) {
    for (auto const* port : component.getPorts()) {
        if (port->getDirection() == direction) {
            lifelines.push_back(PortLifeline(trace, *port));
        }
    }
}

// Provided ports to the left of the component, required ports to its right.
std::vector<JsonValue> Lifelines(MicroTrace const& trace) {
    std::vector<JsonValue> lifelines;
    auto const* component = trace.model->asComponentDeclaration();
    if (component == nullptr) {
        for (auto const& step : trace.steps) {
            if (IsInitialize(step)) {
                lifelines.push_back(Step(step));
            }
        }
        return lifelines;
    }
    AddPortLifelines(lifelines, trace, *component, kel::idirProvided);
    for (auto const& step : trace.steps) {
        if (IsInitialize(step) && InstanceOf(step).port == nullptr) {
            lifelines.push_back(Step(step));
        }
    }
    AddPortLifelines(lifelines, trace, *component, kel::idirRequired);
    return lifelines;
}

bool Contains(std::string const& text, char const* part) {
    return text.find(part) != std::string::npos;
}

// The error element that ends a failed run; none for a run that went well.
std::optional<JsonValue> Verdict(MicroTrace const& trace) {
    bool const endsInError =
        !trace.steps.empty() && trace.steps.back()->kind == ProgramStep::PSK_Error;
    if (!trace.isProtocolViolation && trace.error().empty() && !endsInError) {
        return std::nullopt;
    }
    std::string const text = trace.getErrorMsg();
    MicroStep const* last = trace.MainModelLastStep();
    if (last != nullptr && Contains(text, "is incomplete:")) {
        return state_error(text, {&InstanceOf(*last).model->getBehaviour()});
    }
    if (last != nullptr && (Contains(text, "deterministic") || Contains(text, "deadlock") ||
                                   Contains(text, "livelock"))) {
        std::vector<kel::Location const*> guards;
        for (auto const* guard : (*last)->stateVector.ArmedGuards()) {
            guards.push_back(guard);
        }
        return state_error(text, guards);
    }
    return plain_error(text);
}

// A thread entry and a dequeued event have no source text of their own: each
// shows that of the nearest "OnEvent" behind it, or none. Taken in one walk
// back over the steps, so that the document can be written element by element.
std::vector<std::optional<kel::Location const*>> BorrowedSelections(MicroTrace const& trace) {
    std::vector<std::optional<kel::Location const*>> borrowed(trace.steps.size());
    kel::Location const* saved = nullptr;
    for (auto i = trace.steps.size(); i-- > 0;) {
        auto const kindName = trace.steps[i]->getStepKindName();
        if (kindName == "OnEvent") {
            saved = trace.steps[i]->locationObject;
        } else if (kindName == "ThreadEnter" || kindName == "Dequeue") {
            borrowed[i] = saved;
        }
    }
    return borrowed;
}

} // namespace

void amend_selection_index(JsonValue& element, std::size_t index) {
    JsonValue& selection = element["selection"];
    selection[0ul]; // a null or empty selection gets its one entry
    for (auto& entry : selection.elements) {
        entry["index"] = index;
    }
}

void printTrace(MicroTrace const& trace, TraceType type, std::ostream& out) {
    // Written as it is made: a long run's document need not fit in memory.
    std::size_t index = 0;
    auto write = [&](JsonValue element) {
        amend_selection_index(element, index);
        out << (index++ == 0 ? "[" : ",\n") << element;
    };
    write(Header(type));
    for (auto& lifeline : Lifelines(trace)) {
        write(std::move(lifeline));
    }
    auto const borrowed = BorrowedSelections(trace);
    for (std::size_t i = 0; i < trace.steps.size(); ++i) {
        auto const kindName = trace.steps[i]->getStepKindName();
        if (kindName == "Initialize" || kindName == "Error") {
            continue;
        }
        auto element = Step(trace.steps[i]);
        if (borrowed[i]) {
            auto const* location = *borrowed[i];
            element["selection"] = location == nullptr ? JsonValue() : selections({location});
        }
        write(std::move(element));
    }
    if (auto verdict = Verdict(trace)) {
        write(std::move(*verdict));
    }
    out << "]\n";
    out.flush();
}
