// The store's table from id to owned object: a vector indexed by id over the
// window of ids that the store holds, so that a lookup is one index.
#pragma once

#include "om/DenseIdMap.h"
#include "om/Oid.h"

#include <cstddef>
#include <memory>

namespace om {

class Object;

class ObjectIndex {
public:
    // The object under `id`, or null; NULL_OID is never a key.
    Object* find(Oid id) const noexcept {
        std::unique_ptr<Object> const* slot = m_objects.find(id);
        return slot != nullptr ? slot->get() : nullptr;
    }
    bool contains(Oid id) const noexcept { return find(id) != nullptr; }
    std::size_t size() const { return m_objects.size(); }

    // Takes the object under its id, which the table must not hold yet.
    Object& insert(std::unique_ptr<Object> object);
    // Gives the object under `id` back to the caller; null when there is none.
    std::unique_ptr<Object> extract(Oid id);
    void clear() { m_objects.clear(); }

    // Calls visit(object) for every object, in ascending id order.
    template <class Visit> void forEach(Visit visit) const {
        m_objects.forEach([&](Oid, std::unique_ptr<Object> const& object) { visit(*object); });
    }

private:
    DenseIdMap<std::unique_ptr<Object>> m_objects;
};

} // namespace om
