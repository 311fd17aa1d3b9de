#include "ClassMethods.h"

namespace kel::gen {
namespace {

// ", m_A(<init of A>), m_B(<init of B>)" over the class's own properties.
template <class Init> std::string PropertyInitializers(ClassDef const& cls, Init init) {
    std::string text;
    for (auto const& member : cls.members) {
        if (member.isProperty()) {
            text += ", m_" + member.name + "(" + init(member) + ")";
        }
    }
    return text;
}

std::string DefaultInitializers(ClassDef const& cls) {
    return PropertyInitializers(cls, [](Member const& member) {
        return "std::make_unique<PropertyValue>(" + member.defaultValue + ")";
    });
}

std::string CopyInitializers(ClassDef const& cls) {
    return PropertyInitializers(cls, [](Member const& member) { return "other.m_" + member.name; });
}

} // namespace

Methods IdentityMethods(ClassDef const& cls) {
    auto const& x = cls.name;
    auto const& base = cls.base;
    Methods methods;
    methods.push_back({.name = x,
                       .initializers = base + "(true)" + DefaultInitializers(cls),
                       .body = "initializeMembers(getDefinition());"});
    methods.push_back({.name = x,
                       .parameters = "bool flag",
                       .prefix = "explicit ",
                       .initializers = base + "(flag)" + DefaultInitializers(cls)});
    methods.push_back({.name = x,
                       .parameters = x + " const& other",
                       .initializers = base + "(other)" + CopyInitializers(cls)});
    methods.push_back(
        {.result = x + "&",
         .name = "operator=",
         .parameters = x + " const& other",
         .body = "if (this != &other) {\n    om::Object::operator=(other);\n}\nreturn *this;"});
    methods.push_back({.result = "std::unique_ptr<om::Object>",
                       .name = "clone",
                       .isConst = true,
                       .specifier = "override",
                       .body = "return std::make_unique<" + x + ">(*this);"});
    methods.push_back({.result = "om::ObjectDefinition const&",
                       .name = "getDefinition",
                       .isConst = true,
                       .specifier = "override",
                       .body = "if (Definition == nullptr) {\n    Definition = new " + x +
                               "Definition();\n}\nreturn *Definition;"});
    methods.push_back({.result = VecName(x),
                       .name = "toConstVec",
                       .isConst = true,
                       .body = VecName(x) + " result;\nresult.push_back(this);\nreturn result;"});
    return methods;
}

} // namespace kel::gen
