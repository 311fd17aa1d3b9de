// Checked cast of an object to one of its classes.
#pragma once

#include "om/OMException.h"
#include "om/Object.h"

#include <typeinfo>

namespace om {

template <class T> T const& AsType(Object const& object) {
    // An object of exactly class T, the usual case, needs no walk of the
    // class tree. The addresses of two type descriptions of one class could
    // differ only across shared libraries, and then the walk decides.
    if (&typeid(object) == &typeid(T)) {
        return static_cast<T const&>(object);
    }
    auto const* typed = dynamic_cast<T const*>(&object);
    if (typed == nullptr) {
        throw OMException("AsType(): Object is not of the requested type.");
    }
    return *typed;
}

} // namespace om
