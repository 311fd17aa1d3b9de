// Turns one JSON element of a diagram document into an Element, checking the
// kind and the type of every member the viewer uses.
#pragma once

#include "view/Diagram.h"

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace view {

// Throws DiagramError naming `index` when the element is malformed.
Element readElement(nlohmann::json const& json, long index);

// The string member `key`, or empty when absent; throws when it is no string.
std::string stringMember(nlohmann::json const& json, char const* key, long index);

} // namespace view
