// Text from a diagram or a source file made safe to stand in HTML and in SVG,
// which is XML: as element text and as a quoted attribute value alike.
#pragma once

#include <string>
#include <string_view>

namespace view {

// Escapes & < > " and ', turns a byte that is no part of valid UTF-8 and a
// control character that XML forbids into U+FFFD, and keeps the rest.
std::string escape(std::string_view text);

} // namespace view
