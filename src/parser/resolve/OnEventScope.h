// The variables bound by the triggers of an on statement.
#pragma once

#include "parser/resolve/LocalVariablesScope.h"

namespace language {

class OnEventScope : public LocalVariablesScope {
public:
    explicit OnEventScope(Scope const& parent) : LocalVariablesScope(parent) {}

    void print() const override;
};

} // namespace language
