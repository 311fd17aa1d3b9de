// The merge of a component's history with the histories of its ports, in which
// every event that crosses a port stands twice, the port's step and the
// component's step side by side.
#pragma once

#include "trace/MicroTrace.h"
#include "trace/PortStates.h"

#include <map>

// The histories by port, the component's under the null port. The map keeps
// the ports in the order of their creation, which decides where the walk
// turns when several ports could take a silent activation.
using Histories = std::map<kel::PortDeclaration const*, MicroSteps, PortOrder>;

// The merged steps, up to the first step that needs a partner in the provided
// port's rest and without any error behind the first one; the verdict on the
// pairs is left to the caller. Linear in the length of the histories.
MicroSteps zipHistories(Histories const& histories);
