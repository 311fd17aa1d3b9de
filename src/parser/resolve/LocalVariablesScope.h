// Variables declared inside a behaviour or function.
#pragma once

#include "parser/resolve/Scope.h"

namespace language {

class LocalVariablesScope : public Scope {
public:
    LocalVariablesScope() = default;
    explicit LocalVariablesScope(Scope const& parent) : Scope(parent) {}

    om::Oid findName(std::string const& name) const override;
    std::string getType(std::string const& name) const override;
    void print() const override;

    SymbolTable variables;
};

} // namespace language
