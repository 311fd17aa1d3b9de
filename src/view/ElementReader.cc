#include "view/ElementReader.h"

#include "view/DiagramReader.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <string_view>

namespace view {

namespace {

using Json = nlohmann::json;

// Every kind that kel-trace writes: the header, a lifeline's start, the
// verdict, and the step kinds with the statement classes among them.
constexpr std::array<std::string_view, 26> knownKinds{"TraceType",
                                                      "Initialize",
                                                      "Error",
                                                      "FunctionCall",
                                                      "OnEvent",
                                                      "OnEventReturn",
                                                      "ActionReturn",
                                                      "ReturnAssignement",
                                                      "Receive",
                                                      "Enqueue",
                                                      "Dequeue",
                                                      "ThreadEnter",
                                                      "ThreadExit",
                                                      "Block",
                                                      "Release",
                                                      "BehaviourStatement",
                                                      "GuardedStatement",
                                                      "VariableDeclarationStatement",
                                                      "CompoundStatement",
                                                      "OnEventStatement",
                                                      "AssignmentStatement",
                                                      "ActionStatement",
                                                      "IfStatement",
                                                      "FunctionCallStatement",
                                                      "ReplyStatement",
                                                      "ReturnStatement"};

[[noreturn]] void fail(long index, std::string const& what) {
    throw DiagramError("element " + std::to_string(index) + ": " + what);
}

std::string inQuotes(std::string const& text) { return "\"" + text + "\""; }

// The integer member `key` of an object, or 0 when absent.
long intMember(Json const& json, char const* key, long index) {
    auto const found = json.find(key);
    if (found == json.end()) {
        return 0;
    }
    if (!found->is_number_integer()) {
        fail(index, inQuotes(key) + " is not an integer");
    }
    return found->get<long>();
}

// The array member `key`, checked to hold objects only; null when absent.
Json const* objectsMember(Json const& json, char const* key, long index) {
    auto const found = json.find(key);
    if (found == json.end()) {
        return nullptr;
    }
    if (!found->is_array() ||
        !std::all_of(found->begin(), found->end(), [](Json const& e) { return e.is_object(); })) {
        fail(index, inQuotes(key) + " is not an array of objects");
    }
    return &*found;
}

Selection readSelection(Json const& json, long index) {
    Selection selection{stringMember(json, "file", index), intMember(json, "line", index),
                        intMember(json, "column", index)};
    auto const end = json.find("end");
    if (end != json.end()) {
        if (!end->is_object()) {
            fail(index, "\"end\" is not an object");
        }
        selection.endLine = intMember(*end, "line", index);
        selection.endColumn = intMember(*end, "column", index);
    }
    return selection;
}

SyncType readSyncType(Json const& json, long index) {
    std::string const text = stringMember(json, "synctype", index);
    if (text.empty() || text == "none") {
        return SyncType::None;
    }
    if (text == "call") {
        return SyncType::Call;
    }
    if (text == "return") {
        return SyncType::Return;
    }
    if (text == "notification") {
        return SyncType::Notification;
    }
    fail(index, "unknown \"synctype\" " + inQuotes(text));
}

std::string readKind(Json const& json, long index) {
    if (!json.contains("kind")) {
        fail(index, "no \"kind\" member");
    }
    std::string kind = stringMember(json, "kind", index);
    if (std::find(knownKinds.begin(), knownKinds.end(), kind) == knownKinds.end()) {
        fail(index, "unknown kind " + inQuotes(kind));
    }
    return kind;
}

} // namespace

std::string stringMember(Json const& json, char const* key, long index) {
    auto const found = json.find(key);
    if (found == json.end()) {
        return {};
    }
    if (!found->is_string()) {
        fail(index, inQuotes(key) + " is not a string");
    }
    return found->get<std::string>();
}

Element readElement(Json const& json, long index) {
    if (!json.is_object()) {
        fail(index, "not an object");
    }
    Element element;
    element.index = index;
    element.kind = readKind(json, index);
    element.instance = stringMember(json, "instance", index);
    element.role = stringMember(json, "role", index);
    element.event = stringMember(json, "event", index);
    element.returned = stringMember(json, "return", index);
    element.synchronization = stringMember(json, "synchronization", index);
    element.sync = readSyncType(json, index);
    element.message = stringMember(json, "message", index);
    if (element.instance.empty() && element.kind != "TraceType" && element.kind != "Error") {
        fail(index, "no \"instance\" member");
    }
    if (Json const* selections = objectsMember(json, "selection", index)) {
        for (Json const& entry : *selections) {
            element.selections.push_back(readSelection(entry, index));
        }
    }
    if (Json const* state = objectsMember(json, "state", index)) {
        for (Json const& entry : *state) {
            element.state.push_back(
                {stringMember(entry, "variable", index), stringMember(entry, "value", index)});
        }
    }
    return element;
}

} // namespace view
