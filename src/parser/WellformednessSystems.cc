// The checks on systems: missing, double, misdirected and external bindings,
// cycles of bindings and systems that contain themselves.
#include "parser/WellformednessChecker.h"

#include "om/AsType.h"
#include "parser/BindingQueries.h"
#include "parser/SystemGraph.h"

namespace language {

namespace {

// "instance.port", or the port alone for a port of the enclosing component.
std::string sideText(kel::InterfaceInstance const& side) {
    std::string port = side.getPort().getName();
    return side.hasComponent() ? side.getComponent().getName() + "." + port : port;
}

bool hasWildcard(kel::BindingStatement const& binding) {
    return binding.getLeft().getWildcard() || binding.getRight().getWildcard();
}

kel::PortDeclaration const* boundPort(kel::InterfaceInstance const& side) {
    kel::PortReference const* port = side.tryGetPort();
    return port != nullptr ? port->tryGetDeclaration() : nullptr;
}

} // namespace

bool WellformednessChecker::checkWellformednessSystem(kel::ComponentDeclaration const& component) {
    kel::System const& system = component.getSystem();
    bool ok = checkMissingBindings(system);
    ok = checkDoubleBindings(system) && ok;
    ok = checkBindingDirections(system) && ok;
    ok = checkBindingExternals(system) && ok;
    // Cycles mean something only in a system whose bindings make sense.
    if (!ok) {
        return false;
    }
    ok = checkCycles(system);
    return checkRecursiveNesting(component) && ok;
}

bool WellformednessChecker::checkMissingBindings(kel::System const& system) {
    bool ok = true;
    auto const& owner = om::AsType<kel::ComponentDeclaration>(*system.getParent());
    for (kel::PortDeclaration const* port : owner.getPortsVec()) {
        if (!hasBinding(*port, system)) {
            ok = report(*port, "Port is not bound: " + port->getName());
        }
    }
    for (kel::ComponentInstanceDeclaration const* instance : system.getInstancesVec()) {
        kel::ComponentDeclaration const* component = instance->getComponent().tryGetDeclaration();
        if (component == nullptr) {
            continue;
        }
        for (kel::PortDeclaration const* port : component->getPortsVec()) {
            if (!port->getInjected() && !hasBinding(*port, system)) {
                ok = report(*instance,
                            "Port is not bound: " + q(instance->getName() + "." + port->getName()));
            }
        }
    }
    return ok;
}

bool WellformednessChecker::checkDoubleBindings(kel::System const& system) {
    bool ok = true;
    kel::ConstBindingStatementVec bindings = system.getObjBindingStatement();
    for (std::size_t index = 0; index < bindings.size(); ++index) {
        if (!hasWildcard(*bindings[index])) {
            ok = checkBindingSides(system, *bindings[index], index) && ok;
        }
    }
    return ok;
}

// The sides of one binding against each other and against the bindings before it.
bool WellformednessChecker::checkBindingSides(kel::System const& system,
                                              kel::BindingStatement const& binding,
                                              std::size_t index) {
    kel::InterfaceInstance const& left = binding.getLeft();
    kel::InterfaceInstance const& right = binding.getRight();
    auto twice = [this](kel::InterfaceInstance const& side) {
        return report(side, "Port is bound twice: " + q(sideText(side)));
    };
    bool ok = !equalPortDecl(left, right) || twice(left);
    kel::ConstBindingStatementVec bindings = system.getObjBindingStatement();
    for (std::size_t earlier = 0; earlier < index; ++earlier) {
        kel::BindingStatement const& before = *bindings[earlier];
        if (hasWildcard(before)) {
            continue;
        }
        if (equalPortDecl(left, before.getLeft()) || equalPortDecl(left, before.getRight())) {
            ok = twice(left);
        }
        if (equalPortDecl(right, before.getLeft()) || equalPortDecl(right, before.getRight())) {
            ok = twice(right);
        }
    }
    return ok;
}

bool WellformednessChecker::checkBindingDirections(kel::System const& system) {
    bool ok = true;
    for (kel::BindingStatement const* binding : system.getObjBindingStatement()) {
        ok = checkBindingDirection(*binding) && ok;
    }
    return ok;
}

bool WellformednessChecker::checkBindingDirection(kel::BindingStatement const& binding) {
    kel::InterfaceInstance const& left = binding.getLeft();
    kel::InterfaceInstance const& right = binding.getRight();
    if (left.getWildcard() && right.getWildcard()) {
        return report(binding, "Binding two wildcards is not allowed");
    }
    if (left.getWildcard() || right.getWildcard()) {
        kel::PortDeclaration const* port = boundPort(left.getWildcard() ? right : left);
        return port == nullptr || port->getDirection() == kel::idirProvided ||
               report(binding, "Wildcard can be bound to a provided port only");
    }
    kel::PortDeclaration const* leftPort = boundPort(left);
    kel::PortDeclaration const* rightPort = boundPort(right);
    if (leftPort == nullptr || rightPort == nullptr) {
        return true;
    }
    // A delegation to an inner port keeps the direction; two inner ports connect
    // a required port to a provided one.
    bool delegation = left.hasComponent() != right.hasComponent();
    bool sameDirection = leftPort->getDirection() == rightPort->getDirection();
    return sameDirection == delegation || report(binding, "Binding directions do not match");
}

bool WellformednessChecker::checkBindingExternals(kel::System const& system) {
    bool ok = true;
    for (kel::BindingStatement const* binding : system.getObjBindingStatement()) {
        ok = checkBindingExternal(binding->getRight(), binding->getLeft()) && ok;
        ok = checkBindingExternal(binding->getLeft(), binding->getRight()) && ok;
    }
    return ok;
}

bool WellformednessChecker::checkBindingExternal(kel::InterfaceInstance const& side,
                                                 kel::InterfaceInstance const& peer) {
    if (side.hasComponent() || side.getWildcard() || peer.getWildcard()) {
        return true;
    }
    kel::PortDeclaration const* port = boundPort(side);
    kel::PortDeclaration const* peerPort = boundPort(peer);
    if (port == nullptr || peerPort == nullptr || port->getDirection() != kel::idirRequired ||
        !port->getExternal() || peerPort->getExternal()) {
        return true;
    }
    return report(side.getPort(),
                  "External port must be bound to external port: " + port->getName());
}

bool WellformednessChecker::checkCycles(kel::System const& system) {
    SystemGraph graph(system);
    bool ok = true;
    for (kel::ComponentInstanceDeclaration const* instance : system.getInstancesVec()) {
        if (graph.isCyclic(*instance)) {
            ok = report(*instance, "Component is part of a cyclic binding: " + instance->getName());
        }
    }
    return ok;
}

bool WellformednessChecker::checkRecursiveNesting(kel::ComponentDeclaration const& component) {
    kel::System const& system = component.getSystem();
    return !SystemGraph(system).isRecursive(system) ||
           report(component, "System composition is recursive: " + component.getName());
}

} // namespace language
