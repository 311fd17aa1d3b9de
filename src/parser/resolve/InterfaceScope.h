// The types and events of an interface.
#pragma once

#include "parser/resolve/ModelScope.h"

namespace language {

class InterfaceScope : public ModelScope {
public:
    explicit InterfaceScope(Scope const& parent) : ModelScope(parent) {}

    om::Oid findName(std::string const& name) const override;
    std::string getType(std::string const& name) const override;
    void print() const override;

    SymbolTable types;
    SymbolTable internals;
};

} // namespace language
