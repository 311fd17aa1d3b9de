// Run-time description of a class: its properties, associations and compositions
// by name, including those of its bases.
#pragma once

#include "om/AssociationDefinition.h"
#include "om/CompositionDefinition.h"
#include "om/MemberNames.h"
#include "om/PropertyDefinition.h"

#include <map>
#include <string>

namespace om {

class ObjectDefinition {
public:
    // Ordered by name: the order of every walk over the members.
    using PropertyDefs = std::map<std::string, PropertyDefinition>;
    using AssociationDefs = std::map<std::string, AssociationDefinition>;
    using CompositionDefs = std::map<std::string, CompositionDefinition>;

    ObjectDefinition() = default;
    virtual ~ObjectDefinition() = default;

    virtual std::string const& getClassName() const;
    // True for the class's own name and for the name of every base, up to "om::Object".
    virtual bool isDerivedFrom(std::string const& name) const;
    virtual std::string const& getClassNameForSerialization() const { return getClassName(); }

    // Each raises OMException when its map already holds the name.
    void defineProperty(std::string const& name, PropertyDefinition const& definition);
    void defineAssociation(std::string const& name, AssociationDefinition const& definition);
    void defineComposition(std::string const& name, CompositionDefinition const& definition);

    bool hasProperty(std::string const& name) const { return m_properties.contains(name); }
    bool hasAssociation(std::string const& name) const { return m_associations.contains(name); }
    bool hasComposition(std::string const& name) const { return m_compositions.contains(name); }

    // Each raises OMException for an unknown name.
    PropertyDefinition const& getPropertyDef(std::string const& name) const;
    AssociationDefinition const& getAssociationDef(std::string const& name) const;
    CompositionDefinition const& getCompositionDef(std::string const& name) const;

    PropertyDefs const& getPropertyDefs() const { return m_properties; }
    AssociationDefs const& getAssociationDefs() const { return m_associations; }
    CompositionDefs const& getCompositionDefs() const { return m_compositions; }
    // The association and composition names in the order they were defined:
    // a class's own members come after those of its bases, so every class
    // below it finds them in the same slots.
    MemberNames const& getAssociationNames() const { return *m_associationNames; }
    MemberNames const& getCompositionNames() const { return *m_compositionNames; }

protected:
    ObjectDefinition(ObjectDefinition const&) = default;
    ObjectDefinition& operator=(ObjectDefinition const&) = default;

private:
    PropertyDefs m_properties;
    AssociationDefs m_associations;
    CompositionDefs m_compositions;
    MemberNames const* m_associationNames = &MemberNames::empty();
    MemberNames const* m_compositionNames = &MemberNames::empty();
};

} // namespace om
