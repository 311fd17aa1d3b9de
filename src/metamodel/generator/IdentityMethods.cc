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
    methods.push_back({"", x, "", false, "", "", base + "(true)" + DefaultInitializers(cls),
                       "initializeMembers(getDefinition());"});
    methods.push_back({"", x, "bool flag", false, "", "explicit ",
                       base + "(flag)" + DefaultInitializers(cls), ""});
    methods.push_back(
        {"", x, x + " const& other", false, "", "", base + "(other)" + CopyInitializers(cls), ""});
    methods.push_back(
        {x + "&", "operator=", x + " const& other", false, "", "", "",
         "if (this != &other) {\n    om::Object::operator=(other);\n}\nreturn *this;"});
    methods.push_back({"std::unique_ptr<om::Object>", "clone", "", true, "override", "", "",
                       "return std::make_unique<" + x + ">(*this);"});
    methods.push_back({"om::ObjectDefinition const&", "getDefinition", "", true, "override", "", "",
                       "if (Definition == nullptr) {\n    Definition = new " + x +
                           "Definition();\n}\nreturn *Definition;"});
    methods.push_back({VecName(x), "toConstVec", "", true, "", "", "",
                       VecName(x) + " result;\nresult.push_back(this);\nreturn result;"});
    return methods;
}

} // namespace kel::gen
