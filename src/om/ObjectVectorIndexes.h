// Indexes over a vector of objects that are not yet in a store.
#pragma once

#include "om/Oid.h"

#include <map>
#include <set>
#include <vector>

namespace om {

class Object;

// Each object under its id; of two objects with one id the first stays.
void createIndex(std::vector<Object*> const& objects, std::map<Oid, Object*>& index);

// Each child id to the id of the object that holds it; of two parents the first stays.
void createChild2ParentMap(std::vector<Object*> const& objects, std::map<Oid, Oid>& child2parent);

// The ids of the objects that are no child in the map.
void createRootObjectsSet(std::vector<Object*> const& objects,
                          std::map<Oid, Oid> const& child2parent, std::set<Oid>& roots);

} // namespace om
