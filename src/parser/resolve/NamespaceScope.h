// The names declared in one namespace.
#pragma once

#include "parser/resolve/Scope.h"

namespace language {

class NamespaceScope : public Scope {
public:
    NamespaceScope() = default;
    explicit NamespaceScope(Scope const& parent) : Scope(parent) {}

    om::Oid findName(std::string const& name) const override;
    std::string getType(std::string const& name) const override;
    void print() const override;

    SymbolTable namespaces;
    SymbolTable interfaces;
    SymbolTable components;
    SymbolTable types;
};

} // namespace language
