#include "ClassFiles.h"

#include "ClassMethods.h"
#include "OutputFile.h"

namespace kel::gen {
namespace {

std::string const Banner =
    "// Generated from metamodel.schema by kel-metamodel-gen; do not edit.\n";

std::string Include(std::string const& name) { return "#include \"metamodel/" + name + ".h\"\n"; }

std::string ForwardDeclarations(Schema const& schema, ClassDef const& cls) {
    std::string text = "class " + cls.name + ";\nclass " + cls.name + "Definition;\nclass " +
                       VecName(cls.name) + ";\n";
    for (auto const& name : ReferencedClasses(schema, cls)) {
        text += "class " + name + ";\nclass " + VecName(name) + ";\n";
    }
    return text;
}

std::string Statics(Schema const& schema, ClassDef const& cls) {
    auto const kinds = schema.kindRange(cls.name);
    std::string text = "    static std::string const ClassName;\n";
    text += "    static constexpr std::uint32_t FirstKind = " + std::to_string(kinds.first) +
            ";\n    static constexpr std::uint32_t LastKind = " + std::to_string(kinds.last) +
            ";\n";
    for (auto const& member : cls.members) {
        text += "    static std::string const " + member.keyConstant() + ";\n";
    }
    return text + "    static " + cls.name + "Definition const* Definition;\n\n";
}

// Plain fields: a property costs its value and nothing on the heap.
std::string PropertyFields(Schema const& schema, ClassDef const& cls) {
    std::string text;
    for (auto const& member : cls.members) {
        if (member.isProperty()) {
            text += "    " + schema.getPropertyType(member.type).cppType + " m_" + member.name +
                    "{" + member.defaultValue + "};\n";
        }
    }
    return text.empty() ? text : "\nprivate:\n" + text;
}

Methods ClassMethodsOf(Schema const& schema, ClassDef const& cls) {
    auto methods = IdentityMethods(cls);
    for (auto const& more : {PropertyMethods(schema, cls), RelationMethods(schema, cls),
                             NavigationMethods(schema, cls)}) {
        methods.insert(methods.end(), more.begin(), more.end());
    }
    return methods;
}

std::string ClassHeader(Schema const& schema, ClassDef const& cls) {
    auto text = Banner + "// The metamodel class kel::" + cls.name + ".\n#pragma once\n\n";
    text += cls.hasRootBase() ? "#include \"om/Object.h\"\n" : Include(cls.base);
    text += Include("Enumerations");
    text += "#include \"om/ObjectView.h\"\n";
    text += "\n#include <cstdint>\n#include <memory>\n#include <set>\n#include <string>\n"
            "#include <vector>\n\nnamespace kel {\n\n";
    text += ForwardDeclarations(schema, cls);
    text +=
        "\nclass " + cls.name + " : public " + cls.base + " {\npublic:\n" + Statics(schema, cls);
    PrintDeclarations(text, ClassMethodsOf(schema, cls));
    return text + PropertyFields(schema, cls) + "};\n\n} // namespace kel\n";
}

std::string DefinitionHeader(Schema const& schema, ClassDef const& cls) {
    auto text = Banner + "// The run-time definition of kel::" + cls.name + ".\n#pragma once\n\n";
    text += cls.hasRootBase() ? "#include \"om/ObjectDefinition.h\"\n"
                              : Include(cls.base + "Definition");
    text += "\n#include <string>\n\nnamespace kel {\n\nclass " + cls.name + "Definition : public " +
            (cls.hasRootBase() ? "om::ObjectDefinition" : cls.base + "Definition") +
            " {\npublic:\n";
    PrintDeclarations(text, DefinitionMethods(schema, cls));
    return text + "};\n\n} // namespace kel\n";
}

std::string VectorHeader(Schema const& schema, ClassDef const& cls) {
    auto const vec = VecName(cls.name);
    auto text =
        Banner + "// A vector of kel::" + cls.name + " objects in the store.\n#pragma once\n\n";
    text +=
        Include(cls.name) + "\n#include \"om/Oid.h\"\n\n#include <vector>\n\nnamespace kel {\n\n";
    text += ForwardDeclarations(schema, cls);
    text += "\nclass " + vec + " : public std::vector<" + cls.name + " const*> {\npublic:\n";
    text += "    using std::vector<" + cls.name + " const*>::vector;\n\n";
    PrintDeclarations(text, VectorMethods(schema, cls));
    return text + "};\n\n} // namespace kel\n";
}

std::string Source(Schema const& schema, ClassDef const& cls) {
    auto text =
        Banner + "// The members of kel::" + cls.name + ", its definition and its vector.\n";
    text += Include(cls.name) + Include(cls.name + "Definition") + Include(VecName(cls.name));
    for (auto const& name : ReferencedClasses(schema, cls)) {
        text += Include(VecName(name));
    }
    text += Include("MemberAccess") + Include("PropCast") + Include("PropertyHandles") +
            Include("PropertyValue");
    text += "#include \"om/ObjectModel.h\"\n\nnamespace kel {\n\n";
    text += cls.name + "Definition const* " + cls.name + "::Definition = nullptr;\n";
    PrintDefinitions(text, cls.name, ClassMethodsOf(schema, cls));
    PrintDefinitions(text, cls.name + "Definition", DefinitionMethods(schema, cls));
    PrintDefinitions(text, VecName(cls.name), VectorMethods(schema, cls));
    return text + "\n} // namespace kel\n";
}

} // namespace

void WriteClassFiles(Schema const& schema, ClassDef const& cls, std::filesystem::path const& dir) {
    WriteIfChanged(dir / (cls.name + ".h"), ClassHeader(schema, cls));
    WriteIfChanged(dir / (cls.name + "Definition.h"), DefinitionHeader(schema, cls));
    WriteIfChanged(dir / (VecName(cls.name) + ".h"), VectorHeader(schema, cls));
    WriteIfChanged(dir / (cls.name + ".cc"), Source(schema, cls));
}

} // namespace kel::gen
