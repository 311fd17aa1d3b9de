// Ordered list of object ids that keeps a single id in place and needs the heap
// only from the second id on; the common part of association and composition values.
#pragma once

#include "om/OMException.h"
#include "om/Oid.h"

#include <cstdint>
#include <vector>

namespace om {

// Derived supplies `static constexpr bool uniqueIds` (whether the adding
// operations refuse an id that is already there) and `static constexpr char
// const* typeName` (its name in messages).
template <class Derived> class OidList {
public:
    using Index = std::uint64_t;
    using const_iterator = Oid const*;

    OidList() noexcept : m_id(NULL_OID), m_isVector(false) {}
    OidList(OidList const& other);
    OidList(OidList&& other) noexcept;
    OidList& operator=(OidList const& other);
    // Takes the ids of `other` and leaves it empty.
    OidList& operator=(OidList&& other) noexcept;
    ~OidList() { releaseVector(); }

    Index size() const { return m_isVector ? m_vector->size() : (m_id != NULL_OID ? 1 : 0); }
    Oid const& at(Index index) const;
    // The one id, or NULL_OID when empty; more than one id is an error.
    Oid get() const;
    // Back to the single form holding `id`; NULL_OID leaves the value empty.
    void set(Oid id);
    void setAt(Index index, Oid id);
    // clear() and push_back of each id, checked once for the whole list (a
    // sort, not a search per id); on an error the value stays as it was.
    void assign(std::vector<Oid> const& ids);
    void push_back(Oid id);
    // Appends unless the id is there already; returns whether it appended.
    bool insert(Oid id);
    // Inserts before `index`; `index == size()` appends.
    void insertAt(Index index, Oid id);
    // Removes every occurrence and returns how many there were.
    Index erase(Oid id);
    void eraseAt(Index index);
    void swap(Index index1, Index index2);
    // Empties the value but keeps its form.
    void clear();
    // Empties the value and returns to the single form.
    void clearCompletely();

    Index count(Oid id) const;
    bool contains(Oid id) const;
    Index indexOf(Oid id) const;
    std::vector<Oid> asOidVec() const { return std::vector<Oid>(begin(), end()); }
    void convertToVector();
    bool isVector() const { return m_isVector; }

    const_iterator begin() const { return m_isVector ? m_vector->data() : &m_id; }
    const_iterator end() const { return begin() + size(); }

    // The form is invisible: only the ids and their order count.
    bool operator==(OidList const& other) const;
    bool operator!=(OidList const& other) const { return !(*this == other); }
    // The smaller size is less; equal sizes compare element by element.
    bool operator<(OidList const& other) const;

private:
    Oid* mutableData() { return m_isVector ? m_vector->data() : &m_id; }
    void append(Oid id);
    void requireIndexBelowSize(Index index) const;
    void requireNotNull(Oid id) const;
    void requireUniqueIfNeeded(Oid id) const;
    // Takes the content of a value in the empty single form; leaves `other` empty.
    void stealFrom(OidList& other) noexcept;
    void releaseVector() noexcept;

    union {
        Oid m_id;
        std::vector<Oid>* m_vector;
    };
    bool m_isVector;
};

template <class Derived> Oid const& OidList<Derived>::at(Index index) const {
    requireIndexBelowSize(index);
    return begin()[index];
}

template <class Derived> Oid OidList<Derived>::get() const {
    if (!m_isVector) {
        return m_id;
    }
    if (m_vector->size() > 1) {
        throw OMException("Count must be <= 1");
    }
    return m_vector->empty() ? NULL_OID : m_vector->front();
}

} // namespace om
