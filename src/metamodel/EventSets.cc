#include "metamodel/EventSets.h"

#include "metamodel/ConstBehaviourVec.h"
#include "metamodel/ConstComponentDeclarationVec.h"
#include "metamodel/ConstEventDeclarationVec.h"
#include "metamodel/ConstInterfaceDeclarationVec.h"
#include "metamodel/ConstInterfaceReferenceVec.h"
#include "metamodel/ConstInternalDeclarationVec.h"
#include "metamodel/ConstModelDeclarationVec.h"
#include "metamodel/ConstPortDeclarationVec.h"

#include <algorithm>
#include <stdexcept>

namespace kel {
namespace {

bool IsUsable(EventDeclaration const& event) {
    return event.getName() != "optional" && event.getName() != "inevitable";
}

bool IsDirected(EventDeclaration const& event) { return event.getDirection() != edirUnknown; }

// The events of `interface` that `accept` lets through, on `port`.
template <class Accept> PortEventVec EventsOf(InterfaceDeclaration const& interface,
                                              PortDeclaration const* port, Accept accept) {
    PortEventVec result;
    for (auto const* event : interface.getEvents()) {
        if (accept(*event)) {
            result.emplace_back(port, event);
        }
    }
    return result;
}

// The same over the port's interface; nothing while it is unresolved.
template <class Accept> PortEventVec EventsOnPort(PortDeclaration const& port, Accept accept) {
    auto const* interface = port.getInterface().tryGetDeclaration();
    return interface == nullptr ? PortEventVec{} : EventsOf(*interface, &port, accept);
}

template <class Ports, class OfPort> PortEventVec Joined(Ports const& ports, OfPort ofPort) {
    PortEventVec result;
    for (auto const* port : ports) {
        auto const events = ofPort(*port);
        result.insert(result.end(), events.begin(), events.end());
    }
    return result;
}

// The direction of the events that travel through a port of that direction,
// inwards or outwards.
EventDirection InwardDirection(PortDirection direction) {
    switch (direction) {
    case idirProvided:
        return edirIn;
    case idirRequired:
        return edirOut;
    default:
        return edirUnknown;
    }
}

EventDirection OutwardDirection(PortDirection direction) {
    switch (direction) {
    case idirProvided:
        return edirOut;
    case idirRequired:
        return edirIn;
    default:
        return edirUnknown;
    }
}

auto UsableWithDirection(EventDirection direction) {
    return [direction](EventDeclaration const& event) {
        return IsUsable(event) && event.getDirection() == direction;
    };
}

auto UsableAndDirected() {
    return [](EventDeclaration const& event) { return IsUsable(event) && IsDirected(event); };
}

PortEventVec Dispatch(ModelDeclaration const& model,
                      PortEventVec (*ofInterface)(InterfaceDeclaration const&),
                      PortEventVec (*ofComponent)(ComponentDeclaration const&)) {
    if (auto const* interface = model.asInterfaceDeclaration()) {
        return ofInterface(*interface);
    }
    if (auto const* component = model.asComponentDeclaration()) {
        return ofComponent(*component);
    }
    throw std::runtime_error("Unexpected ModelDeclaration type");
}

bool HasText(PortEventVec const& events, std::string const& text) {
    return std::any_of(events.begin(), events.end(),
                       [&](PortEvent const& event) { return event.str() == text; });
}

} // namespace

PortEventVec ObservableEvents(InterfaceDeclaration const& interface) {
    return EventsOf(interface, nullptr, UsableAndDirected());
}

PortEventVec ObservableEvents(ComponentDeclaration const& component) {
    return Joined(component.getPorts(), [](PortDeclaration const& port) {
        return EventsOnPort(port, UsableAndDirected());
    });
}

PortEventVec InputEvents(InterfaceDeclaration const& interface) {
    return EventsOf(interface, nullptr, UsableWithDirection(edirIn));
}

PortEventVec InputEvents(PortDeclaration const& port) {
    return EventsOnPort(port, UsableWithDirection(InwardDirection(port.getDirection())));
}

PortEventVec InputEvents(ComponentDeclaration const& component) {
    return Joined(component.getPorts(),
                  [](PortDeclaration const& port) { return InputEvents(port); });
}

PortEventVec OutputEvents(InterfaceDeclaration const& interface) {
    return EventsOf(interface, nullptr,
                    [](EventDeclaration const& event) { return event.getDirection() == edirOut; });
}

PortEventVec OutputEvents(PortDeclaration const& port) {
    auto const direction = OutwardDirection(port.getDirection());
    if (direction == edirUnknown) {
        return {};
    }
    return EventsOnPort(port, UsableWithDirection(direction));
}

PortEventVec OutputEvents(ComponentDeclaration const& component) {
    return Joined(component.getPorts(),
                  [](PortDeclaration const& port) { return OutputEvents(port); });
}

PortEventVec InternalEvents(InterfaceDeclaration const&) { return {}; }

PortEventVec InternalEvents(ComponentDeclaration const& component) {
    return Joined(component.getBehaviour().getInternals(), [](PortDeclaration const& internal) {
        return EventsOnPort(internal, UsableAndDirected());
    });
}

PortEventVec ObservableEvents(ModelDeclaration const& model) {
    return Dispatch(model, ObservableEvents, ObservableEvents);
}

PortEventVec InputEvents(ModelDeclaration const& model) {
    return Dispatch(model, InputEvents, InputEvents);
}

PortEventVec OutputEvents(ModelDeclaration const& model) {
    return Dispatch(model, OutputEvents, OutputEvents);
}

PortEventVec InternalEvents(ModelDeclaration const& model) {
    return Dispatch(model, InternalEvents, InternalEvents);
}

PortEvent InputEvent(PortDeclaration const& port, std::string const& text) {
    for (auto const& event : InputEvents(port)) {
        if (event.str() == text) {
            return event;
        }
    }
    throw std::runtime_error("No port input event named" + text);
}

bool IsPortInputEvent(PortDeclaration const& port, std::string const& text) {
    return HasText(InputEvents(port), text);
}

bool IsPortOutputEvent(PortDeclaration const& port, std::string const& text) {
    return HasText(OutputEvents(port), text);
}

} // namespace kel
