// The values a state variable can hold: a boolean, an integer or an enum value.
#pragma once

#include "metamodel/Enumerations.h"
#include "metamodel/EnumValueDeclaration.h"
#include "metamodel/PortReturn.h"
#include "metamodel/TypeDeclaration.h"

#include <cstdint>
#include <memory>
#include <string>

class StateVariableValue {
public:
    virtual ~StateVariableValue() = default;
    // Compares as the class of this value; the other must be of that class.
    virtual bool operator==(StateVariableValue const& other) const = 0;
    virtual bool operator!=(StateVariableValue const& other) const;
    virtual std::unique_ptr<StateVariableValue> clone() const = 0;
    // The text in diagrams and messages.
    virtual std::string str() const = 0;
    // The text in a named event trace.
    virtual std::string netName() const = 0;
    virtual bool isTypeMatch(kel::TypeDeclaration const* type) const = 0;
};

using StateVariableValuePtr = std::unique_ptr<StateVariableValue>;

class BoolStateVariableValue : public StateVariableValue {
public:
    BoolStateVariableValue() = default;
    explicit BoolStateVariableValue(bool value);
    explicit BoolStateVariableValue(kel::BooleanValue const& value) : value(value) {}

    bool operator==(StateVariableValue const& other) const override;
    // std::runtime_error when either side is unknown.
    virtual bool operator==(BoolStateVariableValue const& other) const;
    virtual bool operator!=(BoolStateVariableValue const& other) const;
    std::unique_ptr<StateVariableValue> clone() const override;
    std::string str() const override;
    std::string netName() const override;
    bool isTypeMatch(kel::TypeDeclaration const* type) const override;

    kel::BooleanValue value = kel::boolFalse;
};

class IntStateVariableValue : public StateVariableValue {
public:
    explicit IntStateVariableValue(std::int32_t value) : value(value) {}
    // The integer of a value that must be an integer.
    explicit IntStateVariableValue(StateVariableValue const& other);
    IntStateVariableValue(IntStateVariableValue const& other) = default;

    bool operator==(StateVariableValue const& other) const override;
    virtual bool operator==(IntStateVariableValue const& other) const;
    virtual bool operator!=(IntStateVariableValue const& other) const;
    virtual bool operator<(IntStateVariableValue const& other) const;
    virtual bool operator>(IntStateVariableValue const& other) const;
    virtual bool operator<=(IntStateVariableValue const& other) const;
    virtual bool operator>=(IntStateVariableValue const& other) const;
    // Wrap around silently: the range rule catches the result on assignment.
    virtual IntStateVariableValue operator+(IntStateVariableValue const& other) const;
    virtual IntStateVariableValue operator-(IntStateVariableValue const& other) const;
    std::unique_ptr<StateVariableValue> clone() const override;
    std::string str() const override;
    std::string netName() const override;
    bool isTypeMatch(kel::TypeDeclaration const* type) const override;

    std::int32_t value;
};

class EnumStateVariableValue : public StateVariableValue {
public:
    explicit EnumStateVariableValue(kel::EnumValueDeclaration const& value) : value(&value) {}

    bool operator==(StateVariableValue const& other) const override;
    // std::runtime_error when the two values belong to different enum types.
    virtual bool operator==(EnumStateVariableValue const& other) const;
    virtual bool operator!=(EnumStateVariableValue const& other) const;
    std::unique_ptr<StateVariableValue> clone() const override;
    // "Type.value"
    std::string str() const override;
    // "Type_value"
    std::string netName() const override;
    bool isTypeMatch(kel::TypeDeclaration const* type) const override;

    kel::EnumValueDeclaration const* value;
};

// The value of a reply; empty for a reply without type.
StateVariableValuePtr CreateStateVariableValue(kel::PortReturn const& portReturn);
