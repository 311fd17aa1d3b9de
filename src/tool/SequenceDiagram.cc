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
#include <string>

namespace {

// The text of a member as written, quotes included; "" when absent, so that
// looking never adds a member.
std::string MemberText(JsonValue const& object, std::string const& key) {
    for (auto const& [numberedKey, value] : object.members) {
        if (numberedKey.second == key) {
            return value.str();
        }
    }
    return "";
}

bool IsKind(JsonValue const& element, char const* kind) {
    return MemberText(element, "kind") == '"' + std::string(kind) + '"';
}

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

void AddPortLifelines(JsonValue& root, MicroTrace const& trace,
                      kel::ComponentDeclaration const& component, kel::PortDirection direction) {
    for (auto const* port : component.getPorts()) {
        if (port->getDirection() == direction) {
            root.append(PortLifeline(trace, *port));
        }
    }
}

// Provided ports to the left of the component, required ports to its right.
void AddLifelines(JsonValue& root, MicroTrace const& trace) {
    auto const* component = trace.model->asComponentDeclaration();
    if (component == nullptr) {
        for (auto const& step : trace.steps) {
            if (IsInitialize(step)) {
                root.append(Step(step));
            }
        }
        return;
    }
    AddPortLifelines(root, trace, *component, kel::idirProvided);
    for (auto const& step : trace.steps) {
        if (IsInitialize(step) && InstanceOf(step).port == nullptr) {
            root.append(Step(step));
        }
    }
    AddPortLifelines(root, trace, *component, kel::idirRequired);
}

bool Contains(std::string const& text, char const* part) {
    return text.find(part) != std::string::npos;
}

// The error element that ends a failed run; none for a run that went well.
void AddVerdict(JsonValue& root, MicroTrace const& trace) {
    bool const endsInError =
        !trace.steps.empty() && trace.steps.back()->kind == ProgramStep::PSK_Error;
    if (!trace.isProtocolViolation && trace.error().empty() && !endsInError) {
        return;
    }
    std::string const text = trace.getErrorMsg();
    MicroStep const* last = trace.MainModelLastStep();
    if (last != nullptr && Contains(text, "is incomplete:")) {
        root.append(state_error(text, {&InstanceOf(*last).model->getBehaviour()}));
    } else if (last != nullptr && (Contains(text, "deterministic") || Contains(text, "deadlock") ||
                                   Contains(text, "livelock"))) {
        std::vector<kel::Location const*> guards;
        for (auto const* guard : (*last)->stateVector.ArmedGuards()) {
            guards.push_back(guard);
        }
        root.append(state_error(text, guards));
    } else {
        root.append(plain_error(text));
    }
}

} // namespace

void amend_selections(JsonValue& root) {
    JsonValue saved;
    for (auto element = root.elements.rbegin(); element != root.elements.rend(); ++element) {
        if (IsKind(*element, "OnEvent")) {
            saved = (*element)["selection"];
        } else if (IsKind(*element, "ThreadEnter") || IsKind(*element, "Dequeue")) {
            (*element)["selection"] = saved;
        }
    }
}

void amend_selection_index(JsonValue& root) {
    for (std::size_t i = 0; i < root.elements.size(); ++i) {
        JsonValue& selection = root.elements[i]["selection"];
        selection[0ul]; // a null or empty selection gets its one entry
        for (auto& entry : selection.elements) {
            entry["index"] = i;
        }
    }
}

void printTrace(MicroTrace const& trace, TraceType type, std::ostream& out) {
    JsonValue root(JsonValue::Array);
    root.append(Header(type));
    AddLifelines(root, trace);
    for (auto const& step : trace.steps) {
        auto const kindName = step->getStepKindName();
        if (kindName != "Initialize" && kindName != "Error") {
            root.append(Step(step));
        }
    }
    amend_selections(root);
    AddVerdict(root, trace);
    amend_selection_index(root);
    out << root << '\n';
    out.flush();
}
