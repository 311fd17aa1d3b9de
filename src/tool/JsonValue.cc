#include "tool/JsonValue.h"

#include <sstream>

namespace {

char const* const separator = ",\n";

} // namespace

std::string JsonValueNull::str() const { return "null"; }
std::ostream& JsonValueNull::put(std::ostream& out) const { return out << "null"; }
std::unique_ptr<JsonValueImpl> JsonValueNull::clone() const {
    return std::make_unique<JsonValueNull>();
}

std::string JsonValueInt::str() const { return std::to_string(m_value); }
std::ostream& JsonValueInt::put(std::ostream& out) const { return out << m_value; }
std::unique_ptr<JsonValueImpl> JsonValueInt::clone() const {
    return std::make_unique<JsonValueInt>(m_value);
}

std::string JsonValueString::str() const { return '"' + m_value + '"'; }
std::ostream& JsonValueString::put(std::ostream& out) const { return out << '"' << m_value << '"'; }
std::unique_ptr<JsonValueImpl> JsonValueString::clone() const {
    return std::make_unique<JsonValueString>(m_value);
}

JsonVariant::JsonVariant() = default;
JsonVariant::JsonVariant(char const* text) : m_impl(std::make_unique<JsonValueString>(text)) {}
JsonVariant::JsonVariant(std::unique_ptr<JsonValueImpl> impl) : m_impl(std::move(impl)) {}
JsonVariant::JsonVariant(JsonVariant const& other)
    : m_impl(other.m_impl ? other.m_impl->clone() : nullptr) {}

JsonValueImpl const& JsonVariant::impl() const {
    static JsonValueNull const null;
    if (!m_impl) {
        return null;
    }
    return *m_impl;
}

JsonVariant& JsonVariant::operator=(JsonVariant const& other) {
    if (this != &other) {
        m_impl = other.m_impl ? other.m_impl->clone() : nullptr;
    }
    return *this;
}

JsonVariant& JsonVariant::operator=(char const* text) {
    m_impl = std::make_unique<JsonValueString>(text);
    return *this;
}

JsonValue& JsonValue::operator=(JsonValue&& other) noexcept {
    kind = other.kind;
    variant = std::move(other.variant);
    elements = std::move(other.elements);
    members = std::move(other.members);
    return *this;
}

JsonValue& JsonValue::operator=(std::string const& text) {
    return setScalar(std::make_unique<JsonValueString>(text));
}

JsonValue& JsonValue::operator=(char const* text) {
    return setScalar(std::make_unique<JsonValueString>(text));
}

JsonValue& JsonValue::setScalar(std::unique_ptr<JsonValueImpl> impl) {
    kind = Variant;
    variant = JsonVariant(std::move(impl));
    return *this;
}

JsonValue& JsonValue::operator[](unsigned long const& index) {
    members.clear();
    kind = Array;
    if (index >= elements.size()) {
        elements.resize(index + 1);
    }
    return elements[index];
}

JsonValue& JsonValue::operator[](std::string const& key) {
    elements.clear();
    kind = Object;
    // Linear: the map is ordered by insertion number, not by key.
    for (auto& [numberedKey, value] : members) {
        if (numberedKey.second == key) {
            return value;
        }
    }
    return members[{members.size(), key}];
}

void JsonValue::append(JsonValue const& value) {
    JsonValue copy(value); // `value` may live inside this array
    append(std::move(copy));
}

void JsonValue::append(JsonValue&& value) { (*this)[elements.size()] = std::move(value); }

std::string JsonValue::str() const {
    switch (kind) {
    case Array:
        return arr_str();
    case Object:
        return obj_str();
    default:
        return var_str();
    }
}

std::string JsonValue::var_str() const { return variant.impl().str(); }

std::string JsonValue::arr_str() const {
    std::ostringstream out;
    arr_put(out);
    return out.str();
}

std::string JsonValue::obj_str() const {
    std::ostringstream out;
    obj_put(out);
    return out.str();
}

std::ostream& JsonValue::arr_put(std::ostream& out) const {
    out << '[';
    for (std::size_t i = 0; i < elements.size(); ++i) {
        out << (i ? separator : "") << elements[i];
    }
    return out << ']';
}

std::ostream& JsonValue::obj_put(std::ostream& out) const {
    out << '{';
    char const* before = "";
    for (auto const& [numberedKey, value] : members) {
        out << before << '"' << numberedKey.second << "\":" << value;
        before = separator;
    }
    return out << '}';
}

std::ostream& operator<<(std::ostream& out, JsonValueImpl const& value) { return value.put(out); }

std::ostream& operator<<(std::ostream& out, JsonVariant const& value) {
    return value.impl().put(out);
}

std::ostream& operator<<(std::ostream& out, JsonValue const& value) {
    switch (value.kind) {
    case JsonValue::Array:
        return value.arr_put(out);
    case JsonValue::Object:
        return value.obj_put(out);
    default:
        return out << value.variant;
    }
}
