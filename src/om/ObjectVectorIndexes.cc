#include "om/ObjectVectorIndexes.h"

#include "om/Object.h"

namespace om {

void createIndex(std::vector<Object*> const& objects, std::map<Oid, Object*>& index) {
    for (Object* object : objects) {
        index.emplace(object->getOid(), object);
    }
}

void createChild2ParentMap(std::vector<Object*> const& objects, std::map<Oid, Oid>& child2parent) {
    for (Object const* object : objects) {
        for (Oid const childId : object->getAllChildren()) {
            child2parent.emplace(childId, object->getOid());
        }
    }
}

void createRootObjectsSet(std::vector<Object*> const& objects,
                          std::map<Oid, Oid> const& child2parent, std::set<Oid>& roots) {
    for (Object const* object : objects) {
        if (!child2parent.contains(object->getOid())) {
            roots.insert(object->getOid());
        }
    }
}

} // namespace om
