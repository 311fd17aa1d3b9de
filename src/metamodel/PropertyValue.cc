#include "metamodel/PropertyValue.h"

#include "om/OMException.h"
#include "om/PropertyDefinition.h"

namespace kel {
namespace {

PropertyValue const& SameClass(om::PropertyValueImpl const& other, char const* error) {
    auto const* value = dynamic_cast<PropertyValue const*>(&other);
    if (value == nullptr) {
        throw om::OMException(error);
    }
    return *value;
}

} // namespace

PropertyValue::PropertyValue(PropertyType type) { retag(type); }
PropertyValue::PropertyValue(std::int32_t value) { *this = value; }
PropertyValue::PropertyValue(bool value) { *this = value; }
PropertyValue::PropertyValue(EventDirection value) { *this = value; }
PropertyValue::PropertyValue(PortDirection value) { *this = value; }
PropertyValue::PropertyValue(ParameterDirection value) { *this = value; }
PropertyValue::PropertyValue(BooleanValue value) { *this = value; }
PropertyValue::PropertyValue(std::string const& value) { *this = value; }
PropertyValue::PropertyValue(char const* value) { *this = value; }

PropertyValue::PropertyValue(PropertyValue const& other) : om::PropertyValueImpl(other) {
    *this = other;
}

PropertyValue::~PropertyValue() { retag(ptUnknown); }

PropertyValue& PropertyValue::operator=(PropertyValue const& other) {
    if (this == &other) {
        return *this;
    }
    retag(other.m_type);
    if (m_type == ptString) {
        *m_string = *other.m_string;
    } else if (m_type == ptBool) {
        m_bool = other.m_bool;
    } else {
        m_number = other.m_number;
    }
    return *this;
}

template <class Enum> PropertyValue& PropertyValue::storeNumber(PropertyType type, Enum value) {
    retag(type);
    m_number = value;
    return *this;
}

PropertyValue& PropertyValue::operator=(std::int32_t value) { return storeNumber(ptInt, value); }
PropertyValue& PropertyValue::operator=(EventDirection value) {
    return storeNumber(ptEventDirection, value);
}
PropertyValue& PropertyValue::operator=(PortDirection value) {
    return storeNumber(ptPortDirection, value);
}
PropertyValue& PropertyValue::operator=(ParameterDirection value) {
    return storeNumber(ptParameterDirection, value);
}
PropertyValue& PropertyValue::operator=(BooleanValue value) {
    return storeNumber(ptBooleanValue, value);
}

PropertyValue& PropertyValue::operator=(bool value) {
    retag(ptBool);
    m_bool = value;
    return *this;
}

PropertyValue& PropertyValue::operator=(std::string const& value) {
    retag(ptString);
    *m_string = value;
    return *this;
}

PropertyValue& PropertyValue::operator=(char const* value) { return *this = std::string(value); }

void PropertyValue::retag(PropertyType type) {
    if (m_type == type) {
        return;
    }
    if (m_type == ptString) {
        delete m_string;
    }
    m_type = type;
    if (type == ptString) {
        m_string = new std::string();
    } else if (type == ptBool) {
        m_bool = false;
    } else {
        m_number = 0;
    }
}

void PropertyValue::requireType(PropertyType type) const {
    if (m_type != type) {
        throw om::OMException("Incorrect property type");
    }
}

std::int32_t PropertyValue::getInt() const {
    requireType(ptInt);
    return m_number;
}

bool PropertyValue::getBool() const {
    requireType(ptBool);
    return m_bool;
}

EventDirection PropertyValue::getEventDirection() const {
    requireType(ptEventDirection);
    return EventDirection(m_number);
}

PortDirection PropertyValue::getPortDirection() const {
    requireType(ptPortDirection);
    return PortDirection(m_number);
}

ParameterDirection PropertyValue::getParameterDirection() const {
    requireType(ptParameterDirection);
    return ParameterDirection(m_number);
}

BooleanValue PropertyValue::getBooleanValue() const {
    requireType(ptBooleanValue);
    return BooleanValue(m_number);
}

std::string const& PropertyValue::getString() const {
    requireType(ptString);
    return *m_string;
}

std::unique_ptr<om::PropertyValueImpl> PropertyValue::clone() const {
    return std::make_unique<PropertyValue>(*this);
}

void PropertyValue::assign(om::PropertyValueImpl const& other) {
    if (this != &other) {
        *this = SameClass(other, "PropertyValue::assign: assigning different class??");
    }
}

bool PropertyValue::equals(om::PropertyValueImpl const& other) const {
    return *this == SameClass(other, "PropertyValue::equals: different class??");
}

bool PropertyValue::less(om::PropertyValueImpl const& other) const {
    return *this < SameClass(other, "PropertyValue::less: different class??");
}

bool PropertyValue::validate(om::PropertyDefinition const& definition, std::string& error) const {
    if (definition.getType() == m_type) {
        return true;
    }
    error = "Incorrect property type (" + PropertyTypeToString(m_type) + " instead of " +
            PropertyTypeToString(definition.getType()) + ")";
    return false;
}

bool PropertyValue::operator==(PropertyValue const& other) const {
    if (m_type != other.m_type) {
        return false;
    }
    switch (m_type) {
    case ptUnknown:
        return true;
    case ptString:
        return *m_string == *other.m_string;
    case ptBool:
        return m_bool == other.m_bool;
    default:
        return m_number == other.m_number;
    }
}

bool PropertyValue::operator<(PropertyValue const& other) const {
    if (m_type != other.m_type) {
        return m_type < other.m_type;
    }
    switch (m_type) {
    case ptUnknown:
        return false;
    case ptString:
        return *m_string < *other.m_string;
    case ptBool:
        return m_bool && !other.m_bool;
    default:
        return m_number < other.m_number;
    }
}

} // namespace kel
