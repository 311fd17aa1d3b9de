// From a loaded model and the options to the written diagram: the runs of the
// ports, the run of the model, their reconciliation and the verdict.
#pragma once

#include "tool/Options.h"
#include "tool/ProgressLine.h"

#include "metamodel/ModelDeclaration.h"

#include <functional>
#include <istream>
#include <ostream>

// Told the name of each part of a run as it ends: "ports", "main run",
// "reconciliation", "deadlock check" and "diagram". The run's benchmark
// times them.
using PhaseListener = std::function<void(char const* phase)>;

// Writes the debug banners if asked and one diagram on `out`; a model error
// is part of the diagram, not a failure. `progress` is erased before each.
void RunModel(kel::ModelDeclaration const& model, Options const& options, std::istream& in,
              std::ostream& out, ProgressLine& progress,
              PhaseListener const& phaseDone = [](char const*) {});
