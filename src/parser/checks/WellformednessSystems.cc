// The checks on systems: missing, double, misdirected and external bindings,
// cycles of bindings and systems that contain themselves.
#include "parser/checks/WellformednessChecker.h"

#include "om/AsType.h"
#include "parser/checks/BindingQueries.h"
#include "parser/checks/SystemGraph.h"

#include <algorithm>
#include <iterator>

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
    std::set<om::Oid> const bound = boundPortIds(system);
    auto const& owner = om::AsType<kel::ComponentDeclaration>(*system.getParent());
    for (kel::PortDeclaration const* port : owner.getPortsVec()) {
        if (!bound.contains(port->getOid())) {
            ok = report(*port, "Port is not bound: " + q(port->getName()));
        }
    }
    for (kel::ComponentInstanceDeclaration const* instance : system.getInstancesVec()) {
        kel::ComponentDeclaration const* component = instance->getComponent().tryGetDeclaration();
        if (component == nullptr) {
            continue;
        }
        for (kel::PortDeclaration const* port : component->getPortsVec()) {
            if (!port->getInjected() && !bound.contains(port->getOid())) {
                ok = report(*instance,
                            "Port is not bound: " + q(instance->getName() + "." + port->getName()));
            }
        }
    }
    return ok;
}

bool WellformednessChecker::checkDoubleBindings(kel::System const& system) {
    bool ok = true;
    EarlierBindings earlier;
    kel::ConstBindingStatementVec const bindings = system.getObjBindingStatement();
    for (std::size_t index = 0; index < bindings.size(); ++index) {
        kel::BindingStatement const& binding = *bindings[index];
        if (hasWildcard(binding)) {
            continue;
        }
        ok = checkBindingSides(binding, earlier) && ok;
        SideIdentity const left = *identityOf(binding.getLeft());
        SideIdentity const right = *identityOf(binding.getRight());
        earlier[left].push_back(index);
        if (right != left) {
            earlier[right].push_back(index);
        }
    }
    return ok;
}

// The sides of one binding against each other and against the bindings before
// it, in their order: one report per earlier binding that names a side.
bool WellformednessChecker::checkBindingSides(kel::BindingStatement const& binding,
                                              EarlierBindings const& earlier) {
    kel::InterfaceInstance const& left = binding.getLeft();
    kel::InterfaceInstance const& right = binding.getRight();
    auto twice = [this](kel::InterfaceInstance const& side) {
        return report(side, "Port is bound twice: " + q(sideText(side)));
    };
    bool ok = !equalPortDecl(left, right) || twice(left);
    auto indexesOf = [&](kel::InterfaceInstance const& side) {
        auto const found = earlier.find(*identityOf(side));
        return found == earlier.end() ? std::vector<std::size_t>{} : found->second;
    };
    std::vector<std::size_t> const leftIndexes = indexesOf(left);
    std::vector<std::size_t> const rightIndexes = indexesOf(right);
    std::vector<std::size_t> indexes;
    std::ranges::set_union(leftIndexes, rightIndexes, std::back_inserter(indexes));
    for (std::size_t const index : indexes) {
        if (std::ranges::binary_search(leftIndexes, index)) {
            ok = twice(left);
        }
        if (std::ranges::binary_search(rightIndexes, index)) {
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
                  "External port must be bound to external port: " + q(port->getName()));
}

bool WellformednessChecker::checkCycles(kel::System const& system) {
    SystemGraph graph(system);
    bool ok = true;
    for (kel::ComponentInstanceDeclaration const* instance : system.getInstancesVec()) {
        if (graph.isCyclic(*instance)) {
            ok = report(*instance,
                        "Component is part of a cyclic binding: " + q(instance->getName()));
        }
    }
    return ok;
}

bool WellformednessChecker::checkRecursiveNesting(kel::ComponentDeclaration const& component) {
    kel::System const& system = component.getSystem();
    return !SystemGraph(system).isRecursive(system) ||
           report(component, "System composition is recursive: " + q(component.getName()));
}

} // namespace language
