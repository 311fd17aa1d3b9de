// An event on a port, the unit of a trace: its text forms and the replies
// that it can get.
#pragma once

#include "metamodel/EventDeclaration.h"
#include "metamodel/EventInstance.h"
#include "metamodel/InterfaceDeclaration.h"
#include "metamodel/PortDeclaration.h"
#include "metamodel/PortReturn.h"

#include <string>
#include <vector>

namespace kel {

struct PortEvent {
    // Null for an event of an interface's own behaviour.
    PortDeclaration const* port = nullptr;
    // Null for a silent step.
    EventDeclaration const* event = nullptr;

    PortEvent() = default;
    PortEvent(PortDeclaration const* port, EventDeclaration const* event)
        : port(port), event(event) {}
    // The declarations that the instance's references resolve to.
    explicit PortEvent(EventInstance const& instance);

    // std::runtime_error "PortEvent has no port" without a port.
    PortDeclaration const& GetPort() const;
    // The event's name, or "tau".
    std::string event_str() const;
    // "port.event", or event_str() alone without a port.
    std::string str() const;
    // The interface that declares the event.
    InterfaceDeclaration const& getInterface() const;
    // Whether the event travels into the model through its port.
    bool IsInput() const;
    bool IsVoid() const;
    // Whether it is a call, an `in` event, whatever the port.
    bool IsCall() const;
    // Every reply that the event can get, in the order of the return type.
    std::vector<PortReturn> PortReturns() const;
    bool IsValidReturn(std::string const& text) const;

    // No ordering: an order by address must never reach the output.
    bool operator==(PortEvent const& other) const = default;
};

} // namespace kel
