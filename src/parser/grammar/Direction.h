// How a port faces its component: provided or required, and how it is connected.
#pragma once

#include "metamodel/Enumerations.h"

namespace language {

struct Direction {
    kel::PortDirection direction = kel::idirUnknown;
    bool injected = false;
    bool external = false;

    friend bool operator==(Direction const&, Direction const&) = default;
};

} // namespace language
