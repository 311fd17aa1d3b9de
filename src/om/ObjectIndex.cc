#include "om/ObjectIndex.h"

#include "om/Object.h"

#include <utility>

namespace om {

Object& ObjectIndex::insert(std::unique_ptr<Object> object) {
    Object& inserted = *object;
    *m_objects.tryEmplace(inserted.getOid()).first = std::move(object);
    return inserted;
}

std::unique_ptr<Object> ObjectIndex::extract(Oid id) {
    std::unique_ptr<Object>* slot = m_objects.find(id);
    if (slot == nullptr) {
        return nullptr;
    }
    std::unique_ptr<Object> extracted = std::move(*slot);
    m_objects.erase(id);
    return extracted;
}

} // namespace om
