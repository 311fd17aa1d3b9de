// The values of an enum.
#pragma once

#include "parser/resolve/Scope.h"

namespace language {

class EnumTypeScope : public Scope {
public:
    EnumTypeScope() = default;
    explicit EnumTypeScope(Scope const& parent) : Scope(parent) {}

    om::Oid findName(std::string const& name) const override;
    std::string getType(std::string const& name) const override;
    void print() const override;

    SymbolTable values;
};

} // namespace language
