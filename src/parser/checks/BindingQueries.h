// Queries over the bindings of a system.
#pragma once

#include "metamodel/Kel.h"

#include <optional>
#include <set>
#include <utility>

namespace language {

// The port that a side of a binding names, when it is resolved.
kel::PortDeclaration const* boundPort(kel::InterfaceInstance const& side);
// Whether a binding of the system names the port on either side; the instance
// of the side is not looked at.
bool hasBinding(kel::PortDeclaration const& port, kel::System const& system);
// The ids of the ports that the bindings of the system name, on either side:
// hasBinding for many ports at the cost of one.
std::set<om::Oid> boundPortIds(kel::System const& system);

// Whether two sides of bindings name the same port of the same instance, or of
// the enclosing component; false as soon as one side is a wildcard.
bool equalPortDecl(kel::InterfaceInstance const& a, kel::InterfaceInstance const& b);
// What equalPortDecl compares: the id of the side's instance declaration
// (NULL_OID for the enclosing component) and of its port; nothing for a wildcard.
using SideIdentity = std::pair<om::Oid, om::Oid>;
std::optional<SideIdentity> identityOf(kel::InterfaceInstance const& side);

} // namespace language
