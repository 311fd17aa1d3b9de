// Owning handle of a property value; deep copies, may be empty.
#pragma once

#include "om/PropertyValueImpl.h"

#include <memory>
#include <string>

namespace om {

class PropertyValueBase {
public:
    PropertyValueBase() = default;
    explicit PropertyValueBase(std::unique_ptr<PropertyValueImpl> impl);
    // Holds a clone of the value.
    explicit PropertyValueBase(PropertyValueImpl const& value);
    PropertyValueBase(PropertyValueBase const& other);
    PropertyValueBase(PropertyValueBase&& other) noexcept = default;
    PropertyValueBase& operator=(PropertyValueBase const& other);
    PropertyValueBase& operator=(PropertyValueBase&& other) noexcept = default;
    ~PropertyValueBase() = default;

    bool operator==(PropertyValueBase const& other) const;
    bool operator!=(PropertyValueBase const& other) const { return !(*this == other); }
    // An empty handle orders before a present one.
    bool operator<(PropertyValueBase const& other) const;

    // An empty handle fails with "Value implementation is NULL".
    bool validate(PropertyDefinition const& definition, std::string& errorText) const;

    bool hasImpl() const { return m_impl != nullptr; }
    PropertyValueImpl const& getImpl() const;
    PropertyValueImpl& getImpl();

private:
    std::unique_ptr<PropertyValueImpl> m_impl;
};

} // namespace om
