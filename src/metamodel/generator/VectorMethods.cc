#include "ClassMethods.h"

namespace kel::gen {
namespace {

// A lambda that adds what one element contributes to `out`.
std::string Collect(std::string const& resultType, std::string const& x, std::string const& add) {
    return "return CollectFrom<" + resultType + ">(*this, [](" + x + " const& element, " +
           resultType + "& out) {\n    " + add + "\n});";
}

std::string AddObjects(Member const& member) {
    auto const& m = member.name;
    if (member.isUnbounded()) {
        return "auto const part = element.get" + m +
               "();\n    out.insert(out.end(), part.begin(), part.end());";
    }
    auto const add = "out.push_back(&element.get" + m + "());";
    return member.isOptional() ? "if (element.has" + m + "()) {\n        " + add + "\n    }" : add;
}

std::string AddOids(std::string const& x, Member const& member) {
    auto const& m = member.name;
    if (member.isUnbounded()) {
        return "auto const& ids = element.getComposition(" + x + "::" + member.keyConstant() +
               ");\n    out.insert(out.end(), ids.begin(), ids.end());";
    }
    auto const add = "out.push_back(element.get" + m + "Oid());";
    return member.isOptional() ? "if (element.has" + m + "()) {\n        " + add + "\n    }" : add;
}

Methods Specials(std::string const& vec) {
    return {
        {"", vec, "", false, "= default", "", "", ""},
        {"", vec, vec + " const& other", false, "= default", "", "", ""},
        {"", vec, vec + "&& other", false, "= default", "", "", ""},
        {vec + "&", "operator=", vec + " const& other", false, "= default", "", "", ""},
        {vec + "&", "operator=", vec + "&& other", false, "= default", "", "", ""},
        // Out of line, so that the vtable is emitted once, with the class's members.
        {"", "~" + vec, "", false, "", "virtual ", "", ""},
    };
}

Methods Casts(Schema const& schema, ClassDef const& cls) {
    Methods methods;
    for (auto const* ancestor : schema.ancestors(cls.name)) {
        methods.push_back({VecName(ancestor->name), "as" + ancestor->name, "", true, "", "", "",
                           "return Upcast<" + VecName(ancestor->name) + ">(*this);"});
    }
    for (auto const* sub : schema.directSubclasses(cls.name)) {
        methods.push_back({VecName(sub->name), "as" + sub->name, "", true, "", "", "",
                           "return Downcast<" + VecName(sub->name) + ">(*this);"});
    }
    return methods;
}

Methods OwnGetters(ClassDef const& cls) {
    Methods methods;
    for (auto const& member : cls.members) {
        if (member.isProperty()) {
            continue;
        }
        auto const vec = VecName(member.type);
        methods.push_back({vec, "get" + member.name, "", true, "", "", "",
                           Collect(vec, cls.name, AddObjects(member))});
        methods.push_back({"std::vector<om::Oid>", "get" + member.name + "Oid", "", true, "", "",
                           "",
                           Collect("std::vector<om::Oid>", cls.name, AddOids(cls.name, member))});
    }
    return methods;
}

Methods BaseGetters(Schema const& schema, ClassDef const& cls) {
    Methods methods;
    if (cls.hasRootBase()) {
        return methods;
    }
    for (auto const& member : schema.getClass(cls.base).members) {
        if (!member.isProperty()) {
            methods.push_back({VecName(member.type), "get" + member.name, "", true, "", "", "",
                               "return as" + cls.base + "().get" + member.name + "();"});
        }
    }
    return methods;
}

} // namespace

Methods VectorMethods(Schema const& schema, ClassDef const& cls) {
    auto const vec = VecName(cls.name);
    auto methods = Specials(vec);
    methods.push_back({cls.name + " const*", "toPtr", "", true, "", "", "",
                       "return SingleElement(*this, \"" + vec + "\");"});
    for (auto const& more : {Casts(schema, cls), OwnGetters(cls), BaseGetters(schema, cls)}) {
        methods.insert(methods.end(), more.begin(), more.end());
    }
    return methods;
}

} // namespace kel::gen
