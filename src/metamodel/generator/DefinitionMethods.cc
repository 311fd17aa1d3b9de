#include "ClassMethods.h"

#include <algorithm>

namespace kel::gen {
namespace {

std::string DefinitionBase(ClassDef const& cls) {
    return cls.hasRootBase() ? "om::ObjectDefinition" : cls.base + "Definition";
}

std::string Define(Schema const& schema, std::string const& x, Member const& member) {
    auto const key = x + "::" + member.keyConstant();
    auto const target = "\"kel::" + member.type + "\"";
    switch (member.kind) {
    case MemberKind::Property:
        return "defineProperty(" + key + ", om::PropertyDefinition(" +
               schema.getPropertyType(member.type).enumerator + ", PropertyValue(" +
               member.defaultValue + "), om::sfSerialized, om::ufNoUndo));";
    case MemberKind::Composition:
        return "defineComposition(" + key + ", om::CompositionDefinition(" + target + ", " +
               std::to_string(member.min) + ", " + std::to_string(member.max) +
               ", om::sfSerialized));";
    case MemberKind::Association:
        return "defineAssociation(" + key + ", om::AssociationDefinition(" + target +
               ", om::AssociationDefinition::atZeroOne, " + std::to_string(member.max) +
               ", om::sfSerialized));";
    }
    return {};
}

void AddUnique(std::vector<std::string>& names, std::string const& name) {
    if (std::find(names.begin(), names.end(), name) == names.end()) {
        names.push_back(name);
    }
}

} // namespace

Methods DefinitionMethods(Schema const& schema, ClassDef const& cls) {
    auto const& x = cls.name;
    std::string body;
    for (auto const& member : cls.members) {
        body += Define(schema, x, member) + "\n";
    }
    Methods const methods{
        {.name = x + "Definition", .body = body},
        {.result = "std::string const&",
         .name = "getClassName",
         .isConst = true,
         .specifier = "override",
         .body = "return " + x + "::ClassName;"},
        {.result = "bool",
         .name = "isDerivedFrom",
         .parameters = "std::string const& name",
         .isConst = true,
         .specifier = "override",
         .body = "return name == " + x + "::ClassName || " + DefinitionBase(cls) +
                 "::isDerivedFrom(name);"},
    };
    return Family("The members as the store defines them, the class's name and its bases.",
                  methods);
}

std::vector<std::string> ObjClasses(Schema const& schema, ClassDef const& cls) {
    std::vector<std::string> names;
    for (auto const& member : cls.members) {
        if (member.isComposition()) {
            for (auto const* y : schema.classAndDescendants(member.type)) {
                AddUnique(names, y->name);
            }
        }
    }
    return names;
}

std::vector<std::string> ReferencedClasses(Schema const& schema, ClassDef const& cls) {
    auto names = ObjClasses(schema, cls);
    auto addTargets = [&](ClassDef const& owner) {
        for (auto const& member : owner.members) {
            if (!member.isProperty()) {
                AddUnique(names, member.type);
            }
        }
    };
    addTargets(cls);
    if (!cls.hasRootBase()) {
        addTargets(schema.getClass(cls.base));
    }
    for (auto const* sub : schema.directSubclasses(cls.name)) {
        AddUnique(names, sub->name);
    }
    for (auto const* ancestor : schema.ancestors(cls.name)) {
        AddUnique(names, ancestor->name);
    }
    std::erase(names, cls.name);
    return names;
}

} // namespace kel::gen
