// A name as the source wrote it, with where it stands.
#pragma once

#include "parser/grammar/Location.h"

#include <string>
#include <vector>

namespace language {

struct Name {
    std::string name;
    language::location location;

    friend bool operator==(Name const&, Name const&) = default;
};

// The parts of a dotted name such as a.b.c, in order.
using Names = std::vector<Name>;

} // namespace language
