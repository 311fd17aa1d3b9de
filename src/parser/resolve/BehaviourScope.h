// The types, internal ports, functions and variables of a behaviour; a type hides a variable.
#pragma once

#include "parser/resolve/LocalVariablesScope.h"

namespace language {

class BehaviourScope : public LocalVariablesScope {
public:
    explicit BehaviourScope(Scope const& parent) : LocalVariablesScope(parent) {}

    om::Oid findName(std::string const& name) const override;
    std::string getType(std::string const& name) const override;
    void print() const override;

    SymbolTable types;
    SymbolTable internals;
    SymbolTable functions;
};

} // namespace language
