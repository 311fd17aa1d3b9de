#include "tool/DiagramElements.h"

#include "interpreter/ModelInstance.h"
#include "interpreter/ProgramStep.h"

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

JsonValue State(StateVector const& vector) {
    JsonValue state(JsonValue::Array);
    for (auto const& [variable, value] : vector.ToVarValPairVec()) {
        JsonValue pair;
        pair["variable"] = variable;
        pair["value"] = value;
        state.append(pair);
    }
    return state;
}

} // namespace

JsonValue selections(std::vector<kel::Location const*> const& locations) {
    JsonValue array(JsonValue::Array);
    for (auto const* location : locations) {
        JsonValue entry;
        // Declarations that the tool makes itself come from no file.
        auto const* file = location->tryGetFile();
        entry["file"] = file != nullptr ? file->getName() : std::string();
        entry["line"] = location->getBeginLine();
        entry["column"] = location->getBeginColumn();
        entry["end"]["line"] = location->getEndLine();
        entry["end"]["column"] = location->getEndColumn();
        array.append(entry);
    }
    return array;
}

JsonValue Step(MicroStep const& microStep) {
    ProgramStep const& step = *microStep;
    ModelInstance const& instance = *step.stateVector.modelInstance;
    // A port's lifeline names the port already; the model's shows it in front.
    bool const onPort = instance.port != nullptr;
    std::string const kindName = step.getStepKindName();
    JsonValue element;
    element["kind"] = kindName;
    element["instance"] = instance.getName();
    if (kindName == "Initialize") {
        element["role"] = instance.getRoleName();
    }
    if (step.locationObject != nullptr) {
        element["selection"] = selections({step.locationObject});
    }
    std::string synchronization;
    if (step.hasPortEvent()) {
        synchronization = onPort ? step.getPortEvent().event_str() : step.to_net_string();
        element["event"] = synchronization;
    }
    if (IsReturn(step)) {
        synchronization = onPort ? step.getPortReturn().value_str() : step.to_net_string();
        element["return"] = synchronization;
    }
    if (step.isSynchronizationStep()) {
        if (step.hasPortEvent() || IsReturn(step)) {
            element["synchronization"] = synchronization;
        }
        element["synctype"] = SyncTypeName(step.getSynchronizationType());
    }
    if (step.kind == ProgramStep::PSK_Error) {
        element["message"] = step.errorMessage;
    }
    element["state"] = State(step.stateVector);
    return element;
}

JsonValue Step(kel::PortDeclaration const& port) {
    JsonValue element;
    element["kind"] = "Initialize";
    element["instance"] = port.getName();
    element["role"] = port.getDirection() == kel::idirProvided ? "provided" : "required";
    element["selection"] = selections({&port.getInterface().getDeclaration()});
    element["state"] = JsonValue(JsonValue::Array);
    return element;
}

JsonValue state_error(std::string const& message,
                      std::vector<kel::Location const*> const& locations) {
    JsonValue element = plain_error(message);
    element["selection"] = selections(locations);
    return element;
}

JsonValue plain_error(std::string const& message) {
    JsonValue element;
    element["kind"] = "Error";
    element["message"] = message;
    return element;
}
