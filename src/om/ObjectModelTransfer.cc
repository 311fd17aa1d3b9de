// ObjectModel: moving whole trees of objects in and out of the store.
#include "om/OMException.h"
#include "om/ObjectModel.h"
#include "om/ObjectVectorIndexes.h"

namespace om {

void ObjectModel::addObjects(OwnedObjects& objects) {
    std::vector<Object*> view;
    view.reserve(objects.size());
    for (auto const& object : objects) {
        view.push_back(object.get());
    }
    std::map<Oid, Object*> index;
    createIndex(view, index);
    std::map<Oid, Oid> child2parent;
    createChild2ParentMap(view, child2parent);
    OidSet roots;
    createRootObjectsSet(view, child2parent, roots);
    checkObjectsToAdd(view, index, roots);

    // The checks made the ids unique, so each id names one slot of the vector.
    std::map<Oid, std::unique_ptr<Object>*> slots;
    for (auto& object : objects) {
        slots.emplace(object->getOid(), &object);
    }
    std::vector<Object const*> entered;
    for (Oid const rootId : roots) {
        adoptTree(rootId, slots, entered);
    }
    // Only what was entered names its targets: an object that hangs from no
    // root stays with the caller and uses nothing in this store.
    for (Object const* object : entered) {
        for (Oid const target : object->getAllAssociations()) {
            m_users[target].insert(object->getOid());
        }
    }
    std::erase(objects, nullptr);
}

void ObjectModel::checkObjectsToAdd(std::vector<Object*> const& objects,
                                    std::map<Oid, Object*> const& index,
                                    OidSet const& roots) const {
    OidSet idsSeen;
    OidSet childrenSeen = roots;
    for (Object const* object : objects) {
        Oid const id = object->getOid();
        if (id == NULL_OID) {
            throw OMException("Added object cannot have NULL OID");
        }
        if (m_objects.contains(id)) {
            throw OMException(
                "Trying to add object with OID that already exists in the object model");
        }
        if (!idsSeen.insert(id).second) {
            throw OMException(
                "Trying to add object with OID that is not unique in the added vector");
        }
        if (object->tryGetOwner() != nullptr) {
            throw OMException("Object still belongs to another object model");
        }
        if (!m_factory.canCreate(object->getClassName())) {
            throw OMException("Object is of a class unknown to the objectmodel factory");
        }
        for (Oid const childId : object->getAllChildren()) {
            if (!childrenSeen.insert(childId).second) {
                throw OMException(
                    "Child has multiple parents or there is a cyclic parent-child relation");
            }
            if (!index.contains(childId)) {
                throw OMException("Undefined child reference within added ");
            }
        }
        for (Oid const target : object->getAllAssociations()) {
            if (!index.contains(target) && !m_objects.contains(target)) {
                throw OMException("Undefined associate reference " + Oid2String(target) +
                                  " adding object of class " + object->getClassName());
            }
        }
    }
}

void ObjectModel::adoptTree(Oid id, std::map<Oid, std::unique_ptr<Object>*> const& slots,
                            std::vector<Object const*>& entered) {
    std::unique_ptr<Object>& slot = *slots.at(id);
    slot->setOwner(this);
    Object& object = administerObjectAdded(std::move(slot));
    entered.push_back(&object);
    SortedOids const children = sortedChildIds(object);
    for (Oid const childId : children) {
        adoptTree(childId, slots, entered);
    }
    administerChildrenAddedToObject(object, {children.data(), children.size()}, false);
}

void ObjectModel::removeObjects(Oid id, OwnedObjects& out) {
    out.clear();
    ConstObjectVec tree;
    collectTree(*findRef(id), tree);
    for (Object const* object : tree) {
        Oid const objectId = object->getOid();
        std::unique_ptr<Object> removed = m_objects.extract(objectId);
        removed->setOwner(nullptr);
        out.push_back(std::move(removed));
        m_parents.erase(objectId);
        m_users.erase(objectId);
    }
}

void ObjectModel::takeFrom(ObjectModel& other, Oid id) {
    OwnedObjects moved;
    other.removeObjects(id, moved);
    try {
        addObjects(moved);
    } catch (...) {
        // Whoever still points at the tree can go on reading it until the source is cleared.
        for (auto& object : moved) {
            other.m_destroyed.push_back(std::move(object));
        }
        throw;
    }
}

} // namespace om
