#include "parser/checks/BindingQueries.h"

namespace language {

kel::PortDeclaration const* boundPort(kel::InterfaceInstance const& side) {
    kel::PortReference const* reference = side.tryGetPort();
    return reference != nullptr ? reference->tryGetDeclaration() : nullptr;
}

bool hasBinding(kel::PortDeclaration const& port, kel::System const& system) {
    return boundPortIds(system).contains(port.getOid());
}

std::set<om::Oid> boundPortIds(kel::System const& system) {
    std::set<om::Oid> ids;
    for (kel::BindingStatement const* binding : system.getObjBindingStatement()) {
        for (kel::InterfaceInstance const* side : {&binding->getLeft(), &binding->getRight()}) {
            if (kel::PortDeclaration const* port = boundPort(*side)) {
                ids.insert(port->getOid());
            }
        }
    }
    return ids;
}

bool equalPortDecl(kel::InterfaceInstance const& a, kel::InterfaceInstance const& b) {
    auto const identity = identityOf(a);
    return identity.has_value() && identity == identityOf(b);
}

std::optional<SideIdentity> identityOf(kel::InterfaceInstance const& side) {
    if (side.getWildcard()) {
        return std::nullopt;
    }
    om::Oid const instance =
        side.hasComponent() ? side.getComponent().getDeclaration().getOid() : om::NULL_OID;
    return SideIdentity{instance, side.getPort().getDeclaration().getOid()};
}

} // namespace language
