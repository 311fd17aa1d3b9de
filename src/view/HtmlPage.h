// The one HTML file that the viewer writes: the SVG picture and a panel that
// shows a step's state and source on hover or click, with its style sheet and
// script inline, so that it opens offline and needs nothing beside it.
#pragma once

#include "view/Diagram.h"
#include "view/SourceExcerpt.h"

#include <string>

namespace view {

// `title` names the diagram, usually its file.
std::string writeHtml(Diagram const& diagram, SourceFiles& files, std::string const& title);

} // namespace view
