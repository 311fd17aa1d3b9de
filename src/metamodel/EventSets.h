// The events that a model, a port or an interface can show, in declaration
// order and port order. "optional" and "inevitable" are never listed, except
// by OutputEvents of an interface. A port whose interface is not resolved yet
// is skipped, so these are safe on a partly resolved tree.
#pragma once

#include "metamodel/ComponentDeclaration.h"
#include "metamodel/InterfaceDeclaration.h"
#include "metamodel/ModelDeclaration.h"
#include "metamodel/PortDeclaration.h"
#include "metamodel/PortEvent.h"

#include <string>
#include <vector>

namespace kel {

using PortEventVec = std::vector<PortEvent>;

// Events with a direction, without port, resp. on every port.
PortEventVec ObservableEvents(InterfaceDeclaration const& interface);
PortEventVec ObservableEvents(ComponentDeclaration const& component);
// `in` events of the interface; the events that go in through the port: `in`
// on a provided port, `out` on a required one, and undirected events on a
// port of unknown direction.
PortEventVec InputEvents(InterfaceDeclaration const& interface);
PortEventVec InputEvents(PortDeclaration const& port);
PortEventVec InputEvents(ComponentDeclaration const& component);
// Every `out` event of the interface, whatever its name; the events that go
// out through the port, none for a port of unknown direction.
PortEventVec OutputEvents(InterfaceDeclaration const& interface);
PortEventVec OutputEvents(PortDeclaration const& port);
PortEventVec OutputEvents(ComponentDeclaration const& component);
// None for an interface; the directed events of the interfaces of the
// component's internal ports, each on its internal port.
PortEventVec InternalEvents(InterfaceDeclaration const& interface);
PortEventVec InternalEvents(ComponentDeclaration const& component);
// Dispatch on interfaces and components; std::runtime_error
// "Unexpected ModelDeclaration type" for anything else.
PortEventVec ObservableEvents(ModelDeclaration const& model);
PortEventVec InputEvents(ModelDeclaration const& model);
PortEventVec OutputEvents(ModelDeclaration const& model);
PortEventVec InternalEvents(ModelDeclaration const& model);

// The input event of the port with that text; std::runtime_error otherwise.
PortEvent InputEvent(PortDeclaration const& port, std::string const& text);
bool IsPortInputEvent(PortDeclaration const& port, std::string const& text);
bool IsPortOutputEvent(PortDeclaration const& port, std::string const& text);

} // namespace kel
