#include "interpreter/StateVariableValue.h"

#include "metamodel/EnumTypeDeclaration.h"
#include "metamodel/IntTypeDeclaration.h"
#include "metamodel/StringConversions.h"
#include "metamodel/TreePredicates.h"

#include "om/AsType.h"

#include <stdexcept>

namespace {

kel::EnumTypeDeclaration const* EnumTypeOf(kel::EnumValueDeclaration const& value) {
    for (auto const* parent = value.tryGetParent(); parent != nullptr;
         parent = parent->tryGetParent()) {
        if (auto const* type = om::TryAs<kel::EnumTypeDeclaration>(parent)) {
            return type;
        }
    }
    return nullptr;
}

// Two-complement wrap-around without signed overflow.
std::int32_t Wrap(std::int64_t value) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

} // namespace

bool StateVariableValue::operator!=(StateVariableValue const& other) const {
    return !(*this == other);
}

BoolStateVariableValue::BoolStateVariableValue(bool value)
    : value(value ? kel::boolTrue : kel::boolFalse) {}

bool BoolStateVariableValue::operator==(StateVariableValue const& other) const {
    return this == &other || *this == dynamic_cast<BoolStateVariableValue const&>(other);
}

bool BoolStateVariableValue::operator==(BoolStateVariableValue const& other) const {
    if (this == &other) {
        return true;
    }
    if (value == kel::boolUnknown || other.value == kel::boolUnknown) {
        throw std::runtime_error("Invalid use of BooleanValue boolUnknown");
    }
    return value == other.value;
}

bool BoolStateVariableValue::operator!=(BoolStateVariableValue const& other) const {
    return !(*this == other);
}

std::unique_ptr<StateVariableValue> BoolStateVariableValue::clone() const {
    return std::make_unique<BoolStateVariableValue>(*this);
}

std::string BoolStateVariableValue::str() const {
    switch (value) {
    case kel::boolTrue:
        return "true";
    case kel::boolFalse:
        return "false";
    default:
        return "unknown";
    }
}

std::string BoolStateVariableValue::netName() const { return str(); }

bool BoolStateVariableValue::isTypeMatch(kel::TypeDeclaration const* type) const {
    return type != nullptr && kel::IsBool(*type);
}

IntStateVariableValue::IntStateVariableValue(StateVariableValue const& other)
    : value(dynamic_cast<IntStateVariableValue const&>(other).value) {}

bool IntStateVariableValue::operator==(StateVariableValue const& other) const {
    return this == &other || *this == dynamic_cast<IntStateVariableValue const&>(other);
}

bool IntStateVariableValue::operator==(IntStateVariableValue const& other) const {
    return value == other.value;
}

bool IntStateVariableValue::operator!=(IntStateVariableValue const& other) const {
    return value != other.value;
}

bool IntStateVariableValue::operator<(IntStateVariableValue const& other) const {
    return value < other.value;
}

bool IntStateVariableValue::operator>(IntStateVariableValue const& other) const {
    return value > other.value;
}

bool IntStateVariableValue::operator<=(IntStateVariableValue const& other) const {
    return value <= other.value;
}

bool IntStateVariableValue::operator>=(IntStateVariableValue const& other) const {
    return value >= other.value;
}

IntStateVariableValue IntStateVariableValue::operator+(IntStateVariableValue const& other) const {
    return IntStateVariableValue(Wrap(std::int64_t{value} + other.value));
}

IntStateVariableValue IntStateVariableValue::operator-(IntStateVariableValue const& other) const {
    return IntStateVariableValue(Wrap(std::int64_t{value} - other.value));
}

std::unique_ptr<StateVariableValue> IntStateVariableValue::clone() const {
    return std::make_unique<IntStateVariableValue>(*this);
}

std::string IntStateVariableValue::str() const { return kel::Int2String(value); }

std::string IntStateVariableValue::netName() const { return str(); }

bool IntStateVariableValue::isTypeMatch(kel::TypeDeclaration const* type) const {
    auto const* intType = type == nullptr ? nullptr : type->asIntTypeDeclaration();
    if (intType == nullptr) {
        return false;
    }
    try {
        return intType->getMinValue() <= value && value <= intType->getMaxValue();
    } catch (std::exception const&) {
        return false;
    }
}

bool EnumStateVariableValue::operator==(StateVariableValue const& other) const {
    return this == &other || *this == dynamic_cast<EnumStateVariableValue const&>(other);
}

bool EnumStateVariableValue::operator==(EnumStateVariableValue const& other) const {
    if (this != &other && EnumTypeOf(*value) != EnumTypeOf(*other.value)) {
        throw std::runtime_error("Incompatible enum types in assignment");
    }
    return value == other.value;
}

bool EnumStateVariableValue::operator!=(EnumStateVariableValue const& other) const {
    return !(*this == other);
}

std::unique_ptr<StateVariableValue> EnumStateVariableValue::clone() const {
    return std::make_unique<EnumStateVariableValue>(*this);
}

std::string EnumStateVariableValue::str() const {
    return EnumTypeOf(*value)->getName() + "." + value->getName();
}

std::string EnumStateVariableValue::netName() const {
    return EnumTypeOf(*value)->getName() + "_" + value->getName();
}

bool EnumStateVariableValue::isTypeMatch(kel::TypeDeclaration const* type) const {
    auto const* enumType = EnumTypeOf(*value);
    if (enumType == nullptr) {
        return type == nullptr;
    }
    return type != nullptr && type->getOid() == enumType->getOid();
}

StateVariableValuePtr CreateStateVariableValue(kel::PortReturn const& portReturn) {
    auto const* type = portReturn.type;
    if (type == nullptr) {
        return nullptr;
    }
    if (type->asEnumTypeDeclaration() != nullptr) {
        return std::make_unique<EnumStateVariableValue>(*portReturn.enumValue);
    }
    if (type->asIntTypeDeclaration() != nullptr) {
        return std::make_unique<IntStateVariableValue>(portReturn.intValue);
    }
    return std::make_unique<BoolStateVariableValue>(portReturn.boolValue);
}
