// The steps that every construction helper repeats: make an object in the
// store, change a local copy of it, and store the copy back.
#pragma once

#include "om/AsType.h"
#include "om/Object.h"
#include "om/ObjectModel.h"

#include <string>
#include <vector>

namespace kel {

// A local copy of a new object of class T, made with its required children.
template <class T> T NewCopy(om::ObjectModel& model) {
    return T(om::AsType<T>(*model.createRecursive(T::ClassName)));
}

// Stores a changed copy and returns its id.
inline om::Oid Store(om::ObjectModel& model, om::Object const& copy) {
    model.update(copy);
    return copy.getOid();
}

// The stored object with that id, which must be of class T.
template <class T> T const& Find(om::ObjectModel const& model, om::Oid id) {
    return om::AsType<T>(*model.find(id));
}

// The ids, each found in the store as an object of class T.
template <class T>
std::vector<om::Oid> const& Checked(om::ObjectModel const& model, std::vector<om::Oid> const& ids) {
    for (auto const id : ids) {
        Find<T>(model, id);
    }
    return ids;
}

// A new named object, stored; references keep their name unresolved.
template <class T> om::Oid NewNamed(om::ObjectModel& model, std::string const& name) {
    auto copy = NewCopy<T>(model);
    copy.setName(name);
    return Store(model, copy);
}

} // namespace kel
