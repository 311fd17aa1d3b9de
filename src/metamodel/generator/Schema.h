// The metamodel schema as the generator sees it: property types, enumerations
// and classes with their members, in the order of the table.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kel::gen {

struct PropertyTypeRow {
    std::int32_t value = 0;
    std::string name;       // the text of PropertyTypeToString
    std::string enumerator; // the PropertyType enumerator
    std::string accessor;   // suffix of the typed getters of PropertyValue
    std::string cppType;
    bool passByReference = false;
};

struct Enumeration {
    std::string name;
    std::vector<std::string> enumerators; // numbered from 0
};

enum class MemberKind { Property, Composition, Association };

struct Member {
    MemberKind kind = MemberKind::Property;
    std::string name;
    std::string type;         // property type name, or target class
    std::string defaultValue; // properties only
    std::uint64_t min = 0;
    std::uint64_t max = 0; // 0: unbounded

    bool isProperty() const { return kind == MemberKind::Property; }
    bool isComposition() const { return kind == MemberKind::Composition; }
    bool isAssociation() const { return kind == MemberKind::Association; }
    bool isUnbounded() const { return !isProperty() && max == 0; }
    bool isSingle() const { return !isProperty() && max == 1; }
    // A single member that may be empty: it gets has, clear and tryGet.
    bool isOptional() const { return isAssociation() || (isSingle() && min == 0); }
    // The name of the key constant, e.g. "ElseStatementComposition".
    std::string keyConstant() const;
};

struct ClassDef {
    std::string name;
    std::string base; // "om::Object" for a root class
    std::vector<Member> members;

    bool hasRootBase() const { return base == "om::Object"; }
    bool hasProperties() const;
};

class Schema {
public:
    std::vector<PropertyTypeRow> propertyTypes;
    std::vector<Enumeration> enumerations;
    std::vector<ClassDef> classes;

    ClassDef const& getClass(std::string const& name) const;
    PropertyTypeRow const& getPropertyType(std::string const& name) const;
    // Classes whose base is `name`, in definition order.
    std::vector<ClassDef const*> directSubclasses(std::string const& name) const;
    // `name` and every class below it, in definition order.
    std::vector<ClassDef const*> classAndDescendants(std::string const& name) const;
    // The bases of `name` from the nearest up, without om::Object.
    std::vector<ClassDef const*> ancestors(std::string const& name) const;
    bool isDerivedFrom(std::string const& name, std::string const& ancestor) const;
    // The kinds of `name` and of the last class below it. Kinds number the
    // classes depth first, so a class and its descendants are one range and
    // a cast is a comparison instead of a walk of the class tree.
    struct KindRange {
        std::uint32_t first = 0;
        std::uint32_t last = 0;
    };
    KindRange kindRange(std::string const& name) const;
    // The slot of an association or composition of `cls` among the members of
    // its kind: a definition defines those of the bases first, in order, so
    // the slot is the same in every class below `cls`.
    std::uint32_t slotOf(ClassDef const& cls, Member const& member) const;
};

} // namespace kel::gen
