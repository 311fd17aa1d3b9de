#include "om/ObjectDefinition.h"

#include "om/OMException.h"
#include "om/Object.h"

namespace om {
namespace {

std::string quoted(std::string const& name) { return "\"" + name + "\""; }

template <class Map> void defineMember(Map& members, std::string const& name,
                                       typename Map::mapped_type const& definition,
                                       char const* kindPhrase) {
    if (!members.emplace(name, definition).second) {
        throw OMException(std::string(kindPhrase) + " named " + quoted(name) + " already exists");
    }
}

template <class Map> typename Map::mapped_type const&
memberDef(Map const& members, std::string const& name, char const* operation, char const* kind) {
    auto const found = members.find(name);
    if (found == members.end()) {
        throw OMException(std::string(operation) + "(): " + kind + " not found: " + quoted(name));
    }
    return found->second;
}

} // namespace

std::string const& ObjectDefinition::getClassName() const { return Object::ClassName; }

bool ObjectDefinition::isDerivedFrom(std::string const& name) const {
    return name == Object::ClassName;
}

void ObjectDefinition::defineProperty(std::string const& name,
                                      PropertyDefinition const& definition) {
    defineMember(m_properties, name, definition, "A property");
}

void ObjectDefinition::defineAssociation(std::string const& name,
                                         AssociationDefinition const& definition) {
    defineMember(m_associations, name, definition, "An association");
    m_associationNames = &m_associationNames->with(name);
}

void ObjectDefinition::defineComposition(std::string const& name,
                                         CompositionDefinition const& definition) {
    defineMember(m_compositions, name, definition, "A composition");
    m_compositionNames = &m_compositionNames->with(name);
}

PropertyDefinition const& ObjectDefinition::getPropertyDef(std::string const& name) const {
    return memberDef(m_properties, name, "getPropertyDef", "property");
}

AssociationDefinition const& ObjectDefinition::getAssociationDef(std::string const& name) const {
    return memberDef(m_associations, name, "getAssociationDef", "association");
}

CompositionDefinition const& ObjectDefinition::getCompositionDef(std::string const& name) const {
    return memberDef(m_compositions, name, "getCompositionDef", "composition");
}

} // namespace om
