// A small JSON document with a writer for the sequence diagram. It escapes
// nothing and breaks the line behind every comma; there is no reader.
#pragma once

#include <concepts>
#include <cstdint>
#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

// A scalar: null, integer or string.
class JsonValueImpl {
public:
    virtual ~JsonValueImpl() = default;
    virtual std::string str() const = 0;
    virtual std::ostream& put(std::ostream& out) const = 0;
    virtual std::unique_ptr<JsonValueImpl> clone() const = 0;
};

class JsonValueNull : public JsonValueImpl {
public:
    std::string str() const override;
    std::ostream& put(std::ostream& out) const override;
    std::unique_ptr<JsonValueImpl> clone() const override;
};

class JsonValueInt : public JsonValueImpl {
public:
    explicit JsonValueInt(std::int64_t value) : m_value(value) {}
    std::string str() const override;
    std::ostream& put(std::ostream& out) const override;
    std::unique_ptr<JsonValueImpl> clone() const override;

private:
    std::int64_t m_value;
};

// Written between double quotes, with nothing inside escaped.
class JsonValueString : public JsonValueImpl {
public:
    explicit JsonValueString(std::string value) : m_value(std::move(value)) {}
    std::string str() const override;
    std::ostream& put(std::ostream& out) const override;
    std::unique_ptr<JsonValueImpl> clone() const override;

private:
    std::string m_value;
};

// Owns one scalar; copies clone it.
class JsonVariant {
public:
    JsonVariant();
    JsonVariant(char const* text);
    explicit JsonVariant(std::unique_ptr<JsonValueImpl> impl);
    JsonVariant(JsonVariant const& other);
    JsonVariant(JsonVariant&& other) noexcept = default;
    JsonVariant& operator=(JsonVariant const& other);
    JsonVariant& operator=(JsonVariant&& other) noexcept = default;
    JsonVariant& operator=(char const* text);

    JsonValueImpl const& impl() const;

private:
    // Null for a null value, so that the many null members of a document
    // allocate nothing.
    std::unique_ptr<JsonValueImpl> m_impl;
};

// A node of the document: a scalar, an array or an object. Object members keep
// the order in which their keys were first touched.
class JsonValue {
public:
    enum Kind : int { Variant = 0, Array = 1, Object = 2 };

    JsonValue() = default;
    explicit JsonValue(int kind) : kind(kind) {}
    JsonValue(JsonVariant const& scalar) : variant(scalar) {}
    JsonValue(JsonValue const& other) = default;
    JsonValue& operator=(JsonValue const& other) = default;
    // Moves never throw, so that a growing array moves its elements rather
    // than copying each document below them.
    JsonValue(JsonValue&& other) noexcept = default;
    JsonValue& operator=(JsonValue&& other) noexcept;
    virtual ~JsonValue() = default;

    JsonValue& operator=(std::string const& text);
    JsonValue& operator=(char const* text);
    template <std::integral Integer> JsonValue& operator=(Integer number) {
        return setScalar(std::make_unique<JsonValueInt>(static_cast<std::int64_t>(number)));
    }

    virtual std::string str() const;
    // Makes this an array, growing it to hold `index`.
    virtual JsonValue& operator[](unsigned long const& index);
    // Makes this an object, adding a null member for a new key.
    virtual JsonValue& operator[](std::string const& key);
    // Makes this an array and appends a deep copy of `value`.
    virtual void append(JsonValue const& value);
    // Makes this an array and appends `value`.
    void append(JsonValue&& value);

    JsonValue& operator[](char const* key) { return (*this)[std::string(key)]; }

    int kind = Variant;
    JsonVariant variant;
    std::vector<JsonValue> elements;
    // Keyed by (count of members at insertion, key), so map order is insertion order.
    std::map<std::pair<unsigned long, std::string>, JsonValue> members;

private:
    JsonValue& setScalar(std::unique_ptr<JsonValueImpl> impl);
    std::string var_str() const;
    std::string arr_str() const;
    std::string obj_str() const;
    std::ostream& arr_put(std::ostream& out) const;
    std::ostream& obj_put(std::ostream& out) const;

    friend std::ostream& operator<<(std::ostream& out, JsonValue const& value);
};

std::ostream& operator<<(std::ostream& out, JsonValueImpl const& value);
std::ostream& operator<<(std::ostream& out, JsonVariant const& value);
std::ostream& operator<<(std::ostream& out, JsonValue const& value);
