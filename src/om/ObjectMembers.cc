// Object: association and composition values by name.
#include "om/OMException.h"
#include "om/Object.h"
#include "om/ObjectModel.h"

namespace om {
namespace {

template <class Map> auto& memberValue(Map& values, std::string const& name, char const* kind) {
    auto* found = values.find(name);
    if (found == nullptr) {
        throw OMException(std::string(kind) + " \"" + name + "\" not found");
    }
    return *found;
}

template <class Value>
Object::ConstObjectVec objectsOf(ObjectModel const& owner, Value const& value) {
    Object::ConstObjectVec objects;
    objects.reserve(value.size());
    for (Oid const id : value) {
        objects.push_back(owner.find(id));
    }
    return objects;
}

template <class Map> Object::OidSet allIdsOf(Map const& values) {
    Object::OidSet ids;
    for (auto const& entry : values) {
        ids.insert(entry.second.begin(), entry.second.end());
    }
    return ids;
}

template <class Map> void eraseEverywhere(Map& values, Oid id) {
    for (MemberNames::Slot slot = 0; slot < values.size(); ++slot) {
        values.atSlot(slot).erase(id);
    }
}

} // namespace

AssociationValue const& Object::getAssociation(std::string const& name) const {
    return memberValue(m_associations, name, "Association");
}

CompositionValue const& Object::getComposition(std::string const& name) const {
    return memberValue(m_compositions, name, "Composition");
}

AssociationValue& Object::getAssociationRef(std::string const& name) {
    return memberValue(m_associations, name, "Association");
}

CompositionValue& Object::getCompositionRef(std::string const& name) {
    return memberValue(m_compositions, name, "Composition");
}

void Object::setAssociation(std::string const& name, AssociationValue const& value) {
    AssociationValue& stored = getAssociationRef(name);
    getDefinition().getAssociationDef(name).check(nullptr, value);
    stored = value;
}

void Object::setComposition(std::string const& name, CompositionValue const& value) {
    CompositionValue& stored = getCompositionRef(name);
    getDefinition().getCompositionDef(name).check(nullptr, value);
    stored = value;
}

Object::ConstObjectVec Object::getAssociationObjects(std::string const& name) const {
    AssociationValue const& value = getAssociation(name);
    return objectsOf(getOwner(), value);
}

Object::ConstObjectVec Object::getCompositionObjects(std::string const& name) const {
    CompositionValue const& value = getComposition(name);
    return objectsOf(getOwner(), value);
}

Object::ConstObjectSet Object::getAssociationAsObjectSet(std::string const& name) const {
    auto const objects = getAssociationObjects(name);
    return ConstObjectSet(objects.begin(), objects.end());
}

Object::ConstObjectSet Object::getCompositionAsObjectSet(std::string const& name) const {
    auto const objects = getCompositionObjects(name);
    return ConstObjectSet(objects.begin(), objects.end());
}

Object::OidSet Object::getAssociationAsOidSet(std::string const& name) const {
    AssociationValue const& value = getAssociation(name);
    return OidSet(value.begin(), value.end());
}

Object::OidSet Object::getCompositionAsOidSet(std::string const& name) const {
    CompositionValue const& value = getComposition(name);
    return OidSet(value.begin(), value.end());
}

Object::OidSet Object::getAllAssociations() const { return allIdsOf(m_associations); }

Object::OidSet Object::getAllChildren() const { return allIdsOf(m_compositions); }

std::string Object::findCompositionWithObject(Oid id) const {
    for (auto const& [name, value] : m_compositions) {
        if (value.contains(id)) {
            return name;
        }
    }
    return {};
}

void Object::removeAssociation(Oid id) { eraseEverywhere(m_associations, id); }

void Object::removeChild(Oid id) { eraseEverywhere(m_compositions, id); }

} // namespace om
