// Queries over the bindings of a system.
#pragma once

#include "metamodel/Kel.h"

namespace language {

// Whether a binding of the system names the port on either side; the instance
// of the side is not looked at.
bool hasBinding(kel::PortDeclaration const& port, kel::System const& system);
// Whether two sides of bindings name the same port of the same instance, or of
// the enclosing component; false as soon as one side is a wildcard.
bool equalPortDecl(kel::InterfaceInstance const& a, kel::InterfaceInstance const& b);

} // namespace language
