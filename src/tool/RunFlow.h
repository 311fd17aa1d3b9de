// From a loaded model and the options to the written diagram: the runs of the
// ports, the run of the model, their reconciliation and the verdict.
#pragma once

#include "tool/Options.h"
#include "tool/ProgressLine.h"

#include "metamodel/ModelDeclaration.h"

#include <istream>
#include <ostream>

// Writes the debug banners if asked and one diagram on `out`; a model error
// is part of the diagram, not a failure. `progress` is erased before each.
void RunModel(kel::ModelDeclaration const& model, Options const& options, std::istream& in,
              std::ostream& out, ProgressLine& progress);
