// A list of syntax-tree object ids, in source order.
#pragma once

#include "om/Oid.h"

#include <vector>

namespace language {

using Oids = std::vector<om::Oid>;

} // namespace language
