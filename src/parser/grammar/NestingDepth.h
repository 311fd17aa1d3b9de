// The limit on how deep the syntax tree may nest, and the search for a breach.
#pragma once

#include "om/Object.h"

#include <cstddef>

namespace language {

// The passes after parsing walk the tree recursively. A thousand levels leave
// them ample room on the usual 8 MiB stack, also in a sanitizer build, while
// sources written by hand stay far below (a component body nests some ten
// levels before its statements); a generated chain such as a + a + ... of more
// terms than this is refused with an error rather than crashing the tool.
inline constexpr std::size_t maxNestingDepth = 1000;

// The first object, in pre-order, that lies more than `limit` levels below
// `top` (which is level 0), or null when the whole tree keeps to the limit.
om::Object const* findTooDeep(om::Object const& top, std::size_t limit);

} // namespace language
