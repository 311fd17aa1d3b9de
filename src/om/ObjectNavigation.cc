// Object: the tree around an object, asked of its owner.
#include "om/OMException.h"
#include "om/Object.h"
#include "om/ObjectModel.h"

namespace om {

Oid Object::getParentOid() const { return getOwner().getParentOid(m_oid); }

Object const* Object::getParent() const { return getOwner().getParent(m_oid); }

Object const* Object::tryGetParent() const { return getOwner().tryGetParent(m_oid); }

bool Object::hasParent(Object const& object) const {
    Object const* parent = tryGetParent();
    return parent != nullptr && parent->getOid() == object.getOid();
}

bool Object::hasParentRecursively(Object const& object) const {
    for (Object const* ancestor = tryGetParent(); ancestor != nullptr;
         ancestor = ancestor->tryGetParent()) {
        if (ancestor->getOid() == object.getOid()) {
            return true;
        }
    }
    return false;
}

Oid Object::getParentOfTypeOid(std::string const& typeName) const {
    return getOwner().getParentOfTypeOid(m_oid, typeName);
}

Object const* Object::getParentOfType(std::string const& typeName) const {
    return getOwner().getParentOfType(m_oid, typeName);
}

Object const* Object::tryGetParentOfType(std::string const& typeName) const {
    return getOwner().tryGetParentOfType(m_oid, typeName);
}

std::string Object::nameOfParentComposition(char const* operation) const {
    std::string name = getParent()->findCompositionWithObject(m_oid);
    if (name.empty()) {
        throw OMException(std::string(operation) + "(): object not present in its own parent??");
    }
    return name;
}

std::string Object::getParentComposition() const {
    return nameOfParentComposition("getParentComposition");
}

CompositionValue::Index Object::getIndexInParentComposition() const {
    std::string const name = nameOfParentComposition("getIndexInParentComposition");
    return getParent()->getComposition(name).indexOf(m_oid);
}

Object::OidSet Object::getUserOids() const { return getOwner().getUserOids(m_oid); }

Object::ConstObjectSet Object::getUsers() const { return getOwner().getUsers(m_oid); }

} // namespace om
