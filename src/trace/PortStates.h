// The runs of a component's ports, each port's first matching state.
#pragma once

#include "interpreter/ModelState.h"

#include "metamodel/PortDeclaration.h"

#include <map>

// Ports in the order the source made them (their ids), never by address, so
// that the same source and trace give the same diagram on every run.
struct PortOrder {
    bool operator()(kel::PortDeclaration const* a, kel::PortDeclaration const* b) const {
        return (a == nullptr ? om::NULL_OID : a->getOid()) <
               (b == nullptr ? om::NULL_OID : b->getOid());
    }
};

using PortStates = std::map<kel::PortDeclaration const*, ModelStatePtr, PortOrder>;
