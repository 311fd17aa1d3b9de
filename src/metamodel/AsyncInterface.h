// The interface behind an internal port of kind "kel.async": made anew for
// every such port, as if its source had been written in namespace "kel".
#pragma once

#include "metamodel/ConstParameterDeclarationVec.h"
#include "metamodel/InterfaceDeclaration.h"
#include "metamodel/Location.h"
#include "om/ObjectModel.h"

namespace kel {

// A new interface "async__i", "async__ii", ... with the events req, ack and
// clr, whose req and ack carry copies of `parameters`; every object of it is
// at `location`. The process-wide name suffix grows with every call.
InterfaceDeclaration const&
getAsyncInterfaceDeclaration(om::ObjectModel& model, Location const& location,
                             ConstParameterDeclarationVec const& parameters);

} // namespace kel
