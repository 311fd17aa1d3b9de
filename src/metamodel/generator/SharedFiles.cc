#include "SharedFiles.h"

#include "ClassMethods.h"
#include "OutputFile.h"

namespace kel::gen {
namespace {

std::string const Banner =
    "// Generated from metamodel.schema by kel-metamodel-gen; do not edit.\n";

std::string Include(std::string const& name) { return "#include \"metamodel/" + name + ".h\"\n"; }

std::string EnumDeclaration(std::string const& name, std::vector<std::string> const& enumerators) {
    std::string text = "enum " + name + " : std::int32_t {\n";
    for (std::size_t i = 0; i < enumerators.size(); ++i) {
        text += "    " + enumerators[i] + " = " + std::to_string(i) + ",\n";
    }
    return text + "};\n\n";
}

std::string EnumerationsHeader(Schema const& schema) {
    auto text =
        Banner + "// The property types and enumerations of the metamodel with their texts.\n";
    text += "#pragma once\n\n#include <cstdint>\n#include <string>\n\nnamespace kel {\n\n";
    text += "enum PropertyType : std::int32_t {\n";
    for (auto const& type : schema.propertyTypes) {
        text += "    " + type.enumerator + " = " + std::to_string(type.value) + ",\n";
    }
    text += "};\n\n";
    for (auto const& enumeration : schema.enumerations) {
        text += EnumDeclaration(enumeration.name, enumeration.enumerators);
    }
    text += "// \"unknown\" for a value that is no property type.\n"
            "std::string PropertyTypeToString(std::int32_t type);\n"
            "// ptUnknown for a text that names no property type.\n"
            "PropertyType StringToPropertyType(std::string const& text);\n";
    for (auto const& enumeration : schema.enumerations) {
        auto const& e = enumeration.name;
        text += "\n// Both directions raise OMException for a value or a text outside the "
                "enumeration.\n";
        text += "std::string " + e + "2String(" + e + " value);\n";
        text += e + " String2" + e + "(std::string const& text);\n";
    }
    return text + "\n} // namespace kel\n";
}

std::string PropertyTypeConversions(Schema const& schema) {
    std::string toText =
        "std::string PropertyTypeToString(std::int32_t type) {\n    switch (type) {\n";
    std::string fromText = "PropertyType StringToPropertyType(std::string const& text) {\n";
    for (auto const& type : schema.propertyTypes) {
        toText += "    case " + type.enumerator + ":\n        return \"" + type.name + "\";\n";
        fromText += "    if (text == \"" + type.name + "\") {\n        return " + type.enumerator +
                    ";\n    }\n";
    }
    toText += "    default:\n        return \"unknown\";\n    }\n}\n";
    fromText += "    return PropertyType(0);\n}\n";
    return toText + "\n" + fromText;
}

std::string EnumConversions(Enumeration const& enumeration) {
    auto const& e = enumeration.name;
    auto const error = "throw om::OMException(\"" + e + "2String: Unknown enum value\");\n";
    std::string toText = "std::string " + e + "2String(" + e + " value) {\n    switch (value) {\n";
    std::string fromText = e + " String2" + e + "(std::string const& text) {\n";
    for (auto const& enumerator : enumeration.enumerators) {
        toText += "    case " + enumerator + ":\n        return \"" + enumerator + "\";\n";
        fromText += "    if (text == \"" + enumerator + "\") {\n        return " + enumerator +
                    ";\n    }\n";
    }
    toText += "    }\n    " + error + "}\n";
    fromText += "    " + error + "}\n";
    return "\n" + toText + "\n" + fromText;
}

std::string EnumerationsSource(Schema const& schema) {
    auto text =
        Banner + Include("Enumerations") + "\n#include \"om/OMException.h\"\n\nnamespace kel {\n\n";
    text += PropertyTypeConversions(schema);
    for (auto const& enumeration : schema.enumerations) {
        text += EnumConversions(enumeration);
    }
    return text + "\n} // namespace kel\n";
}

std::string AllClassHeaders(Schema const& schema) {
    std::string text;
    for (auto const& cls : schema.classes) {
        text += Include(cls.name);
    }
    return text;
}

// One file, so that the keys are initialised in definition order.
std::string KeysSource(Schema const& schema) {
    auto text = Banner + "// The class names and member keys, in definition order.\n";
    text += AllClassHeaders(schema) + "\nnamespace kel {\n\n";
    for (auto const& cls : schema.classes) {
        text += "std::string const " + cls.name + "::ClassName{\"kel::" + cls.name + "\"};\n";
        for (auto const& member : cls.members) {
            text += "std::string const " + cls.name + "::" + member.keyConstant() + "{\"" +
                    member.name + "\"};\n";
        }
    }
    return text + "\n} // namespace kel\n";
}

std::string FactoryTableSource(Schema const& schema) {
    auto text = Banner + "// The classes that the factory makes, in definition order.\n";
    text +=
        Include("FactoryTable") + AllClassHeaders(schema) + "\nnamespace kel {\nnamespace {\n\n";
    text += "template <class X> std::unique_ptr<om::Object> Make() { return std::make_unique<X>(); "
            "}\n\n";
    text += "} // namespace\n\nstd::span<FactoryEntry const> FactoryEntries() {\n";
    text += "    static FactoryEntry const entries[] = {\n";
    for (auto const& cls : schema.classes) {
        text += "        {&" + cls.name + "::ClassName, &Make<" + cls.name + ">},\n";
    }
    return text + "    };\n    return entries;\n}\n\n} // namespace kel\n";
}

std::string UmbrellaHeader(Schema const& schema) {
    auto text = Banner + "// Every class of the metamodel with its definition and its vector.\n";
    text += "#pragma once\n\n" + Include("Enumerations") + Include("PropertyValue");
    for (auto const& cls : schema.classes) {
        text += Include(cls.name + "Definition") + Include(VecName(cls.name));
    }
    return text;
}

} // namespace

void WriteSharedFiles(Schema const& schema, std::filesystem::path const& dir) {
    WriteIfChanged(dir / "Enumerations.h", EnumerationsHeader(schema));
    WriteIfChanged(dir / "Enumerations.cc", EnumerationsSource(schema));
    WriteIfChanged(dir / "Keys.cc", KeysSource(schema));
    WriteIfChanged(dir / "FactoryTable.cc", FactoryTableSource(schema));
    WriteIfChanged(dir / "Kel.h", UmbrellaHeader(schema));
}

} // namespace kel::gen
