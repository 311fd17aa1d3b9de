#include "ClassMethods.h"

namespace kel::gen {
namespace {

std::string Getter(PropertyTypeRow const& type) { return "getUnchecked" + type.accessor + "()"; }

Methods AccessorsOf(PropertyTypeRow const& type, Member const& member) {
    auto const value = "m_" + member.name;
    Methods const methods{
        {.result = ResultType(type),
         .name = "get" + member.name,
         .isConst = true,
         .body = "return " + value + ";"},
        {.result = "void",
         .name = "set" + member.name,
         .parameters = ParameterType(type) + " value",
         .body = value + " = value;"},
        {.result = ResultType(type),
         .name = "getDefaultValueFor" + member.name,
         .isConst = true,
         .body = "return PropCast(getDefinition().getPropertyDef(" + member.keyConstant() +
                 ").getDefaultValue())." + Getter(type) + ";"},
    };
    return Family(member.name + ", a " + type.name +
                      " property: its value, a new one, the default.",
                  methods);
}

std::string AssignBody(ClassDef const& cls) {
    std::string body = cls.base + "::tryAssignProperties(other, flag);\n";
    body += "if (auto const* same = dynamic_cast<" + cls.name + " const*>(&other)) {\n";
    for (auto const& member : cls.members) {
        if (member.isProperty()) {
            body += "    m_" + member.name + " = same->m_" + member.name + ";\n";
        }
    }
    return body + "}";
}

std::string EqualBody(ClassDef const& cls) {
    std::string body = "auto const* same = dynamic_cast<" + cls.name + " const*>(&other);\n";
    body += "if (same == nullptr";
    for (auto const& member : cls.members) {
        if (member.isProperty()) {
            body += " || m_" + member.name + " != same->m_" + member.name;
        }
    }
    return body + ") {\n    return false;\n}\nreturn " + cls.base + "::propertiesEqual(other);";
}

std::string GetPropertyBody(ClassDef const& cls) {
    std::string body;
    for (auto const& member : cls.members) {
        if (member.isProperty()) {
            body += "if (name == " + member.keyConstant() + ") {\n    return PropertyHandle(*this, " +
                    member.keyConstant() + ", PropertyValue(m_" + member.name + "));\n}\n";
        }
    }
    return body + "return " + cls.base + "::getProperty(name);";
}

std::string SetPropertyBody(Schema const& schema, ClassDef const& cls) {
    std::string body;
    for (auto const& member : cls.members) {
        if (member.isProperty()) {
            auto const& type = schema.getPropertyType(member.type);
            body += "if (name == " + member.keyConstant() + ") {\n    m_" + member.name +
                    " = PropCast(value).get" + type.accessor + "();\n    return;\n}\n";
        }
    }
    return body + cls.base + "::setProperty(name, value);";
}

Methods PropertyOverrides(Schema const& schema, ClassDef const& cls) {
    Methods const methods{
        {.result = "void",
         .name = "tryAssignProperties",
         .parameters = "om::Object const& other, bool flag",
         .specifier = "override",
         .body = AssignBody(cls)},
        {.result = "bool",
         .name = "propertiesEqual",
         .parameters = "om::Object const& other",
         .isConst = true,
         .specifier = "override",
         .body = EqualBody(cls)},
        {.result = "om::PropertyValueBase const&",
         .name = "getProperty",
         .parameters = "std::string const& name",
         .isConst = true,
         .specifier = "override",
         .body = GetPropertyBody(cls)},
        {.result = "void",
         .name = "setProperty",
         .parameters = "std::string const& name, om::PropertyValueBase const& value",
         .specifier = "override",
         .body = SetPropertyBody(schema, cls)},
    };
    return Family("The properties for the store: copied, compared, and reached by name.", methods);
}

} // namespace

std::string ResultType(PropertyTypeRow const& type) {
    return type.passByReference ? type.cppType + " const&" : type.cppType;
}

std::string ParameterType(PropertyTypeRow const& type) { return ResultType(type); }

std::string VecName(std::string const& className) { return "Const" + className + "Vec"; }

Methods PropertyMethods(Schema const& schema, ClassDef const& cls) {
    Methods methods;
    for (auto const& member : cls.members) {
        if (member.isProperty()) {
            auto accessors = AccessorsOf(schema.getPropertyType(member.type), member);
            methods.insert(methods.end(), accessors.begin(), accessors.end());
        }
    }
    if (cls.hasProperties()) {
        auto overrides = PropertyOverrides(schema, cls);
        methods.insert(methods.end(), overrides.begin(), overrides.end());
    }
    return methods;
}

} // namespace kel::gen
