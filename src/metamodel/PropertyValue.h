// The one property value implementation of the metamodel: a tag of
// PropertyType and a slot for a text, an integer, a boolean or an enumerator.
#pragma once

#include "metamodel/Enumerations.h"
#include "om/PropertyValueImpl.h"

#include <cstdint>
#include <memory>
#include <string>

namespace kel {

class PropertyValue final : public om::PropertyValueImpl {
public:
    // Tag ptUnknown, no value.
    PropertyValue() = default;
    // The type's empty value: "", 0, false or the enumerator 0.
    explicit PropertyValue(PropertyType type);
    explicit PropertyValue(std::int32_t value);
    explicit PropertyValue(bool value);
    explicit PropertyValue(EventDirection value);
    explicit PropertyValue(PortDirection value);
    explicit PropertyValue(ParameterDirection value);
    explicit PropertyValue(BooleanValue value);
    explicit PropertyValue(std::string const& value);
    explicit PropertyValue(char const* value);
    PropertyValue(PropertyValue const& other);
    ~PropertyValue() override;

    PropertyValue& operator=(PropertyValue const& other);
    // Each changes the tag when it differs, then stores the value.
    PropertyValue& operator=(std::int32_t value);
    PropertyValue& operator=(bool value);
    PropertyValue& operator=(EventDirection value);
    PropertyValue& operator=(PortDirection value);
    PropertyValue& operator=(ParameterDirection value);
    PropertyValue& operator=(BooleanValue value);
    PropertyValue& operator=(std::string const& value);
    PropertyValue& operator=(char const* value);

    // Write the slot as it stands: the tag must already be the value's type.
    void setUnchecked(std::int32_t value) { m_number = value; }
    void setUnchecked(bool value) { m_bool = value; }
    void setUnchecked(EventDirection value) { m_number = value; }
    void setUnchecked(PortDirection value) { m_number = value; }
    void setUnchecked(ParameterDirection value) { m_number = value; }
    void setUnchecked(BooleanValue value) { m_number = value; }
    void setUnchecked(std::string const& value) { *m_string = value; }
    void setUnchecked(char const* value) { *m_string = value; }

    // Each raises OMException "Incorrect property type" unless the tag agrees.
    std::int32_t getInt() const;
    bool getBool() const;
    EventDirection getEventDirection() const;
    PortDirection getPortDirection() const;
    ParameterDirection getParameterDirection() const;
    BooleanValue getBooleanValue() const;
    std::string const& getString() const;

    // Read the slot as it stands: the tag must already be the value's type.
    std::int32_t getUncheckedInt() const { return m_number; }
    bool getUncheckedBool() const { return m_bool; }
    EventDirection getUncheckedEventDirection() const { return EventDirection(m_number); }
    PortDirection getUncheckedPortDirection() const { return PortDirection(m_number); }
    ParameterDirection getUncheckedParameterDirection() const {
        return ParameterDirection(m_number);
    }
    BooleanValue getUncheckedBooleanValue() const { return BooleanValue(m_number); }
    std::string const& getUncheckedString() const { return *m_string; }

    PropertyType getType() const { return m_type; }

    std::unique_ptr<om::PropertyValueImpl> clone() const override;
    void assign(om::PropertyValueImpl const& other) override;
    bool equals(om::PropertyValueImpl const& other) const override;
    bool less(om::PropertyValueImpl const& other) const override;
    bool validate(om::PropertyDefinition const& definition, std::string& error) const override;

    bool operator==(PropertyValue const& other) const;
    bool operator!=(PropertyValue const& other) const { return !(*this == other); }
    // Tags first; then text, number or enumerator order, and true before false.
    bool operator<(PropertyValue const& other) const;

private:
    // Drops the old content and takes the type's empty value.
    void retag(PropertyType type);
    void requireType(PropertyType type) const;
    template <class Enum> PropertyValue& storeNumber(PropertyType type, Enum value);

    PropertyType m_type = ptUnknown;
    union {
        std::string* m_string = nullptr; // owned when the tag is ptString
        std::int32_t m_number;           // integers and enumerators
        bool m_bool;
    };
};

} // namespace kel
