// The steps that every construction helper repeats: make a new object
// outside the store, fill it in, and insert it whole; or change a local copy
// of a stored object and store the copy back.
#pragma once

#include "om/AsType.h"
#include "om/Object.h"
#include "om/ObjectModel.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kel {

// A local copy of a new stored object of class T, made with its required children.
template <class T> T NewCopy(om::ObjectModel& model) {
    return T(om::AsType<T>(*model.createRecursive(T::ClassName)));
}

// A new object of class T that knows its store, so that its setters find
// the objects they are given, but is not in it yet: the caller sets every
// required child before it inserts the object.
template <class T> T NewObject(om::ObjectModel& model) {
    T object;
    object.setOwner(&model);
    return object;
}

// Inserts a new object made by NewObject and returns its id.
template <class T> om::Oid Insert(om::ObjectModel& model, T object) {
    return model.insert(std::make_unique<T>(std::move(object))).getOid();
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
    auto object = NewObject<T>(model);
    object.setName(name);
    return Insert(model, std::move(object));
}

} // namespace kel
