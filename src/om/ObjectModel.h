// The store of all objects of one source: owns them, finds them by id, and keeps
// the parent, users and root indexes consistent while objects come and go.
#pragma once

#include "om/DenseIdMap.h"
#include "om/FactoryBase.h"
#include "om/Object.h"
#include "om/ObjectIndex.h"
#include "om/Oid.h"
#include "om/UserSet.h"

#include <boost/container/small_vector.hpp>

#include <map>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace om {

class ObjectModel {
public:
    using ConstObjectVec = std::vector<Object const*>;
    using ConstObjectSet = std::set<Object const*>;
    using OidSet = std::set<Oid>;
    using OwnedObjects = std::vector<std::unique_ptr<Object>>;

    explicit ObjectModel(FactoryBase& factory);
    ObjectModel(ObjectModel const&) = delete;
    ObjectModel& operator=(ObjectModel const&) = delete;
    ~ObjectModel();

    FactoryBase& getFactory() const { return m_factory; }

    // ---- Lookup: one hash lookup on the id.
    Object const* tryFind(Oid id) const noexcept { return m_objects.find(id); }
    Object const* find(Oid id) const {
        Object const* found = m_objects.find(id);
        return found != nullptr ? found : throwNotFound("find", id);
    }
    Object* findRef(Oid id) {
        Object* found = m_objects.find(id);
        return found != nullptr ? found : throwNotFound("findRef", id);
    }

    // ---- Parents. The object forms use the object's id; a null pointer is an error.
    Oid getParentOid(Oid id) const;
    Oid getParentOid(Object const& object) const { return getParentOid(object.getOid()); }
    Oid getParentOid(Object const* object) const { return getParentOid(oidOf(object)); }
    Object const* tryGetParent(Oid id) const { return tryFind(getParentOid(id)); }
    Object const* tryGetParent(Object const& object) const { return tryGetParent(object.getOid()); }
    Object const* tryGetParent(Object const* object) const { return tryGetParent(oidOf(object)); }
    Object const* getParent(Oid id) const { return find(getParentOid(id)); }
    Object const* getParent(Object const& object) const { return getParent(object.getOid()); }
    Object const* getParent(Object const* object) const { return getParent(oidOf(object)); }

    // The nearest proper ancestor of the given class or a class derived from it.
    Oid getParentOfTypeOid(Oid id, std::string const& typeName) const;
    Oid getParentOfTypeOid(Object const& object, std::string const& typeName) const;
    Oid getParentOfTypeOid(Object const* object, std::string const& typeName) const;
    Object const* tryGetParentOfType(Oid id, std::string const& typeName) const;
    Object const* tryGetParentOfType(Object const& object, std::string const& typeName) const;
    Object const* tryGetParentOfType(Object const* object, std::string const& typeName) const;
    Object const* getParentOfType(Oid id, std::string const& typeName) const;
    Object const* getParentOfType(Object const& object, std::string const& typeName) const;
    Object const* getParentOfType(Object const* object, std::string const& typeName) const;

    // ---- Users: the objects that name an object in an association.
    OidSet getUserOids(Oid id) const;
    OidSet getUserOids(Object const& object) const { return getUserOids(object.getOid()); }
    OidSet getUserOids(Object const* object) const { return getUserOids(oidOf(object)); }
    ConstObjectSet getUsers(Oid id) const;
    ConstObjectSet getUsers(Object const& object) const { return getUsers(object.getOid()); }
    ConstObjectSet getUsers(Object const* object) const { return getUsers(oidOf(object)); }

    // ---- Subtrees in pre-order: the object, then each composition by name, each child in order.
    ConstObjectVec getTreeVec(Oid id) const;
    ConstObjectVec getTreeVec(Object const& object) const { return getTreeVec(object.getOid()); }
    ConstObjectVec getTreeVec(Object const* object) const { return getTreeVec(oidOf(object)); }
    OidSet getTreeOids(Oid id) const;
    OidSet getTreeOids(Object const& object) const { return getTreeOids(object.getOid()); }
    OidSet getTreeOids(Object const* object) const { return getTreeOids(oidOf(object)); }
    ConstObjectSet getTreeSet(Oid id) const;
    ConstObjectSet getTreeSet(Object const& object) const { return getTreeSet(object.getOid()); }
    ConstObjectSet getTreeSet(Object const* object) const { return getTreeSet(oidOf(object)); }

    // ---- Roots, in ascending id order.
    ConstObjectVec getRootObjectsVec() const;
    ConstObjectSet getRootObjectsSet() const;
    OidSet getRootOids() const;
    // The first root that `accept` takes, or null; stops there, unlike the
    // collections above, which matters while many parts of a tree await a parent.
    template <class Accept> Object const* findRoot(Accept accept) const {
        // The roots are the stored objects whose parent entry says NULL_OID.
        Object const* found = nullptr;
        m_parents.findIf([&](Oid id, Oid parent) {
            Object const* object = parent == NULL_OID ? m_objects.find(id) : nullptr;
            found = object != nullptr && accept(*object) ? object : nullptr;
            return found != nullptr;
        });
        return found;
    }

    // ---- Changes.
    // A new object of the class with all its required children, recursively.
    Object const* createRecursive(std::string const& className);
    // Takes a new object, made outside the store with all its members set,
    // and leaves the store as createRecursive and an update would: the
    // children it names, all in the store, come to it from wherever they
    // were. So an object is made in one step, without placeholder children.
    // Its required compositions must be filled.
    Object const& insert(std::unique_ptr<Object> object);
    // Assigns the state of `changed`, a changed copy of a stored object, into
    // that object, and brings the indexes along; dropped children are destroyed.
    void update(Object const& changed);
    // Destroys the subtree unless its parent's composition is at its minimum.
    void destroyRecursive(Oid id);
    // Destroys the subtree without looking at the parent's minimum.
    void destroyRecursiveImpl(Oid id);
    // Takes over the trees that hang from the objects without parent in the
    // vector and moves them out of it; objects that hang from no such root stay
    // there. On an error nothing changes.
    void addObjects(OwnedObjects& objects);
    // Hands the tree below the root `id` to the caller, in pre-order.
    void removeObjects(Oid id, OwnedObjects& out);
    // Moves the tree below the root `id` of `other` into this store; should that
    // fail, `other` keeps the objects readable until it is cleared.
    void takeFrom(ObjectModel& other, Oid id);
    // Releases every object, also those destroyed earlier.
    void clear();

    // Same ids, equal objects but for the owner, and equal indexes.
    bool equalUpToId(ObjectModel const& other) const;
    bool operator==(ObjectModel const& other) const { return equalUpToId(other); }

private:
    // Ascending and without repetition: an ordered set of ids, without the
    // heap for the few children an object mostly has.
    using SortedOids = boost::container::small_vector<Oid, 8>;

    // Out of line, so that the lookups stay small enough to inline.
    [[noreturn]] static Object* throwNotFound(char const* operation, Oid id);
    static Oid oidOf(Object const* object);
    Object& administerObjectAdded(std::unique_ptr<Object> object);
    static SortedOids sortedChildIds(Object const& object);
    static void requireNewObject(Object const& object, ObjectModel const* owner);
    void administerChildrenAddedToObject(Object const& parent, std::span<Oid const> childIds,
                                         bool mayReparent);
    void updateUsers(Object const& current, Object const& changed);
    // Makes the gained children known and the lost ones roots; returns the lost ones.
    std::vector<Oid> updateChildren(Object const& current, Object const& changed);
    void collectTree(Object const& top, ConstObjectVec& tree) const;
    void forgetDestroyedObject(Object const& object);
    void checkObjectsToAdd(std::vector<Object*> const& objects, std::map<Oid, Object*> const& index,
                           OidSet const& roots) const;
    void adoptTree(Oid id, std::map<Oid, std::unique_ptr<Object>*> const& slots,
                   std::vector<Object const*>& entered);

    FactoryBase& m_factory;
    ObjectIndex m_objects;
    // Walked in id order rather than by address, so that every walk over the
    // roots is the same from run to run.
    DenseIdMap<Oid> m_parents;
    DenseIdMap<UserSet> m_users;
    // Destroyed objects stay readable through pointers that code still holds,
    // until clear() or the end of the process.
    OwnedObjects m_destroyed;
};

} // namespace om
