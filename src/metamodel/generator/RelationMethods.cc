#include "ClassMethods.h"

namespace kel::gen {
namespace {

// "getComposition(MComposition)" or "getAssociation(MAssociation)".
std::string ValueOf(Member const& member) {
    auto const getter = member.isComposition() ? "getComposition(" : "getAssociation(";
    return getter + member.keyConstant() + ")";
}

// Stores one id, or none for NULL_OID, as the member's whole value.
std::string StoreSingle(Member const& member, std::string const& id) {
    auto const valueType = member.isComposition() ? "om::CompositionValue" : "om::AssociationValue";
    auto const setter = member.isComposition() ? "setComposition(" : "setAssociation(";
    return std::string(valueType) + " ids;\nids.set(" + id + ");\n" + setter +
           member.keyConstant() + ", ids);";
}

Methods SingleMethods(Member const& member) {
    auto const& m = member.name;
    auto const& t = member.type;
    Methods methods{
        {.result = "om::Oid",
         .name = "get" + m + "Oid",
         .isConst = true,
         .body = "return " + ValueOf(member) + ".get();"},
        {.result = "void",
         .name = "set" + m,
         .parameters = t + " const& value",
         .body = "getOwner().find(value.getOid());\n" + StoreSingle(member, "value.getOid()")},
        {.result = t + " const&",
         .name = "get" + m,
         .isConst = true,
         .body = "return ResolveId<" + t + ">(*this, get" + m + "Oid());"},
    };
    if (member.isOptional()) {
        methods.push_back({.result = "bool",
                           .name = "has" + m,
                           .isConst = true,
                           .body = "return " + ValueOf(member) + ".size() != 0;"});
        methods.push_back(
            {.result = "void", .name = "clear" + m, .body = StoreSingle(member, "om::NULL_OID")});
        methods.push_back({.result = t + " const*",
                           .name = "tryGet" + m,
                           .isConst = true,
                           .body = "return has" + m + "() ? &get" + m + "() : nullptr;"});
    }
    if (member.isAssociation()) {
        methods.push_back(
            {.result = "void",
             .name = "set" + m,
             .parameters = "om::Oid id",
             .body = "ResolveId<" + t + ">(*this, id);\n" + StoreSingle(member, "id")});
    }
    return methods;
}

// Each change works on a copy of the value and stores it back.
Methods UnboundedChanges(Member const& member) {
    auto const& m = member.name;
    auto const key = member.keyConstant();
    return {
        {.result = "void",
         .name = "set" + m,
         .parameters = "std::vector<om::Oid> const& ids",
         .body = "ReplaceChildren(*this, " + key + ", ids);"},
        {.result = "void",
         .name = "set" + m,
         .parameters = "om::CompositionValue const& value",
         .body = "setComposition(" + key + ", value);"},
        {.result = "void",
         .name = "addTo" + m,
         .parameters = "om::Oid id",
         .body = "AddChildren(*this, " + key + ", std::vector<om::Oid>{id});"},
        {.result = "void",
         .name = "addTo" + m,
         .parameters = "std::set<om::Oid> const& ids",
         .body = "AddChildren(*this, " + key + ", ids);"},
        {.result = "void",
         .name = "addTo" + m,
         .parameters = "std::vector<om::Oid> const& ids",
         .body = "AddChildren(*this, " + key + ", ids);"},
        {.result = "void",
         .name = "removeFrom" + m,
         .parameters = "om::Oid id",
         .body = "RemoveChildId(*this, " + key + ", id);"},
    };
}

Methods UnboundedQueries(Member const& member) {
    auto const& m = member.name;
    auto const vec = VecName(member.type);
    return {
        {.result = "bool",
         .name = "has" + m,
         .isConst = true,
         .body = "return !" + ValueOf(member) + ".empty();"},
        {.result = "std::uint64_t",
         .name = "get" + m + "Size",
         .isConst = true,
         .body = "return " + ValueOf(member) + ".size();"},
        {.result = "bool",
         .name = "isMemberOf" + m,
         .parameters = "om::Oid id",
         .isConst = true,
         .body = "return " + ValueOf(member) + ".contains(id);"},
        {.result = vec,
         .name = "get" + m,
         .isConst = true,
         .body = "return ResolveIds<" + vec + ">(*this, " + ValueOf(member) + ");"},
        {.result = vec,
         .name = "get" + m + "Vec",
         .isConst = true,
         .body = "return get" + m + "();"},
        {.result = "std::set<" + member.type + " const*>",
         .name = "get" + m + "Set",
         .isConst = true,
         .body = "auto const objects = get" + m + "();\nreturn {objects.begin(), objects.end()};"},
    };
}

} // namespace

Methods RelationMethods(ClassDef const& cls) {
    Methods methods;
    for (auto const& member : cls.members) {
        if (member.isProperty()) {
            continue;
        }
        auto const families = member.isUnbounded() ? std::vector<Methods>{UnboundedChanges(member),
                                                                          UnboundedQueries(member)}
                                                   : std::vector<Methods>{SingleMethods(member)};
        for (auto const& more : families) {
            methods.insert(methods.end(), more.begin(), more.end());
        }
    }
    return methods;
}

Methods NavigationMethods(Schema const& schema, ClassDef const& cls) {
    Methods methods;
    for (auto const* sub : schema.directSubclasses(cls.name)) {
        methods.push_back({.result = sub->name + " const*",
                           .name = "as" + sub->name,
                           .isConst = true,
                           .body = "return dynamic_cast<" + sub->name + " const*>(this);"});
    }
    for (auto const& y : ObjClasses(schema, cls)) {
        methods.push_back({.result = VecName(y),
                           .name = "getObj" + y,
                           .isConst = true,
                           .body = "return ChildrenOfClass<" + VecName(y) + ">(*this);"});
    }
    return methods;
}

} // namespace kel::gen
