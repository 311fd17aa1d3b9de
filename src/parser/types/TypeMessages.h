// Texts of type errors that more than one rule reports.
#pragma once

#include "parser/grammar/ParserBase.h"

#include <string>

namespace language {

// `found` comes as it is shown: a quoted name, or a word for no type.
inline std::string typeMismatch(std::string const& expected, std::string const& found) {
    return "type mismatch: " + ParserBase::q(expected) + " expected, found: " + found;
}

inline std::string valueMismatch(std::string const& variable) {
    return "Variable and expression types do not match: " + ParserBase::q(variable);
}

inline std::string valueNotTyped(std::string const& variable) {
    return "Expression not properly typed: " + ParserBase::q(variable);
}

} // namespace language
