#include "ClassMethods.h"

namespace kel::gen {
namespace {

// The member's value in its slot, e.g. "getCompositionAt(2, MComposition)",
// or with `Ref` the same for a change in place.
std::string ValueOf(Schema const& schema, ClassDef const& cls, Member const& member,
                    std::string const& ref = "") {
    auto const getter = (member.isComposition() ? "getComposition" : "getAssociation") + ref;
    return getter + "At(" + std::to_string(schema.slotOf(cls, member)) + ", " +
           member.keyConstant() + ")";
}

// Stores one id, or none for NULL_OID, as the member's whole value. A single
// member's bounds allow both, so the definition need not check them.
std::string StoreSingle(std::string const& place, std::string const& id) {
    return place + ".set(" + id + ");";
}

// "composed PortDeclaration objects", as the comments above the families say.
std::string Related(Member const& member, std::string const& rest) {
    return (member.isComposition() ? "composed " : "associated ") + member.type + rest;
}

// `value` reads the member, `place` changes it.
Methods SingleMethods(std::string const& value, std::string const& place, Member const& member) {
    auto const& m = member.name;
    auto const& t = member.type;
    Methods methods{
        {.result = "om::Oid",
         .name = "get" + m + "Oid",
         .isConst = true,
         .body = "return " + value + ".get();"},
        {.result = "void",
         .name = "set" + m,
         .parameters = t + " const& value",
         .body = "getOwner().find(value.getOid());\n" + StoreSingle(place, "value.getOid()")},
        {.result = t + " const&",
         .name = "get" + m,
         .isConst = true,
         .body = "return ResolveId<" + t + ">(*this, get" + m + "Oid());"},
    };
    if (member.isOptional()) {
        methods.push_back({.result = "bool",
                           .name = "has" + m,
                           .isConst = true,
                           .body = "return " + value + ".size() != 0;"});
        methods.push_back(
            {.result = "void", .name = "clear" + m, .body = StoreSingle(place, "om::NULL_OID")});
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
             .body = "ResolveId<" + t + ">(*this, id);\n" + StoreSingle(place, "id")});
    }
    return Family(m + ": the " +
                      Related(member, member.isOptional() ? ", or none." : ", exactly one."),
                  methods);
}

// Each change works on a copy of the value and stores it back.
Methods UnboundedChanges(Member const& member) {
    auto const& m = member.name;
    auto const key = member.keyConstant();
    Methods const methods{
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
    return Family(m + ": replacing, adding and removing " + Related(member, " objects."), methods);
}

Methods UnboundedQueries(std::string const& value, Member const& member) {
    auto const& m = member.name;
    auto const vec = VecName(member.type);
    Methods const methods{
        {.result = "bool",
         .name = "has" + m,
         .isConst = true,
         .body = "return !" + value + ".empty();"},
        {.result = "std::uint64_t",
         .name = "get" + m + "Size",
         .isConst = true,
         .body = "return " + value + ".size();"},
        {.result = "bool",
         .name = "isMemberOf" + m,
         .parameters = "om::Oid id",
         .isConst = true,
         .body = "return " + value + ".contains(id);"},
        {.result = vec,
         .name = "get" + m,
         .isConst = true,
         .body = "return ResolveIds<" + vec + ">(*this, " + value + ");"},
        // A walk that finds each object as it reaches it, with no vector to build.
        {.result = "om::ObjectView<" + member.type + ">",
         .name = "get" + m + "View",
         .isConst = true,
         .body = "return {getOwner(), " + value + "};"},
        {.result = vec,
         .name = "get" + m + "Vec",
         .isConst = true,
         .body = "return get" + m + "();"},
        {.result = "std::set<" + member.type + " const*>",
         .name = "get" + m + "Set",
         .isConst = true,
         .body = "auto const objects = get" + m + "();\nreturn {objects.begin(), objects.end()};"},
    };
    return Family(m + ": the " + Related(member, " objects in order, and their count."), methods);
}

} // namespace

Methods RelationMethods(Schema const& schema, ClassDef const& cls) {
    Methods methods;
    for (auto const& member : cls.members) {
        if (member.isProperty()) {
            continue;
        }
        auto const value = ValueOf(schema, cls, member);
        auto const place = ValueOf(schema, cls, member, "Ref");
        auto const families =
            member.isUnbounded()
                ? std::vector<Methods>{UnboundedChanges(member), UnboundedQueries(value, member)}
                : std::vector<Methods>{SingleMethods(value, place, member)};
        for (auto const& more : families) {
            methods.insert(methods.end(), more.begin(), more.end());
        }
    }
    return methods;
}

Methods NavigationMethods(Schema const& schema, ClassDef const& cls) {
    Methods casts;
    for (auto const* sub : schema.directSubclasses(cls.name)) {
        casts.push_back({.result = sub->name + " const*",
                         .name = "as" + sub->name,
                         .isConst = true,
                         .body = "return om::TryAs<" + sub->name + ">(this);"});
    }
    Methods children;
    for (auto const& y : ObjClasses(schema, cls)) {
        children.push_back({.result = VecName(y),
                            .name = "getObj" + y,
                            .isConst = true,
                            .body = "return ChildrenOfClass<" + VecName(y) + ">(*this);"});
    }
    auto methods =
        Family("This object as each direct subclass, or null when it is not one.", casts);
    auto more = Family("The children of each class that a composition may hold.", children);
    methods.insert(methods.end(), more.begin(), more.end());
    return methods;
}

} // namespace kel::gen
