// Source positions and spans of the main grammar.
#pragma once

#include "preparser/Location.h"

namespace language {

// The pre-parser's positions and spans move exactly as the main scanner's must,
// so both grammars share one definition.
using position = pre::position;
using location = pre::location;

} // namespace language
