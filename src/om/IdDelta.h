// What changed between the ids of two member maps (associations or
// compositions) of one object, found without sorting the lists that an edit
// leaves alone: only what lies between the common head and tail of each list
// is compared. So an edit of one id in a list of thousands stays cheap.
#pragma once

#include "om/Object.h"
#include "om/Oid.h"

#include <vector>

namespace om {

struct IdDelta {
    // Ascending and without repetition, each. An id in `removed` may still be
    // held elsewhere in the new map; dropStillHeld settles that.
    std::vector<Oid> removed;
    // Ascending and without repetition; an id may have been held before
    // elsewhere in the old map, which the caller can tell from its indexes.
    std::vector<Oid> added;
};

IdDelta deltaOf(Object::AssociationMap const& before, Object::AssociationMap const& after);
IdDelta deltaOf(Object::CompositionMap const& before, Object::CompositionMap const& after);

// Keeps only the ids that no list of `after` holds.
void dropStillHeld(std::vector<Oid>& removed, Object::AssociationMap const& after);
void dropStillHeld(std::vector<Oid>& removed, Object::CompositionMap const& after);

} // namespace om
