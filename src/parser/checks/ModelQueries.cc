#include "parser/checks/ModelQueries.h"

namespace language {

std::vector<kel::PortDeclaration const*> providedPorts(kel::ComponentDeclaration const& component) {
    std::vector<kel::PortDeclaration const*> ports;
    for (kel::PortDeclaration const* port : component.getPortsVec()) {
        if (port->getDirection() == kel::idirProvided) {
            ports.push_back(port);
        }
    }
    return ports;
}

} // namespace language
