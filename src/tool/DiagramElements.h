// The elements of the sequence diagram: a step of some lifeline with the whole
// state of its model, a port that left no step, and the error that ends a
// failed run, each with the source text it stands for and its own position in
// the document.
#pragma once

#include "tool/JsonWriter.h"

#include "interpreter/ProgramStep.h"

#include "metamodel/Location.h"
#include "metamodel/PortDeclaration.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

using Locations = std::vector<kel::Location const*>;

// The member "selection": an entry per location, each carrying `index`; a
// lone entry with the index alone where there is no location.
void WriteSelection(JsonWriter& out, Locations const& locations, std::size_t index);

// A step of the run on its lifeline. `borrowed`, where set, is the source
// text shown for the step in place of its own; a null one shows none.
void WriteStep(JsonWriter& out, ProgramStep const& step,
               std::optional<kel::Location const*> borrowed, std::size_t index);
// The initial element of a port whose run left no "Initialize" step.
void WritePortPlaceholder(JsonWriter& out, kel::PortDeclaration const& port, std::size_t index);
// The error that ends a run, pointing at the given places in the source.
void WriteError(JsonWriter& out, std::string const& message, Locations const& locations,
                std::size_t index);
