// The variables declared in one compound statement.
#pragma once

#include "parser/resolve/LocalVariablesScope.h"

namespace language {

class CompoundScope : public LocalVariablesScope {
public:
    explicit CompoundScope(Scope const& parent) : LocalVariablesScope(parent) {}

    void print() const override;
};

} // namespace language
