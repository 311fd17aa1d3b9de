// Draws a diagram as one standalone SVG document: lifelines, arrows and marks
// in the order of the steps, the verdict below. Every step carries its index
// and a tooltip, so the bare SVG explains itself on hover as well.
#pragma once

#include "view/Diagram.h"

#include <string>

namespace view {

std::string writeSvg(Diagram const& diagram);

} // namespace view
