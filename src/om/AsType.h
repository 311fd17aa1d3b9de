// Checked cast of an object to one of its classes.
#pragma once

#include "om/OMException.h"
#include "om/Object.h"

namespace om {

template <class T> T const& AsType(Object const& object) {
    auto const* typed = dynamic_cast<T const*>(&object);
    if (typed == nullptr) {
        throw OMException("AsType(): Object is not of the requested type.");
    }
    return *typed;
}

} // namespace om
