// The PropertyValue behind an om::PropertyValueBase. An empty handle fails
// in getImpl; an implementation of another class raises std::bad_cast.
#pragma once

#include "metamodel/PropertyValue.h"
#include "om/PropertyValueBase.h"

#include <boost/throw_exception.hpp>

#include <typeinfo>

namespace kel {

// The class is final, so comparing the dynamic type is the whole check.
inline PropertyValue const& PropCast(om::PropertyValueBase const& value) {
    auto const& impl = value.getImpl();
    if (typeid(impl) != typeid(PropertyValue)) {
        boost::throw_exception(std::bad_cast());
    }
    return static_cast<PropertyValue const&>(impl);
}

inline PropertyValue& PropCastRef(om::PropertyValueBase& value) {
    auto& impl = value.getImpl();
    if (typeid(impl) != typeid(PropertyValue)) {
        boost::throw_exception(std::bad_cast());
    }
    return static_cast<PropertyValue&>(impl);
}

} // namespace kel
