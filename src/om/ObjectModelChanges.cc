// ObjectModel: making, changing and destroying objects in the store.
#include "om/IdDelta.h"
#include "om/OMException.h"
#include "om/ObjectModel.h"

#include <algorithm>

namespace om {
ObjectModel::SortedOids ObjectModel::sortedChildIds(Object const& object) {
    SortedOids ids;
    for (auto const& entry : object.getCompositions()) {
        ids.insert(ids.end(), entry.second.begin(), entry.second.end());
    }
    std::ranges::sort(ids);
    // std::unique, not the ranges form: clang 14 cannot compile the latter with libstdc++ 12.
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    return ids;
}

Object& ObjectModel::administerObjectAdded(std::unique_ptr<Object> object) {
    Object& added = m_objects.insert(std::move(object));
    Oid const id = added.getOid();
    m_users.try_emplace(id);
    m_parents.try_emplace(id, NULL_OID);
    m_roots.emplace(id, &added);
    return added;
}

void ObjectModel::administerChildrenAddedToObject(Object const& parent, SortedOids const& childIds,
                                                  bool mayReparent) {
    for (Oid const childId : childIds) {
        Oid& parentEntry = m_parents.try_emplace(childId, NULL_OID).first->second;
        if (parentEntry != NULL_OID) {
            Object* oldParent = findRef(parentEntry);
            if (!mayReparent) {
                throw OMException("administerChildrenAddedToObject() unexpected: object already "
                                  "had a parent");
            }
            oldParent->removeChild(childId);
        } else {
            findRef(childId);
            m_roots.erase(childId);
        }
        parentEntry = parent.getOid();
    }
}

Object const* ObjectModel::createRecursive(std::string const& className) {
    std::unique_ptr<Object> created = m_factory.create(className);
    created->setOwner(this);
    Object& object = administerObjectAdded(std::move(created));
    SortedOids childIds;
    for (auto const& [name, definition] : object.getCompositionDefs()) {
        if (definition.getMultiplicityMin() == 0) {
            continue;
        }
        CompositionValue children;
        for (std::uint64_t i = 0; i < definition.getMultiplicityMin(); ++i) {
            Oid const childId = createRecursive(definition.getClassName())->getOid();
            children.push_back(childId);
            childIds.push_back(childId);
        }
        object.setComposition(name, children);
    }
    // Ascending already: the generator hands out increasing ids.
    administerChildrenAddedToObject(object, childIds, false);
    return &object;
}

void ObjectModel::update(Object const& changed) {
    Object* current = findRef(changed.getOid());
    if (current == &changed) {
        throw OMException(
            "The object given to update() should be a clone. Clone the object, THEN change it, "
            "and the call update() on the ObjectModel. At this time, the validity of the Object "
            "Model is no longer guaranteed.");
    }
    if (changed.tryGetOwner() != this) {
        throw OMException("You are not allowed to change the owner of objects");
    }
    if (!current->getDefinition().isDerivedFrom(changed.getClassName())) {
        throw OMException("You cannot replace an object by one of a different class unless it is "
                          "a base class (\"" +
                          current->getClassName() + "\" became \"" + changed.getClassName() + "\"");
    }
    updateUsers(*current, changed);
    SortedOids const lostChildren = updateChildren(*current, changed);
    current->conservativeAssign(changed, false);
    for (Oid const childId : lostChildren) {
        destroyRecursiveImpl(childId);
    }
}

void ObjectModel::updateUsers(Object const& current, Object const& changed) {
    IdDelta delta = deltaOf(current.getAssociations(), changed.getAssociations());
    dropStillHeld(delta.removed, changed.getAssociations());
    for (Oid const target : delta.removed) {
        m_users[target].erase(current.getOid());
    }
    for (Oid const target : delta.added) {
        m_users[target].insert(current.getOid());
    }
}

ObjectModel::SortedOids ObjectModel::updateChildren(Object const& current, Object const& changed) {
    IdDelta delta = deltaOf(current.getCompositions(), changed.getCompositions());
    // An added id that is a child of this object already only moved within it.
    std::erase_if(delta.added, [&](Oid id) {
        auto const parent = m_parents.find(id);
        return parent != m_parents.end() && parent->second == current.getOid();
    });
    administerChildrenAddedToObject(current, delta.added, true);
    dropStillHeld(delta.removed, changed.getCompositions());
    for (Oid const childId : delta.removed) {
        m_parents[childId] = NULL_OID;
        m_roots.emplace(childId, findRef(childId));
    }
    return delta.removed;
}

void ObjectModel::destroyRecursive(Oid id) {
    findRef(id);
    Oid const parentId = getParentOid(id);
    if (parentId != NULL_OID) {
        Object const& parent = *findRef(parentId);
        std::string const name = parent.findCompositionWithObject(id);
        auto const& definition = parent.getDefinition().getCompositionDef(name);
        if (definition.getMultiplicityMin() == parent.getComposition(name).size()) {
            throw OMException("Cannot remove object " + Oid2String(id) +
                              " because its parent cannot lose another child without becoming "
                              "invalid");
        }
    }
    destroyRecursiveImpl(id);
}

void ObjectModel::destroyRecursiveImpl(Oid id) {
    ConstObjectVec tree;
    collectTree(*findRef(id), tree);
    OidSet treeIds;
    for (Object const* object : tree) {
        treeIds.insert(object->getOid());
    }
    for (Object const* object : tree) {
        for (Oid const userId : m_users[object->getOid()]) {
            // A user that left the store through removeObjects is no longer ours to change.
            Object* user = m_objects.find(userId);
            if (user != nullptr && !treeIds.contains(userId)) {
                user->removeAssociation(object->getOid());
            }
        }
    }
    if (Oid const parentId = m_parents[id]; parentId != NULL_OID) {
        findRef(parentId)->removeChild(id);
    }
    for (Object const* object : tree) {
        forgetDestroyedObject(*object);
    }
}

void ObjectModel::forgetDestroyedObject(Object const& object) {
    Oid const id = object.getOid();
    m_parents.erase(id);
    m_users.erase(id);
    m_roots.erase(id);
    m_destroyed.push_back(m_objects.extract(id));
    for (Oid const target : object.getAllAssociations()) {
        if (auto const users = m_users.find(target); users != m_users.end()) {
            users->second.erase(id);
        }
    }
}

} // namespace om
