#include "parser/SystemGraph.h"

namespace language {

SystemGraph::SystemGraph(kel::System const& system) {
    Sys& top = sysOf(system);
    for (kel::ComponentInstanceDeclaration const* instance : system.getInstancesVec()) {
        m_instances.emplace(instance->getOid(),
                            std::make_unique<CompInst>(CompInst{instance, State::NotVisited, {}}));
    }
    for (kel::BindingStatement const* binding : system.getObjBindingStatement()) {
        addEdges(*binding);
    }
    for (auto& [id, node] : m_instances) {
        traverse(*node);
    }
    recurse(top);
}

bool SystemGraph::isCyclic(kel::ComponentInstanceDeclaration const& instance) const {
    auto found = m_instances.find(instance.getOid());
    return found != m_instances.end() && found->second->state == State::Cyclic;
}

bool SystemGraph::isRecursive(kel::System const& system) const {
    auto found = m_systems.find(system.getOid());
    return found != m_systems.end() && found->second->state == State::Cyclic;
}

SystemGraph::CompInst* SystemGraph::nodeOf(kel::ComponentInstanceReference const& reference) {
    kel::ComponentInstanceDeclaration const* declaration = reference.tryGetDeclaration();
    if (declaration == nullptr) {
        return nullptr;
    }
    auto found = m_instances.find(declaration->getOid());
    return found != m_instances.end() ? found->second.get() : nullptr;
}

// An edge runs from the instance that requires to the instance that provides.
void SystemGraph::addEdges(kel::BindingStatement const& binding) {
    kel::InterfaceInstance const& left = binding.getLeft();
    kel::InterfaceInstance const& right = binding.getRight();
    if (left.getWildcard() || right.getWildcard() || !left.hasComponent() ||
        !right.hasComponent() || !left.hasPort() || !right.hasPort()) {
        return;
    }
    CompInst* leftNode = nodeOf(left.getComponent());
    CompInst* rightNode = nodeOf(right.getComponent());
    kel::PortDeclaration const* leftPort = left.getPort().tryGetDeclaration();
    kel::PortDeclaration const* rightPort = right.getPort().tryGetDeclaration();
    if (leftNode == nullptr || rightNode == nullptr || leftPort == nullptr ||
        rightPort == nullptr) {
        return;
    }
    if (leftPort->getDirection() == kel::idirRequired) {
        leftNode->successors.push_back(rightNode);
    }
    if (rightPort->getDirection() == kel::idirRequired) {
        rightNode->successors.push_back(leftNode);
    }
}

void SystemGraph::traverse(CompInst& node) {
    if (node.state == State::Done || node.state == State::Cyclic) {
        return;
    }
    if (node.state == State::Visiting) {
        node.state = State::Cyclic;
        return;
    }
    node.state = State::Visiting;
    for (CompInst* successor : node.successors) {
        traverse(*successor);
        if (successor->state == State::Cyclic) {
            node.state = State::Cyclic;
        }
    }
    if (node.state == State::Visiting) {
        node.state = State::Done;
    }
}

SystemGraph::Sys& SystemGraph::sysOf(kel::System const& system) {
    std::unique_ptr<Sys>& node = m_systems[system.getOid()];
    if (node == nullptr) {
        node = std::make_unique<Sys>(Sys{&system, State::NotVisited});
    }
    return *node;
}

void SystemGraph::recurse(Sys& node) {
    if (node.state == State::Done || node.state == State::Cyclic) {
        return;
    }
    if (node.state == State::Visiting) {
        node.state = State::Cyclic;
        return;
    }
    node.state = State::Visiting;
    for (kel::ComponentInstanceDeclaration const* instance : node.system->getInstancesVec()) {
        kel::ComponentDeclaration const* component = instance->getComponent().tryGetDeclaration();
        if (component == nullptr || !component->hasSystem()) {
            continue;
        }
        Sys& inner = sysOf(component->getSystem());
        if (inner.state == State::Visiting) {
            inner.state = State::Cyclic;
            node.state = State::Cyclic;
        } else {
            recurse(inner);
        }
    }
    if (node.state == State::Visiting) {
        node.state = State::Done;
    }
}

} // namespace language
