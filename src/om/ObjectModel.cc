#include "om/ObjectModel.h"

#include "om/OMException.h"

#include <algorithm>

namespace om {
namespace {

std::string notFound(char const* operation, Oid id) {
    return std::string(operation) + ": Object with id " + Oid2String(id) + " not found";
}

} // namespace

ObjectModel::ObjectModel(FactoryBase& factory) : m_factory(factory) {}

ObjectModel::~ObjectModel() { clear(); }

Object* ObjectModel::throwNotFound(char const* operation, Oid id) {
    throw OMException(notFound(operation, id));
}

Oid ObjectModel::oidOf(Object const* object) {
    if (object == nullptr) {
        throw OMException("Object is NULL");
    }
    return object->getOid();
}

Oid ObjectModel::getParentOid(Oid id) const {
    Oid const* parent = m_parents.find(id);
    if (parent == nullptr) {
        throw OMException(notFound("getParentOid", id));
    }
    return *parent;
}

Oid ObjectModel::getParentOfTypeOid(Oid id, std::string const& typeName) const {
    Object const* ancestor = find(id);
    while ((ancestor = tryFind(getParentOid(ancestor->getOid()))) != nullptr) {
        if (ancestor->getDefinition().isDerivedFrom(typeName)) {
            return ancestor->getOid();
        }
    }
    return NULL_OID;
}

Oid ObjectModel::getParentOfTypeOid(Object const& object, std::string const& typeName) const {
    return getParentOfTypeOid(object.getOid(), typeName);
}

Oid ObjectModel::getParentOfTypeOid(Object const* object, std::string const& typeName) const {
    return getParentOfTypeOid(oidOf(object), typeName);
}

Object const* ObjectModel::tryGetParentOfType(Oid id, std::string const& typeName) const {
    return tryFind(getParentOfTypeOid(id, typeName));
}

Object const* ObjectModel::tryGetParentOfType(Object const& object,
                                              std::string const& typeName) const {
    return tryGetParentOfType(object.getOid(), typeName);
}

Object const* ObjectModel::tryGetParentOfType(Object const* object,
                                              std::string const& typeName) const {
    return tryGetParentOfType(oidOf(object), typeName);
}

Object const* ObjectModel::getParentOfType(Oid id, std::string const& typeName) const {
    return find(getParentOfTypeOid(id, typeName));
}

Object const* ObjectModel::getParentOfType(Object const& object,
                                           std::string const& typeName) const {
    return getParentOfType(object.getOid(), typeName);
}

Object const* ObjectModel::getParentOfType(Object const* object,
                                           std::string const& typeName) const {
    return getParentOfType(oidOf(object), typeName);
}

ObjectModel::OidSet ObjectModel::getUserOids(Oid id) const {
    UserSet const* users = m_users.find(id);
    if (users == nullptr) {
        throw OMException(notFound("getUserOids", id));
    }
    std::vector<Oid> const ids = users->sorted();
    return OidSet(ids.begin(), ids.end());
}

ObjectModel::ConstObjectSet ObjectModel::getUsers(Oid id) const {
    UserSet const* users = m_users.find(id);
    if (users == nullptr) {
        throw OMException(notFound("getUsers", id));
    }
    ConstObjectSet objects;
    for (Oid const userId : users->sorted()) {
        objects.insert(find(userId));
    }
    return objects;
}

// Pre-order with a stack of its own: a tree may be far deeper than the call stack.
void ObjectModel::collectTree(Object const& top, ConstObjectVec& tree) const {
    ConstObjectVec pending{&top};
    ConstObjectVec children;
    while (!pending.empty()) {
        Object const* object = pending.back();
        pending.pop_back();
        tree.push_back(object);
        children.clear();
        for (auto const& entry : object->getCompositions()) {
            for (Oid const childId : entry.second) {
                children.push_back(find(childId));
            }
        }
        pending.insert(pending.end(), children.rbegin(), children.rend());
    }
}

ObjectModel::ConstObjectVec ObjectModel::getTreeVec(Oid id) const {
    ConstObjectVec tree;
    collectTree(*find(id), tree);
    return tree;
}

ObjectModel::OidSet ObjectModel::getTreeOids(Oid id) const {
    OidSet ids;
    for (Object const* object : getTreeVec(id)) {
        ids.insert(object->getOid());
    }
    return ids;
}

ObjectModel::ConstObjectSet ObjectModel::getTreeSet(Oid id) const {
    ConstObjectVec const tree = getTreeVec(id);
    return ConstObjectSet(tree.begin(), tree.end());
}

ObjectModel::ConstObjectVec ObjectModel::getRootObjectsVec() const {
    ConstObjectVec roots;
    findRoot([&](Object const& root) {
        roots.push_back(&root);
        return false;
    });
    return roots;
}

ObjectModel::ConstObjectSet ObjectModel::getRootObjectsSet() const {
    ConstObjectVec const roots = getRootObjectsVec();
    return ConstObjectSet(roots.begin(), roots.end());
}

ObjectModel::OidSet ObjectModel::getRootOids() const {
    OidSet ids;
    for (Object const* root : getRootObjectsVec()) {
        ids.insert(ids.end(), root->getOid());
    }
    return ids;
}

void ObjectModel::clear() {
    m_objects.clear();
    m_destroyed.clear();
    m_parents.clear();
    m_users.clear();
}

bool ObjectModel::equalUpToId(ObjectModel const& other) const {
    if (m_objects.size() != other.m_objects.size()) {
        return false;
    }
    // Same size and every id of this store in the other: the same ids.
    bool sameObjects = true;
    m_objects.forEach([&](Object const& object) {
        Object const* twin = other.m_objects.find(object.getOid());
        sameObjects = sameObjects && twin != nullptr && object.equalExceptOwner(*twin);
    });
    return sameObjects && m_parents == other.m_parents && m_users == other.m_users &&
           getRootOids() == other.getRootOids();
}

} // namespace om
