// Base of every class of the object model: identity, owner, association and
// composition values, and access to members by name.
#pragma once

#include "om/AssociationValue.h"
#include "om/CompositionValue.h"
#include "om/MemberMap.h"
#include "om/ObjectDefinition.h"
#include "om/Oid.h"
#include "om/PropertyValueBase.h"

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace om {

class ObjectModel;
class ObjectVisitor;

class Object {
public:
    using AssociationMap = MemberMap<AssociationValue>;
    using CompositionMap = MemberMap<CompositionValue>;
    using Slot = MemberNames::Slot;
    using ConstObjectVec = std::vector<Object const*>;
    using ConstObjectSet = std::set<Object const*>;
    using OidSet = std::set<Oid>;

    // What a member name denotes; a property wins over a composition, which
    // wins over an association.
    enum MemberType : std::int32_t {
        mtNone = 0,
        mtAssociation = 1,
        mtComposition = 2,
        mtProperty = 3
    };

    static inline std::string const ClassName{"om::Object"};
    static inline ObjectDefinition const* Definition = nullptr;

    // A free object with a new id and one empty value per member.
    Object();
    // A free object with a new id and no members yet: derived classes call
    // initializeMembers at the end of their own constructor.
    explicit Object(bool);
    Object(Object const& other) = default;
    // Keeps the id: a new object is built as a local and then moved into the store.
    Object(Object&& other) noexcept = default;
    Object& operator=(Object const& other);
    virtual ~Object() = default;

    // ---- Class kinds. A metamodel numbers its classes depth first from 1, so
    // that a class and those below it are the kinds FirstKind to LastKind and
    // a cast compares instead of walking the class tree. A plain object is 0.
    static constexpr std::uint32_t FirstKind = 0;
    static constexpr std::uint32_t LastKind = UINT32_MAX;

    // ---- Virtual slots that generated classes override.
    virtual std::uint32_t classKind() const { return FirstKind; }
    // A copy with the same id and owner, owned by the caller; it is not in the store.
    virtual std::unique_ptr<Object> clone() const;
    virtual void tryAssignProperties(Object const& other, bool flag);
    virtual bool propertiesEqual(Object const& other) const;
    virtual ObjectDefinition const& getDefinition() const;
    virtual PropertyValueBase const& getProperty(std::string const& name) const;
    virtual void setProperty(std::string const& name, PropertyValueBase const& value);
    // Visits this object, then its children in ascending id order, one level deeper.
    virtual void accept(ObjectVisitor& visitor) const;

    // Brings the state of `other` in, also when `other` is of a base class:
    // members that only this object's class has keep their values.
    void conservativeAssign(Object const& other, bool flag);
    // Sets default property values and adds an empty value per missing member.
    void initializeMembers(ObjectDefinition const& definition);
    // An empty value per association and composition of the definition, for
    // an object without members yet whose properties hold their defaults
    // already: what initializeMembers does then, without the calls by name.
    void initializeRelations(ObjectDefinition const& definition);

    // ---- Identity and class.
    Oid getOid() const { return m_oid; }
    void setOid(Oid id) { m_oid = id; }
    ObjectModel const& getOwner() const;
    ObjectModel const* tryGetOwner() const { return m_owner; }
    // For the store only.
    void setOwner(ObjectModel const* model) { m_owner = model; }

    std::string const& getClassName() const { return getDefinition().getClassName(); }
    std::string const& getClassNameForSerialization() const;
    bool isDerivedFrom(std::string const& name) const;
    ObjectDefinition::PropertyDefs const& getPropertyDefs() const;
    ObjectDefinition::AssociationDefs const& getAssociationDefs() const;
    ObjectDefinition::CompositionDefs const& getCompositionDefs() const;
    bool hasProperty(std::string const& name) const;
    bool hasAssociation(std::string const& name) const;
    bool hasComposition(std::string const& name) const;
    MemberType getMemberType(std::string const& name) const;

    // ---- Members.
    AssociationValue const& getAssociation(std::string const& name) const;
    CompositionValue const& getComposition(std::string const& name) const;
    // Direct access without any check of the definition's bounds.
    AssociationValue& getAssociationRef(std::string const& name);
    CompositionValue& getCompositionRef(std::string const& name);
    // The member in `slot` of the definition that declares it, which is the
    // same slot for every class below; an object laid out otherwise (made
    // without its members) is looked up by name.
    AssociationValue const& getAssociationAt(Slot slot, std::string const& name) const {
        return slot < m_associations.size() ? m_associations.atSlot(slot) : getAssociation(name);
    }
    CompositionValue const& getCompositionAt(Slot slot, std::string const& name) const {
        return slot < m_compositions.size() ? m_compositions.atSlot(slot) : getComposition(name);
    }
    AssociationValue& getAssociationRefAt(Slot slot, std::string const& name) {
        return slot < m_associations.size() ? m_associations.atSlot(slot) : getAssociationRef(name);
    }
    CompositionValue& getCompositionRefAt(Slot slot, std::string const& name) {
        return slot < m_compositions.size() ? m_compositions.atSlot(slot) : getCompositionRef(name);
    }
    AssociationMap const& getAssociations() const { return m_associations; }
    CompositionMap const& getCompositions() const { return m_compositions; }
    // Check counts and uniqueness against the definition, never the targets.
    void setAssociation(std::string const& name, AssociationValue const& value);
    void setComposition(std::string const& name, CompositionValue const& value);

    // Objects found in the owner, in element order.
    ConstObjectVec getAssociationObjects(std::string const& name) const;
    ConstObjectVec getCompositionObjects(std::string const& name) const;
    ConstObjectSet getAssociationAsObjectSet(std::string const& name) const;
    ConstObjectSet getCompositionAsObjectSet(std::string const& name) const;
    OidSet getAssociationAsOidSet(std::string const& name) const;
    OidSet getCompositionAsOidSet(std::string const& name) const;
    // The ids in all associations, resp. all compositions, ascending.
    OidSet getAllAssociations() const;
    OidSet getAllChildren() const;
    // The first composition, by name, that holds the id; empty when none does.
    std::string findCompositionWithObject(Oid id) const;
    void removeAssociation(Oid id);
    void removeChild(Oid id);

    // ---- Navigation, through the owner.
    Oid getParentOid() const;
    Object const* getParent() const;
    Object const* tryGetParent() const;
    bool hasParent() const { return tryGetParent() != nullptr; }
    bool hasParent(Object const& object) const;
    bool hasParentRecursively(Object const& object) const;
    // Ancestors only: the object itself never counts.
    Oid getParentOfTypeOid(std::string const& typeName) const;
    Object const* getParentOfType(std::string const& typeName) const;
    Object const* tryGetParentOfType(std::string const& typeName) const;
    std::string getParentComposition() const;
    CompositionValue::Index getIndexInParentComposition() const;
    OidSet getUserOids() const;
    ConstObjectSet getUsers() const;

    // ---- Validity of the id and of association and composition values.
    bool validate(std::string& errorText) const;
    void check() const;

    // ---- Equality.
    bool operator==(Object const& other) const;
    bool operator!=(Object const& other) const { return !(*this == other); }
    bool equalExceptOwner(Object const& other) const;
    bool equalExceptOwnerAndOid(Object const& other) const;

private:
    bool membersEqual(Object const& other) const;
    std::string nameOfParentComposition(char const* operation) const;

    ObjectModel const* m_owner = nullptr;
    Oid m_oid;
    AssociationMap m_associations;
    CompositionMap m_compositions;
};

} // namespace om
