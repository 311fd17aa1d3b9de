// The stored tree of a parse as one line of text, for comparing what a parse kept.
#pragma once

#include "metamodel/BuiltinDeclarations.h"
#include "om/Object.h"

#include <string>

namespace language::test {

// The class without its namespace, the name of a named object after it, and
// the children in brackets; references are left out, as they only repeat a name.
inline std::string outline(om::Object const& object) {
    std::string text = object.getClassName().substr(object.getClassName().rfind(':') + 1);
    if (auto const* named = dynamic_cast<kel::Named const*>(&object);
        named && !named->getName().empty()) {
        text += " " + named->getName();
    }
    std::string children;
    for (auto const& [member, definition] : object.getCompositionDefs()) {
        for (om::Object const* child : object.getCompositionObjects(member)) {
            if (child->getClassName().ends_with("Reference")) {
                continue;
            }
            children += (children.empty() ? "" : ", ") + outline(*child);
        }
    }
    return children.empty() ? text : text + "[" + children + "]";
}

// The types and models that the parse filed in the default namespace; empty
// when the parse gave up before filing any.
inline std::string declarations(om::ObjectModel const& model) {
    kel::Namespace const* top = kel::GetDefaultNamespace(model);
    std::string text;
    if (top == nullptr) {
        return text;
    }
    for (om::Object const* declaration : top->getCompositionObjects("Types")) {
        text += (text.empty() ? "" : "; ") + outline(*declaration);
    }
    for (om::Object const* declaration : top->getCompositionObjects("Models")) {
        text += (text.empty() ? "" : "; ") + outline(*declaration);
    }
    return text;
}

} // namespace language::test
