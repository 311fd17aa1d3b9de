// Interface of a typed property value; the metamodel supplies the one implementation.
#pragma once

#include <memory>
#include <string>

namespace om {

class PropertyDefinition;

class PropertyValueImpl {
public:
    virtual ~PropertyValueImpl() = default;

    // A new copy, owned by the caller.
    virtual std::unique_ptr<PropertyValueImpl> clone() const = 0;
    // Takes the content of another value of the same implementation.
    virtual void assign(PropertyValueImpl const& other) = 0;
    virtual bool equals(PropertyValueImpl const& other) const = 0;
    virtual bool less(PropertyValueImpl const& other) const = 0;
    // Whether the value fits the definition; on false, errorText says why.
    virtual bool validate(PropertyDefinition const& definition, std::string& errorText) const = 0;

protected:
    PropertyValueImpl() = default;
    PropertyValueImpl(PropertyValueImpl const&) = default;
    PropertyValueImpl& operator=(PropertyValueImpl const&) = default;
};

} // namespace om
