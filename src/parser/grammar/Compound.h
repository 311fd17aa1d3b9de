// A dotted name with, perhaps, a parenthesised list of arguments: a.b or a.b(x, y).
#pragma once

#include "parser/grammar/Name.h"
#include "parser/grammar/Oids.h"

#include <utility>

namespace language {

struct Compound {
    Compound() = default;
    Compound(Names names, Oids arguments)
        : names(std::move(names)), parentheses(true), arguments(std::move(arguments)) {}
    explicit Compound(Names names) : names(std::move(names)) {}

    Names names;
    bool parentheses = false;
    Oids arguments;

    friend bool operator==(Compound const&, Compound const&) = default;
};

} // namespace language
