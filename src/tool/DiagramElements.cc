#include "tool/DiagramElements.h"

#include "interpreter/ModelInstance.h"

#include "metamodel/File.h"
#include "metamodel/InterfaceDeclaration.h"
#include "metamodel/InterfaceReference.h"

namespace {

char const* SyncTypeName(ProgramStep::SynchronizationType type) {
    switch (type) {
    case ProgramStep::Call:
        return "call";
    case ProgramStep::Return:
        return "return";
    case ProgramStep::Notification:
        return "notification";
    default:
        return "none";
    }
}

bool IsReturn(ProgramStep const& step) {
    return step.kind == ProgramStep::PSK_OnEventReturn ||
           step.kind == ProgramStep::PSK_ActionReturn;
}

void WriteMember(JsonWriter& out, char const* key, std::string const& value) {
    out.key(key);
    out.value(value);
}

void WriteState(JsonWriter& out, StateVector const& vector) {
    out.key("state");
    out.beginArray();
    for (auto const& [variable, value] : vector.ToVarValPairVec()) {
        out.beginObject();
        WriteMember(out, "variable", variable);
        WriteMember(out, "value", value);
        out.endObject();
    }
    out.endArray();
}

void WriteLocation(JsonWriter& out, kel::Location const& location, std::size_t index) {
    out.beginObject();
    // Declarations that the tool makes itself come from no file.
    auto const* file = location.tryGetFile();
    out.key("file");
    out.value(file != nullptr ? std::string_view(file->getName()) : std::string_view());
    out.key("line");
    out.value(location.getBeginLine());
    out.key("column");
    out.value(location.getBeginColumn());
    out.key("end");
    out.beginObject();
    out.key("line");
    out.value(location.getEndLine());
    out.key("column");
    out.value(location.getEndColumn());
    out.endObject();
    out.key("index");
    out.value(static_cast<std::int64_t>(index));
    out.endObject();
}

// What the step's lifeline shows of its event, or of its reply; "" if none.
std::string SynchronizationText(ProgramStep const& step, bool onPort) {
    if (IsReturn(step)) {
        return onPort ? step.getPortReturn().value_str() : step.to_net_string();
    }
    if (step.hasPortEvent()) {
        return onPort ? step.getPortEvent().event_str() : step.to_net_string();
    }
    return {};
}

} // namespace

void WriteSelection(JsonWriter& out, Locations const& locations, std::size_t index) {
    out.key("selection");
    out.beginArray();
    for (auto const* location : locations) {
        WriteLocation(out, *location, index);
    }
    if (locations.empty()) {
        out.beginObject();
        out.key("index");
        out.value(static_cast<std::int64_t>(index));
        out.endObject();
    }
    out.endArray();
}

void WriteStep(JsonWriter& out, ProgramStep const& step,
               std::optional<kel::Location const*> borrowed, std::size_t index) {
    ModelInstance const& instance = *step.stateVector->modelInstance;
    // A port's lifeline names the port already; the model's shows it in front.
    bool const onPort = instance.port != nullptr;
    Locations shown;
    if (auto const* location = borrowed ? *borrowed : step.locationObject) {
        shown.push_back(location);
    }
    out.beginObject();
    out.key("kind");
    out.value(step.getStepKindName());
    WriteMember(out, "instance", instance.getName());
    if (step.kind == ProgramStep::PSK_Initialize) {
        WriteMember(out, "role", instance.getRoleName());
    }
    // A step's own source text stands here; one it only borrows comes last.
    bool const ownSelection = step.locationObject != nullptr;
    if (ownSelection) {
        WriteSelection(out, shown, index);
    }
    auto const synchronization = SynchronizationText(step, onPort);
    if (step.hasPortEvent()) {
        WriteMember(out, "event",
                    onPort ? step.getPortEvent().event_str() : step.to_net_string());
    }
    if (IsReturn(step)) {
        WriteMember(out, "return", synchronization);
    }
    if (step.isSynchronizationStep()) {
        if (step.hasPortEvent() || IsReturn(step)) {
            WriteMember(out, "synchronization", synchronization);
        }
        out.key("synctype");
        out.value(SyncTypeName(step.getSynchronizationType()));
    }
    if (step.kind == ProgramStep::PSK_Error) {
        WriteMember(out, "message", step.errorMessage());
    }
    WriteState(out, *step.stateVector);
    if (!ownSelection) {
        WriteSelection(out, shown, index);
    }
    out.endObject();
}

void WritePortPlaceholder(JsonWriter& out, kel::PortDeclaration const& port, std::size_t index) {
    out.beginObject();
    out.key("kind");
    out.value("Initialize");
    WriteMember(out, "instance", port.getName());
    out.key("role");
    out.value(port.getDirection() == kel::idirProvided ? "provided" : "required");
    WriteSelection(out, {&port.getInterface().getDeclaration()}, index);
    out.key("state");
    out.beginArray();
    out.endArray();
    out.endObject();
}

void WriteError(JsonWriter& out, std::string const& message, Locations const& locations,
                std::size_t index) {
    out.beginObject();
    out.key("kind");
    out.value("Error");
    WriteMember(out, "message", message);
    WriteSelection(out, locations, index);
    out.endObject();
}
