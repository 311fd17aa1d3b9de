#include "om/Object.h"

#include "om/OMException.h"
#include "om/ObjectModel.h"
#include "om/ObjectVisitor.h"

namespace om {
namespace {

// A member that only one side has keeps this object's value.
template <class Map> void assignSharedMembers(Map& values, Map const& other) {
    if (&values.names() == &other.names()) {
        values = other;
        return;
    }
    for (auto const& [name, value] : other) {
        if (auto* found = values.find(name)) {
            *found = value;
        }
    }
}

template <class Map> void addMissingMembers(Map& values, MemberNames const& names) {
    if (values.empty()) {
        values = Map(names); // the usual case: one block, the names shared
        return;
    }
    for (MemberNames::Slot slot = 0; slot < names.size(); ++slot) {
        values[names.name(slot)];
    }
}

} // namespace

Object::Object() : m_oid(OidGenerator::instance().getNewOid()) {
    initializeMembers(getDefinition());
}

Object::Object(bool) : m_oid(OidGenerator::instance().getNewOid()) {}

Object& Object::operator=(Object const& other) {
    if (this == &other) {
        return *this;
    }
    m_owner = other.m_owner;
    m_oid = other.m_oid;
    tryAssignProperties(other, false);
    m_associations = other.m_associations;
    m_compositions = other.m_compositions;
    return *this;
}

std::unique_ptr<Object> Object::clone() const { return std::make_unique<Object>(*this); }

void Object::tryAssignProperties(Object const& /*other*/, bool /*flag*/) {}

bool Object::propertiesEqual(Object const& /*other*/) const { return true; }

ObjectDefinition const& Object::getDefinition() const {
    if (Definition == nullptr) {
        Definition = new ObjectDefinition(); // built once, never freed
    }
    return *Definition;
}

PropertyValueBase const& Object::getProperty(std::string const& name) const {
    throw OMException("Property \"" + name + "\" not found");
}

void Object::setProperty(std::string const& name, PropertyValueBase const& /*value*/) {
    throw OMException("Property \"" + name + "\" not found");
}

void Object::accept(ObjectVisitor& visitor) const {
    visitor.visit(*this);
    visitor.increaseLevel();
    for (Oid const childId : getAllChildren()) {
        if (Object const* child = getOwner().tryFind(childId)) {
            child->accept(visitor);
        }
    }
    visitor.decreaseLevel();
}

void Object::conservativeAssign(Object const& other, bool flag) {
    if (this == &other) {
        return;
    }
    m_owner = other.m_owner;
    m_oid = other.m_oid;
    tryAssignProperties(other, flag);
    assignSharedMembers(m_associations, other.m_associations);
    assignSharedMembers(m_compositions, other.m_compositions);
}

void Object::initializeMembers(ObjectDefinition const& definition) {
    for (auto const& [name, propertyDef] : definition.getPropertyDefs()) {
        setProperty(name, propertyDef.getDefaultValue());
    }
    addMissingMembers(m_associations, definition.getAssociationNames());
    addMissingMembers(m_compositions, definition.getCompositionNames());
}

void Object::initializeRelations(ObjectDefinition const& definition) {
    addMissingMembers(m_associations, definition.getAssociationNames());
    addMissingMembers(m_compositions, definition.getCompositionNames());
}

ObjectModel const& Object::getOwner() const {
    if (m_owner == nullptr) {
        throw OMException("Owner is 0");
    }
    return *m_owner;
}

std::string const& Object::getClassNameForSerialization() const {
    return getDefinition().getClassNameForSerialization();
}

bool Object::isDerivedFrom(std::string const& name) const {
    return getDefinition().isDerivedFrom(name);
}

ObjectDefinition::PropertyDefs const& Object::getPropertyDefs() const {
    return getDefinition().getPropertyDefs();
}

ObjectDefinition::AssociationDefs const& Object::getAssociationDefs() const {
    return getDefinition().getAssociationDefs();
}

ObjectDefinition::CompositionDefs const& Object::getCompositionDefs() const {
    return getDefinition().getCompositionDefs();
}

bool Object::hasProperty(std::string const& name) const {
    return getDefinition().hasProperty(name);
}

bool Object::hasAssociation(std::string const& name) const {
    return getDefinition().hasAssociation(name);
}

bool Object::hasComposition(std::string const& name) const {
    return getDefinition().hasComposition(name);
}

Object::MemberType Object::getMemberType(std::string const& name) const {
    if (hasProperty(name)) {
        return mtProperty;
    }
    if (hasComposition(name)) {
        return mtComposition;
    }
    return hasAssociation(name) ? mtAssociation : mtNone;
}

bool Object::validate(std::string& errorText) const {
    if (m_oid == NULL_OID) {
        errorText = "Object has NULL_OID as OID";
        return false;
    }
    for (auto const& [name, definition] : getAssociationDefs()) {
        if (!definition.validate(m_owner, getAssociation(name), errorText)) {
            return false;
        }
    }
    for (auto const& [name, definition] : getCompositionDefs()) {
        if (!definition.validate(m_owner, getComposition(name), errorText)) {
            return false;
        }
    }
    return true;
}

void Object::check() const {
    std::string errorText;
    if (!validate(errorText)) {
        throw OMException(errorText);
    }
}

bool Object::operator==(Object const& other) const {
    return m_owner == other.m_owner && m_oid == other.m_oid && membersEqual(other);
}

bool Object::equalExceptOwner(Object const& other) const {
    return m_oid == other.m_oid && membersEqual(other);
}

bool Object::equalExceptOwnerAndOid(Object const& other) const { return membersEqual(other); }

bool Object::membersEqual(Object const& other) const {
    // The maps compare sizes first, then names and values pairwise in name order.
    return getClassName() == other.getClassName() && propertiesEqual(other) &&
           m_associations == other.m_associations && m_compositions == other.m_compositions;
}

} // namespace om
