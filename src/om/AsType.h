// Casts of an object to one of its classes: a comparison of class kinds.
#pragma once

#include "om/OMException.h"
#include "om/Object.h"

namespace om {

template <class T> bool IsA(Object const& object) {
    auto const kind = object.classKind();
    return kind >= T::FirstKind && kind <= T::LastKind;
}

// Null when `object` is null or not of class T.
template <class T> T const* TryAs(Object const* object) {
    return object != nullptr && IsA<T>(*object) ? static_cast<T const*>(object) : nullptr;
}

template <class T> T const& AsType(Object const& object) {
    if (!IsA<T>(object)) {
        throw OMException("AsType(): Object is not of the requested type.");
    }
    return static_cast<T const&>(object);
}

} // namespace om
