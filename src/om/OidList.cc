#include "om/OidList.h"

#include "om/AssociationValue.h"
#include "om/CompositionValue.h"

#include <algorithm>
#include <string>
#include <utility>

namespace om {

template <class Derived> OidList<Derived>::OidList(OidList const& other)
    : m_id(NULL_OID), m_isVector(other.m_isVector) {
    if (m_isVector) {
        m_vector = new std::vector<Oid>(*other.m_vector);
    } else {
        m_id = other.m_id;
    }
}

template <class Derived> OidList<Derived>::OidList(OidList&& other) noexcept
    : m_id(NULL_OID), m_isVector(false) {
    stealFrom(other);
}

template <class Derived> OidList<Derived>& OidList<Derived>::operator=(OidList const& other) {
    if (this == &other) {
        return *this;
    }
    if (!other.m_isVector) {
        releaseVector();
        m_id = other.m_id;
    } else if (m_isVector) {
        *m_vector = *other.m_vector; // reuses the allocation
    } else {
        m_vector = new std::vector<Oid>(*other.m_vector);
        m_isVector = true;
    }
    return *this;
}

template <class Derived> OidList<Derived>& OidList<Derived>::operator=(OidList&& other) noexcept {
    if (this != &other) {
        releaseVector();
        stealFrom(other);
    }
    return *this;
}

template <class Derived> void OidList<Derived>::set(Oid id) {
    releaseVector();
    m_id = id;
}

template <class Derived> void OidList<Derived>::setAt(Index index, Oid id) {
    requireIndexBelowSize(index);
    if (id == NULL_OID) {
        throw OMException("id cannot be NULL_OID");
    }
    if (Derived::uniqueIds && begin()[index] != id && contains(id)) {
        throw OMException("id not unique");
    }
    mutableData()[index] = id;
}

template <class Derived> void OidList<Derived>::assign(std::vector<Oid> const& ids) {
    if (std::ranges::find(ids, NULL_OID) != ids.end()) {
        throw OMException("id may not be NULL_OID");
    }
    if (Derived::uniqueIds) {
        std::vector<Oid> sorted = ids;
        std::ranges::sort(sorted);
        if (std::adjacent_find(sorted.begin(), sorted.end()) != sorted.end()) {
            throw OMException("id not unique");
        }
    }
    if (m_isVector) {
        *m_vector = ids;
    } else if (ids.size() <= 1) {
        m_id = ids.empty() ? NULL_OID : ids.front();
    } else {
        m_vector = new std::vector<Oid>(ids);
        m_isVector = true;
    }
}

template <class Derived> void OidList<Derived>::push_back(Oid id) {
    requireNotNull(id);
    requireUniqueIfNeeded(id);
    append(id);
}

template <class Derived> bool OidList<Derived>::insert(Oid id) {
    requireNotNull(id);
    if (contains(id)) {
        return false;
    }
    append(id);
    return true;
}

template <class Derived> void OidList<Derived>::insertAt(Index index, Oid id) {
    if (index > size()) {
        throw OMException("Index out of range");
    }
    requireNotNull(id);
    requireUniqueIfNeeded(id);
    if (index == size()) {
        append(id);
        return;
    }
    if (!m_isVector) {
        convertToVector();
    }
    m_vector->insert(m_vector->begin() + static_cast<std::ptrdiff_t>(index), id);
}

template <class Derived> typename OidList<Derived>::Index OidList<Derived>::erase(Oid id) {
    if (m_isVector) {
        return std::erase(*m_vector, id);
    }
    if (id == NULL_OID || m_id != id) {
        return 0;
    }
    m_id = NULL_OID;
    return 1;
}

template <class Derived> void OidList<Derived>::eraseAt(Index index) {
    requireIndexBelowSize(index);
    if (m_isVector) {
        m_vector->erase(m_vector->begin() + static_cast<std::ptrdiff_t>(index));
    } else {
        m_id = NULL_OID;
    }
}

template <class Derived> void OidList<Derived>::swap(Index index1, Index index2) {
    if (index1 >= size()) {
        throw OMException("index1 out of range");
    }
    if (index2 >= size()) {
        throw OMException("index2 out of range");
    }
    std::swap(mutableData()[index1], mutableData()[index2]);
}

template <class Derived> void OidList<Derived>::clear() {
    if (m_isVector) {
        m_vector->clear();
    } else {
        m_id = NULL_OID;
    }
}

template <class Derived> void OidList<Derived>::clearCompletely() {
    releaseVector();
    m_id = NULL_OID;
}

template <class Derived> typename OidList<Derived>::Index OidList<Derived>::count(Oid id) const {
    return static_cast<Index>(std::count(begin(), end(), id));
}

template <class Derived> bool OidList<Derived>::contains(Oid id) const {
    return std::find(begin(), end(), id) != end();
}

template <class Derived> typename OidList<Derived>::Index OidList<Derived>::indexOf(Oid id) const {
    auto const found = std::find(begin(), end(), id);
    if (found == end()) {
        throw OMException(std::string(Derived::typeName) + "::indexOf(): OID not found");
    }
    return static_cast<Index>(found - begin());
}

template <class Derived> void OidList<Derived>::convertToVector() {
    if (m_isVector) {
        throw OMException(std::string(Derived::typeName) + " is already a vector");
    }
    auto* elements = m_id == NULL_OID ? new std::vector<Oid>() : new std::vector<Oid>{m_id};
    m_vector = elements;
    m_isVector = true;
}

template <class Derived> bool OidList<Derived>::operator==(OidList const& other) const {
    return std::equal(begin(), end(), other.begin(), other.end());
}

template <class Derived> bool OidList<Derived>::operator<(OidList const& other) const {
    if (size() != other.size()) {
        return size() < other.size();
    }
    return std::lexicographical_compare(begin(), end(), other.begin(), other.end());
}

template <class Derived> void OidList<Derived>::append(Oid id) {
    if (m_isVector) {
        m_vector->push_back(id);
    } else if (m_id == NULL_OID) {
        m_id = id; // the single form: no allocation
    } else {
        m_vector = new std::vector<Oid>{m_id, id};
        m_isVector = true;
    }
}

template <class Derived> void OidList<Derived>::requireIndexBelowSize(Index index) const {
    if (index >= size()) {
        throw OMException("Index out of range");
    }
}

template <class Derived> void OidList<Derived>::requireNotNull(Oid id) const {
    if (id == NULL_OID) {
        throw OMException("id may not be NULL_OID");
    }
}

template <class Derived> void OidList<Derived>::requireUniqueIfNeeded(Oid id) const {
    if (Derived::uniqueIds && contains(id)) {
        throw OMException("id not unique");
    }
}

template <class Derived> void OidList<Derived>::stealFrom(OidList& other) noexcept {
    if (other.m_isVector) {
        m_vector = other.m_vector;
        m_isVector = true;
        other.m_isVector = false;
    } else {
        m_id = other.m_id;
    }
    other.m_id = NULL_OID;
}

template <class Derived> void OidList<Derived>::releaseVector() noexcept {
    if (m_isVector) {
        delete m_vector;
        m_isVector = false;
        m_id = NULL_OID;
    }
}

template class OidList<AssociationValue>;
template class OidList<CompositionValue>;

} // namespace om
