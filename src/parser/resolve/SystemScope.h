// The ports and instances of a component with a system; an instance hides a port.
#pragma once

#include "parser/resolve/ComponentScope.h"

namespace language {

class SystemScope : public ComponentScope {
public:
    explicit SystemScope(Scope const& parent) : ComponentScope(parent) {}

    om::Oid findName(std::string const& name) const override;
    std::string getType(std::string const& name) const override;
    void print() const override;

    SymbolTable instances;
};

} // namespace language
