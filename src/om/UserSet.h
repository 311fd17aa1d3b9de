// The users entry of one object: the ids of the objects that name it in
// their associations. Every object has an entry, and most have one user or
// none, so an entry is one word that holds that user itself. More users sit
// in a sorted vector while few; a source file is named by every object
// located in it, so many users go to a map by id, whose ids lie close
// together: adding and removing cost the same in any order.
#pragma once

#include "om/Oid.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace om {

class UserSet {
public:
    UserSet() noexcept = default;
    UserSet(UserSet&& other) noexcept : m_word(std::exchange(other.m_word, 0)) {}
    UserSet& operator=(UserSet&& other) noexcept {
        if (this != &other) {
            releaseMany();
            m_word = std::exchange(other.m_word, 0);
        }
        return *this;
    }
    ~UserSet() { releaseMany(); }

    // Each returns whether the set changed.
    bool insert(Oid id);
    bool erase(Oid id);
    bool contains(Oid id) const;
    std::size_t size() const;
    bool empty() const { return size() == 0; }
    // The ids in ascending order.
    std::vector<Oid> sorted() const;

    bool operator==(UserSet const& other) const { return sorted() == other.sorted(); }

private:
    struct Many;

    bool holdsMany() const { return m_word != 0 && (m_word & 1) == 0; }
    Many& many() const { return *reinterpret_cast<Many*>(m_word); }
    // The one user, or NULL_OID when the word holds none or many.
    Oid single() const {
        return (m_word & 1) != 0 ? static_cast<Oid>(static_cast<std::int64_t>(m_word) >> 1)
                                 : NULL_OID;
    }
    // Holds `id` as the one user when the word can; returns whether it could.
    bool holdSingle(Oid id);
    void releaseMany() noexcept {
        if (holdsMany()) {
            deleteMany();
        }
    }
    void deleteMany() noexcept;
    bool insertIntoMany(Oid id);

    // 0: no user. Odd: one user, its id shifted up by one bit. Else the
    // address of the users, which an allocation aligns to even.
    std::uintptr_t m_word = 0;
};

} // namespace om
