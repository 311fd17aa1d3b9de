// The parameters and variables of a function; a parameter hides a variable.
#pragma once

#include "parser/resolve/LocalVariablesScope.h"

namespace language {

class FunctionScope : public LocalVariablesScope {
public:
    explicit FunctionScope(Scope const& parent) : LocalVariablesScope(parent) {}

    om::Oid findName(std::string const& name) const override;
    std::string getType(std::string const& name) const override;
    void print() const override;

    SymbolTable parameters;
};

} // namespace language
