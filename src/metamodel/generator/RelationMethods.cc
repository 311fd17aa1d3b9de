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
        {"om::Oid", "get" + m + "Oid", "", true, "", "", "",
         "return " + ValueOf(member) + ".get();"},
        {"void", "set" + m, t + " const& value", false, "", "", "",
         "getOwner().find(value.getOid());\n" + StoreSingle(member, "value.getOid()")},
        {t + " const&", "get" + m, "", true, "", "", "",
         "return ResolveId<" + t + ">(*this, get" + m + "Oid());"},
    };
    if (member.isOptional()) {
        methods.push_back({"bool", "has" + m, "", true, "", "", "",
                           "return " + ValueOf(member) + ".size() != 0;"});
        methods.push_back(
            {"void", "clear" + m, "", false, "", "", "", StoreSingle(member, "om::NULL_OID")});
        methods.push_back({t + " const*", "tryGet" + m, "", true, "", "", "",
                           "return has" + m + "() ? &get" + m + "() : nullptr;"});
    }
    if (member.isAssociation()) {
        methods.push_back({"void", "set" + m, "om::Oid id", false, "", "", "",
                           "ResolveId<" + t + ">(*this, id);\n" + StoreSingle(member, "id")});
    }
    return methods;
}

Methods UnboundedMethods(Member const& member) {
    auto const& m = member.name;
    auto const key = member.keyConstant();
    auto const vec = VecName(member.type);
    return {
        {"void", "set" + m, "std::vector<om::Oid> const& ids", false, "", "", "",
         "ReplaceChildren(*this, " + key + ", ids);"},
        {"void", "set" + m, "om::CompositionValue const& value", false, "", "", "",
         "setComposition(" + key + ", value);"},
        {"void", "addTo" + m, "om::Oid id", false, "", "", "",
         "AddChildren(*this, " + key + ", std::vector<om::Oid>{id});"},
        {"void", "addTo" + m, "std::set<om::Oid> const& ids", false, "", "", "",
         "AddChildren(*this, " + key + ", ids);"},
        {"void", "addTo" + m, "std::vector<om::Oid> const& ids", false, "", "", "",
         "AddChildren(*this, " + key + ", ids);"},
        {"void", "removeFrom" + m, "om::Oid id", false, "", "", "",
         "RemoveChildId(*this, " + key + ", id);"},
        {"bool", "has" + m, "", true, "", "", "", "return !" + ValueOf(member) + ".empty();"},
        {"std::uint64_t", "get" + m + "Size", "", true, "", "", "",
         "return " + ValueOf(member) + ".size();"},
        {"bool", "isMemberOf" + m, "om::Oid id", true, "", "", "",
         "return " + ValueOf(member) + ".contains(id);"},
        {vec, "get" + m, "", true, "", "", "",
         "return ResolveIds<" + vec + ">(*this, " + ValueOf(member) + ");"},
        {vec, "get" + m + "Vec", "", true, "", "", "", "return get" + m + "();"},
        {"std::set<" + member.type + " const*>", "get" + m + "Set", "", true, "", "", "",
         "auto const objects = get" + m + "();\nreturn {objects.begin(), objects.end()};"},
    };
}

} // namespace

Methods RelationMethods(ClassDef const& cls) {
    Methods methods;
    for (auto const& member : cls.members) {
        if (member.isProperty()) {
            continue;
        }
        auto const more = member.isUnbounded() ? UnboundedMethods(member) : SingleMethods(member);
        methods.insert(methods.end(), more.begin(), more.end());
    }
    return methods;
}

Methods NavigationMethods(Schema const& schema, ClassDef const& cls) {
    Methods methods;
    for (auto const* sub : schema.directSubclasses(cls.name)) {
        methods.push_back({sub->name + " const*", "as" + sub->name, "", true, "", "", "",
                           "return dynamic_cast<" + sub->name + " const*>(this);"});
    }
    for (auto const& y : ObjClasses(schema, cls)) {
        methods.push_back({VecName(y), "getObj" + y, "", true, "", "", "",
                           "return ChildrenOfClass<" + VecName(y) + ">(*this);"});
    }
    return methods;
}

} // namespace kel::gen
