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
#include <ostream>
#include <string>
#include <vector>

namespace {

char const* TypeName(TraceType type) {
    static char const* const names[] = {"interface", "constrained", "unconstrained"};
    return names[type];
}

ModelInstance const& InstanceOf(MicroStep const& step) { return *step->stateVector->modelInstance; }

bool IsInitialize(MicroStep const& step) { return step->kind == ProgramStep::PSK_Initialize; }

// Writes the document element by element into `out`, in pieces of a size
// that keeps the text in memory small and the writes few.
class DocumentWriter {
public:
    explicit DocumentWriter(std::ostream& out) : out(out), json(text) { json.beginArray(); }

    JsonWriter& next() {
        if (text.size() > (1 << 16)) {
            flush();
        }
        return json;
    }
    // The position in the document of the element written next.
    std::size_t index() const { return count; }
    void written() { ++count; }

    void finish() {
        json.endArray();
        text += '\n';
        flush();
        out.flush();
    }

private:
    void flush() {
        out.write(text.data(), static_cast<std::streamsize>(text.size()));
        text.clear();
    }

    std::ostream& out;
    std::string text;
    JsonWriter json;
    std::size_t count = 0;
};

void WriteHeader(DocumentWriter& document, TraceType type) {
    auto& out = document.next();
    out.beginObject();
    out.key("kind");
    out.value("TraceType");
    out.key("type");
    out.value(TypeName(type));
    WriteSelection(out, {}, document.index());
    out.endObject();
    document.written();
}

void WriteStepElement(DocumentWriter& document, ProgramStep const& step,
                      std::optional<kel::Location const*> borrowed = std::nullopt) {
    WriteStep(document.next(), step, borrowed, document.index());
    document.written();
}

// The port's own "Initialize" step, or its placeholder.
void WritePortLifeline(DocumentWriter& document, MicroTrace const& trace,
                       kel::PortDeclaration const& port) {
    for (auto const& step : trace.steps) {
        if (IsInitialize(step) && InstanceOf(step).getName() == port.getName()) {
            WriteStepElement(document, *step);
            return;
        }
    }
    WritePortPlaceholder(document.next(), port, document.index());
    document.written();
}

void WritePortLifelines(DocumentWriter& document, MicroTrace const& trace,
                        kel::ComponentDeclaration const& component, kel::PortDirection direction) {
    for (auto const* port : component.getPorts()) {
        if (port->getDirection() == direction) {
            WritePortLifeline(document, trace, *port);
        }
    }
}

// Provided ports to the left of the component, required ports to its right.
void WriteLifelines(DocumentWriter& document, MicroTrace const& trace) {
    auto const* component = trace.model->asComponentDeclaration();
    if (component != nullptr) {
        WritePortLifelines(document, trace, *component, kel::idirProvided);
    }
    for (auto const& step : trace.steps) {
        if (IsInitialize(step) && (component == nullptr || InstanceOf(step).port == nullptr)) {
            WriteStepElement(document, *step);
        }
    }
    if (component != nullptr) {
        WritePortLifelines(document, trace, *component, kel::idirRequired);
    }
}

bool Contains(std::string const& text, char const* part) {
    return text.find(part) != std::string::npos;
}

// The error element that ends a failed run; none for a run that went well.
void WriteVerdict(DocumentWriter& document, MicroTrace const& trace) {
    bool const endsInError =
        !trace.steps.empty() && trace.steps.back()->kind == ProgramStep::PSK_Error;
    if (!trace.isProtocolViolation && trace.error().empty() && !endsInError) {
        return;
    }
    std::string const text = trace.getErrorMsg();
    MicroStep const* last = trace.MainModelLastStep();
    Locations locations;
    if (last != nullptr && Contains(text, "is incomplete:")) {
        locations.push_back(&InstanceOf(*last).model->getBehaviour());
    } else if (last != nullptr && (Contains(text, "deterministic") || Contains(text, "deadlock") ||
                                   Contains(text, "livelock"))) {
        for (auto const* guard : (*last)->stateVector->ArmedGuards()) {
            locations.push_back(guard);
        }
    }
    WriteError(document.next(), text, locations, document.index());
    document.written();
}

// A thread entry and a dequeued event have no source text of their own: each
// shows that of the nearest "OnEvent" behind it, or none. Taken in one walk
// back over the steps, so that the document can be written element by element.
std::vector<std::optional<kel::Location const*>> BorrowedSelections(MicroTrace const& trace) {
    std::vector<std::optional<kel::Location const*>> borrowed(trace.steps.size());
    kel::Location const* saved = nullptr;
    for (auto i = trace.steps.size(); i-- > 0;) {
        auto const kind = trace.steps[i]->kind;
        if (kind == ProgramStep::PSK_OnEvent) {
            saved = trace.steps[i]->locationObject;
        } else if (kind == ProgramStep::PSK_ThreadEnter || kind == ProgramStep::PSK_Dequeue) {
            borrowed[i] = saved;
        }
    }
    return borrowed;
}

} // namespace

void printTrace(MicroTrace const& trace, TraceType type, std::ostream& out) {
    DocumentWriter document(out);
    WriteHeader(document, type);
    WriteLifelines(document, trace);
    auto const borrowed = BorrowedSelections(trace);
    for (std::size_t i = 0; i < trace.steps.size(); ++i) {
        auto const kind = trace.steps[i]->kind;
        if (kind != ProgramStep::PSK_Initialize && kind != ProgramStep::PSK_Error) {
            WriteStepElement(document, *trace.steps[i], borrowed[i]);
        }
    }
    WriteVerdict(document, trace);
    document.finish();
}
