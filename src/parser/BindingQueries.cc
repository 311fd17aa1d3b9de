#include "parser/BindingQueries.h"

namespace language {

namespace {

bool names(kel::InterfaceInstance const& side, kel::PortDeclaration const& port) {
    kel::PortReference const* reference = side.tryGetPort();
    return reference != nullptr && reference->hasDeclaration() &&
           reference->getDeclaration().getOid() == port.getOid();
}

} // namespace

bool hasBinding(kel::PortDeclaration const& port, kel::System const& system) {
    for (kel::BindingStatement const* binding : system.getObjBindingStatement()) {
        if (names(binding->getLeft(), port) || names(binding->getRight(), port)) {
            return true;
        }
    }
    return false;
}

bool equalPortDecl(kel::InterfaceInstance const& a, kel::InterfaceInstance const& b) {
    if (a.getWildcard() || b.getWildcard() || a.hasComponent() != b.hasComponent()) {
        return false;
    }
    if (a.hasComponent() &&
        a.getComponent().getDeclaration().getOid() != b.getComponent().getDeclaration().getOid()) {
        return false;
    }
    return a.getPort().getDeclaration().getOid() == b.getPort().getDeclaration().getOid();
}

} // namespace language
