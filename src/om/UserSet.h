// The users entry of one object: the ids of the objects that name it in
// their associations. Most objects have one user or none, so that one is
// held in place; a few more sit in a sorted vector. A source file is named by
// every object located in it, so many users go to a map by id, whose ids lie
// close together: adding and removing cost the same in any order.
#pragma once

#include "om/DenseIdMap.h"
#include "om/Oid.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace om {

class UserSet {
public:
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
    struct Present {
        bool operator==(Present const&) const = default;
    };
    // More than one user: sorted in `few` up to FewUsers, then all in `all`.
    struct Many {
        std::vector<Oid> few;
        std::unique_ptr<DenseIdMap<Present>> all;
    };
    static constexpr std::size_t FewUsers = 64;

    bool insertIntoMany(Oid id);

    Oid m_single = NULL_OID; // the one user while there is at most one
    std::unique_ptr<Many> m_many;
};

} // namespace om
