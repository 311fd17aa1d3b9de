// The store's table from id to owned object: open addressing with linear
// probing in one array, so that a lookup mostly touches one cache line.
#pragma once

#include "om/Oid.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace om {

class Object;

class ObjectIndex {
public:
    // The object under `id`, or null; NULL_OID is never a key.
    Object* find(Oid id) const noexcept {
        if (m_size == 0) {
            return nullptr;
        }
        for (std::size_t i = homeOf(id);; i = (i + 1) & m_mask) {
            Slot const& slot = m_slots[i];
            if (slot.id == id) {
                return slot.object.get();
            }
            if (slot.id == NULL_OID) {
                return nullptr;
            }
        }
    }
    bool contains(Oid id) const noexcept { return find(id) != nullptr; }
    std::size_t size() const { return m_size; }

    // Takes the object under its id, which the table must not hold yet.
    Object& insert(std::unique_ptr<Object> object);
    // Gives the object under `id` back to the caller; null when there is none.
    std::unique_ptr<Object> extract(Oid id);
    void clear();

    // Calls visit(object) for every object, in no particular order.
    template <class Visit> void forEach(Visit visit) const {
        for (Slot const& slot : m_slots) {
            if (slot.id != NULL_OID) {
                visit(*slot.object);
            }
        }
    }

private:
    struct Slot {
        Oid id = NULL_OID;
        std::unique_ptr<Object> object;
    };

    // Fibonacci hashing spreads the consecutive ids of the generator over the table.
    std::size_t homeOf(Oid id) const noexcept {
        return static_cast<std::size_t>((static_cast<std::uint64_t>(id) * 0x9E3779B97F4A7C15ull) >>
                                        m_shift);
    }
    void place(Slot slot);
    void grow();

    std::vector<Slot> m_slots;
    std::size_t m_size = 0;
    std::size_t m_mask = 0;
    unsigned m_shift = 64;
};

} // namespace om
