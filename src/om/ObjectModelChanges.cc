// ObjectModel: making, changing and destroying objects in the store.
#include "om/IdDelta.h"
#include "om/OMException.h"
#include "om/ObjectModel.h"

#include <algorithm>
#include <typeinfo>

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
    m_users.tryEmplace(id);
    m_parents.tryEmplace(id); // NULL_OID: a root
    return added;
}

void ObjectModel::administerChildrenAddedToObject(Object const& parent,
                                                  std::span<Oid const> childIds, bool mayReparent) {
    for (Oid const childId : childIds) {
        Oid& parentEntry = *m_parents.tryEmplace(childId).first;
        if (parentEntry != NULL_OID) {
            Object* oldParent = findRef(parentEntry);
            if (!mayReparent) {
                throw OMException("administerChildrenAddedToObject() unexpected: object already "
                                  "had a parent");
            }
            oldParent->removeChild(childId);
        } else {
            findRef(childId); // leaves the roots with the parent entry below
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
    administerChildrenAddedToObject(object, {childIds.data(), childIds.size()}, false);
    return &object;
}

Object const& ObjectModel::insert(std::unique_ptr<Object> object) {
    requireNewObject(*object, this);
    if (m_objects.contains(object->getOid())) {
        throw OMException("Trying to add object with OID that already exists in the object model");
    }
    object->setOwner(this);
    Object& added = administerObjectAdded(std::move(object));
    // A target named twice gets the user once: the users entry is a set.
    for (auto const& entry : added.getAssociations()) {
        for (Oid const target : entry.second) {
            m_users[target].insert(added.getOid());
        }
    }
    SortedOids const children = sortedChildIds(added);
    administerChildrenAddedToObject(added, {children.data(), children.size()}, true);
    return added;
}

void ObjectModel::requireNewObject(Object const& object, ObjectModel const* owner) {
    if (object.tryGetOwner() != nullptr && object.tryGetOwner() != owner) {
        throw OMException("Object still belongs to another object model");
    }
    for (auto const& [name, definition] : object.getCompositionDefs()) {
        if (object.getComposition(name).size() < definition.getMultiplicityMin()) {
            throw OMException("Object of class " + object.getClassName() +
                              " lacks a required child in \"" + name + "\"");
        }
    }
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
    // A copy of the same class, the usual case, needs no walk up the class
    // names; two descriptions of one class would only send it that way.
    if (&typeid(*current) != &typeid(changed) &&
        !current->getDefinition().isDerivedFrom(changed.getClassName())) {
        throw OMException("You cannot replace an object by one of a different class unless it is "
                          "a base class (\"" +
                          current->getClassName() + "\" became \"" + changed.getClassName() + "\"");
    }
    updateUsers(*current, changed);
    std::vector<Oid> const lostChildren = updateChildren(*current, changed);
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

std::vector<Oid> ObjectModel::updateChildren(Object const& current, Object const& changed) {
    IdDelta delta = deltaOf(current.getCompositions(), changed.getCompositions());
    // An added id that is a child of this object already only moved within it.
    std::erase_if(delta.added, [&](Oid id) {
        Oid const* parent = m_parents.find(id);
        return parent != nullptr && *parent == current.getOid();
    });
    administerChildrenAddedToObject(current, delta.added, true);
    dropStillHeld(delta.removed, changed.getCompositions());
    for (Oid const childId : delta.removed) {
        m_parents[childId] = NULL_OID; // a root again
        findRef(childId);
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
        for (Oid const userId : m_users[object->getOid()].sorted()) {
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
    m_destroyed.push_back(m_objects.extract(id));
    for (Oid const target : object.getAllAssociations()) {
        if (UserSet* users = m_users.find(target)) {
            users->erase(id);
        }
    }
}

} // namespace om
