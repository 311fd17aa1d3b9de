// Reads the line-oriented schema table; a malformed line raises an error
// that names its line number.
#pragma once

#include "Schema.h"

#include <istream>

namespace kel::gen {

Schema ReadSchema(std::istream& in);

} // namespace kel::gen
