// The ports of a component.
#pragma once

#include "parser/resolve/ModelScope.h"

namespace language {

class ComponentScope : public ModelScope {
public:
    explicit ComponentScope(Scope const& parent) : ModelScope(parent) {}

    om::Oid findName(std::string const& name) const override;
    std::string getType(std::string const& name) const override;
    void print() const override;

    SymbolTable ports;
};

} // namespace language
