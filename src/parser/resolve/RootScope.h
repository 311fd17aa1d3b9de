// The top scope: the namespaces of the root, the default one under the empty name.
#pragma once

#include "parser/resolve/Scope.h"

namespace language {

class RootScope : public Scope {
public:
    RootScope() = default;
    explicit RootScope(Scope const& parent) : Scope(parent) {}

    om::Oid findName(std::string const& name) const override;
    std::string getType(std::string const& name) const override;
    void print() const override;

    SymbolTable namespaces;
};

} // namespace language
