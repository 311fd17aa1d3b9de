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

std::string AddOids(Schema const& schema, ClassDef const& cls, Member const& member) {
    auto const& m = member.name;
    if (member.isUnbounded()) {
        return "auto const& ids = element.getCompositionAt(" +
               std::to_string(schema.slotOf(cls, member)) + ", " + cls.name +
               "::" + member.keyConstant() + ");\n    out.insert(out.end(), ids.begin(), ids.end());";
    }
    auto const add = "out.push_back(element.get" + m + "Oid());";
    return member.isOptional() ? "if (element.has" + m + "()) {\n        " + add + "\n    }" : add;
}

Methods Specials(std::string const& vec) {
    Methods const methods{
        {.name = vec, .specifier = "= default"},
        {.name = vec, .parameters = vec + " const& other", .specifier = "= default"},
        {.name = vec, .parameters = vec + "&& other", .specifier = "= default"},
        {.result = vec + "&",
         .name = "operator=",
         .parameters = vec + " const& other",
         .specifier = "= default"},
        {.result = vec + "&",
         .name = "operator=",
         .parameters = vec + "&& other",
         .specifier = "= default"},
        // Out of line, so that the vtable is emitted once, with the class's members.
        {.name = "~" + vec, .prefix = "virtual "},
    };
    return Family("A plain vector of pointers into the store.", methods);
}

Methods Casts(Schema const& schema, ClassDef const& cls) {
    Methods up;
    for (auto const* ancestor : schema.ancestors(cls.name)) {
        up.push_back({.result = VecName(ancestor->name),
                      .name = "as" + ancestor->name,
                      .isConst = true,
                      .body = "return Upcast<" + VecName(ancestor->name) + ">(*this);"});
    }
    Methods down;
    for (auto const* sub : schema.directSubclasses(cls.name)) {
        down.push_back({.result = VecName(sub->name),
                        .name = "as" + sub->name,
                        .isConst = true,
                        .body = "return Downcast<" + VecName(sub->name) + ">(*this);"});
    }
    auto methods = Family("All elements as a vector of each base class.", up);
    auto more = Family("The elements that belong to each direct subclass, in order.", down);
    methods.insert(methods.end(), more.begin(), more.end());
    return methods;
}

Methods OwnGetters(Schema const& schema, ClassDef const& cls) {
    Methods methods;
    for (auto const& member : cls.members) {
        if (member.isProperty()) {
            continue;
        }
        auto const vec = VecName(member.type);
        methods.push_back({.result = vec,
                           .name = "get" + member.name,
                           .isConst = true,
                           .body = Collect(vec, cls.name, AddObjects(member))});
        methods.push_back(
            {.result = "std::vector<om::Oid>",
             .name = "get" + member.name + "Oid",
             .isConst = true,
             .body = Collect("std::vector<om::Oid>", cls.name, AddOids(schema, cls, member))});
    }
    return Family("Each relation of the class, collected over the elements in order.", methods);
}

Methods BaseGetters(Schema const& schema, ClassDef const& cls) {
    Methods methods;
    if (cls.hasRootBase()) {
        return methods;
    }
    for (auto const& member : schema.getClass(cls.base).members) {
        if (!member.isProperty()) {
            methods.push_back({.result = VecName(member.type),
                               .name = "get" + member.name,
                               .isConst = true,
                               .body = "return as" + cls.base + "().get" + member.name + "();"});
        }
    }
    return Family("Each relation of the base class, collected over the elements.", methods);
}

} // namespace

Methods VectorMethods(Schema const& schema, ClassDef const& cls) {
    auto const vec = VecName(cls.name);
    auto methods = Specials(vec);
    Methods const single{{.result = cls.name + " const*",
                          .name = "toPtr",
                          .isConst = true,
                          .body = "return SingleElement(*this, \"" + vec + "\");"}};
    for (auto const& more :
         {Family("The one element, null for none; more is an error.", single), Casts(schema, cls),
          OwnGetters(schema, cls), BaseGetters(schema, cls)}) {
        methods.insert(methods.end(), more.begin(), more.end());
    }
    return methods;
}

} // namespace kel::gen
