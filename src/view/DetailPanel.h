// The hidden panel sections of the HTML page, one per lifeline, step and
// verdict: what happened, the state of the model at that moment, and where in
// the source it happened with the lines around it.
#pragma once

#include "view/Diagram.h"
#include "view/SourceExcerpt.h"

#include <ostream>

namespace view {

// Writes a <section id="detail-N" hidden> for every element the picture shows.
void writeDetails(std::ostream& out, Diagram const& diagram, SourceFiles& files);

} // namespace view
