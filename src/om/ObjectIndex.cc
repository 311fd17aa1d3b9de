#include "om/ObjectIndex.h"

#include "om/Object.h"

#include <utility>

namespace om {

Object& ObjectIndex::insert(std::unique_ptr<Object> object) {
    // At most half full, so that every probe sequence soon meets an empty slot.
    if (2 * (m_size + 1) > m_slots.size()) {
        grow();
    }
    Object& inserted = *object;
    place(Slot{inserted.getOid(), std::move(object)});
    ++m_size;
    return inserted;
}

std::unique_ptr<Object> ObjectIndex::extract(Oid id) {
    if (m_size == 0 || id == NULL_OID) {
        return nullptr;
    }
    std::size_t hole = homeOf(id);
    while (m_slots[hole].id != id) {
        if (m_slots[hole].id == NULL_OID) {
            return nullptr;
        }
        hole = (hole + 1) & m_mask;
    }
    std::unique_ptr<Object> extracted = std::move(m_slots[hole].object);
    m_slots[hole].id = NULL_OID;
    --m_size;
    // Backward shift: pull later entries of the run into the hole unless
    // their home lies cyclically after the hole, so no tombstones are needed.
    for (std::size_t next = (hole + 1) & m_mask; m_slots[next].id != NULL_OID;
         next = (next + 1) & m_mask) {
        std::size_t const home = homeOf(m_slots[next].id);
        bool const staysPut =
            hole <= next ? (hole < home && home <= next) : (hole < home || home <= next);
        if (!staysPut) {
            m_slots[hole] = std::move(m_slots[next]);
            m_slots[next].id = NULL_OID;
            hole = next;
        }
    }
    return extracted;
}

void ObjectIndex::clear() {
    m_slots.clear();
    m_size = 0;
    m_mask = 0;
    m_shift = 64;
}

void ObjectIndex::place(Slot slot) {
    std::size_t i = homeOf(slot.id);
    while (m_slots[i].id != NULL_OID) {
        i = (i + 1) & m_mask;
    }
    m_slots[i] = std::move(slot);
}

void ObjectIndex::grow() {
    std::size_t const capacity = m_slots.empty() ? 64 : 2 * m_slots.size();
    std::vector<Slot> old = std::exchange(m_slots, std::vector<Slot>(capacity));
    m_mask = capacity - 1;
    m_shift = 64 - static_cast<unsigned>(std::countr_zero(capacity));
    for (Slot& slot : old) {
        if (slot.id != NULL_OID) {
            place(std::move(slot));
        }
    }
}

} // namespace om
