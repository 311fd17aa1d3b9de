// The scope of a model; it holds no names itself, its subclasses do.
#pragma once

#include "parser/resolve/Scope.h"

namespace language {

class ModelScope : public Scope {
public:
    ModelScope() = default;
    explicit ModelScope(Scope const& parent) : Scope(parent) {}

    om::Oid findName(std::string const& name) const override;
    std::string getType(std::string const& name) const override;
    void print() const override;
};

} // namespace language
