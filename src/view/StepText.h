// The short texts that name an element and its source, shared by the SVG's
// tooltips and the HTML page's detail panel. Plain text, not yet escaped.
#pragma once

#include "view/Diagram.h"

#include <string>

namespace view {

// "7 OnEvent on p", or "22 Error" for the verdict.
std::string heading(Element const& element);

// "call p.e", "return p.return", "notification r.n", or the bare event or
// reply of a step that stays on its lifeline; empty when there is none.
std::string happening(Element const& element);

// "x.kel:5:20".
std::string where(Selection const& selection);

// The heading, the happening, the source places and the state, one a line.
std::string tooltip(Element const& element);

} // namespace view
