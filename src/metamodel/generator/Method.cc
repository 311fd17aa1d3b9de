#include "Method.h"

#include <sstream>

namespace kel::gen {
namespace {

std::string Signature(Method const& method, std::string const& qualifiedName) {
    std::string text;
    if (!method.result.empty()) {
        text += method.result + " ";
    }
    text += qualifiedName + "(" + method.parameters + ")";
    if (method.isConst) {
        text += " const";
    }
    return text;
}

std::string IndentedBody(std::string const& body) {
    std::istringstream in(body);
    std::string text;
    for (std::string line; std::getline(in, line);) {
        text += line.empty() ? "\n" : "    " + line + "\n";
    }
    return text;
}

} // namespace

std::string Method::declaration() const {
    auto text = prefix + Signature(*this, name);
    if (!specifier.empty()) {
        text += " " + specifier;
    }
    return text + ";";
}

std::string Method::definition(std::string const& className) const {
    if (specifier == "= default") {
        return {};
    }
    auto text = Signature(*this, className + "::" + name);
    if (!initializers.empty()) {
        text += "\n    : " + initializers;
    }
    return text + " {\n" + IndentedBody(body) + "}\n";
}

Methods Family(std::string const& comment, Methods methods) {
    if (!methods.empty()) {
        methods.front().comment = comment;
    }
    return methods;
}

void PrintDeclarations(std::string& out, Methods const& methods) {
    for (auto const& method : methods) {
        if (!method.comment.empty()) {
            if (&method != &methods.front()) {
                out += "\n";
            }
            out += "    // " + method.comment + "\n";
        }
        out += "    " + method.declaration() + "\n";
    }
}

void PrintDefinitions(std::string& out, std::string const& className, Methods const& methods) {
    for (auto const& method : methods) {
        auto const text = method.definition(className);
        if (!text.empty()) {
            out += "\n" + text;
        }
    }
}

} // namespace kel::gen
