#include "parser/checks/SystemGraph.h"

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

// A depth-first walk on a stack of its own: a chain of bindings can be as long
// as the source, too deep for the call stack. A node that reaches a node still
// being visited, or a cyclic one, is cyclic.
void SystemGraph::traverse(CompInst& start) {
    if (start.state != State::NotVisited) {
        return;
    }
    start.state = State::Visiting;
    std::vector<std::pair<CompInst*, std::size_t>> path{{&start, 0}};
    while (!path.empty()) {
        CompInst& node = *path.back().first;
        if (path.back().second < node.successors.size()) {
            CompInst& successor = *node.successors[path.back().second++];
            if (successor.state == State::NotVisited) {
                successor.state = State::Visiting;
                path.emplace_back(&successor, 0);
                continue;
            }
            if (successor.state == State::Visiting) {
                successor.state = State::Cyclic;
            }
            if (successor.state == State::Cyclic) {
                node.state = State::Cyclic;
            }
            continue;
        }
        if (node.state == State::Visiting) {
            node.state = State::Done;
        }
        path.pop_back();
        if (!path.empty() && node.state == State::Cyclic) {
            path.back().first->state = State::Cyclic;
        }
    }
}

SystemGraph::Sys& SystemGraph::sysOf(kel::System const& system) {
    std::unique_ptr<Sys>& node = m_systems[system.getOid()];
    if (node == nullptr) {
        node = std::make_unique<Sys>(Sys{&system, State::NotVisited});
    }
    return *node;
}

// The nesting of systems, walked like the bindings: a system that meets one
// still being visited marks both as recursive.
void SystemGraph::recurse(Sys& start) {
    if (start.state != State::NotVisited) {
        return;
    }
    start.state = State::Visiting;
    struct Frame {
        Sys* node;
        kel::ConstComponentInstanceDeclarationVec instances;
        std::size_t next = 0;
    };
    std::vector<Frame> path{{&start, start.system->getInstancesVec()}};
    while (!path.empty()) {
        Frame& frame = path.back();
        if (frame.next == frame.instances.size()) {
            if (frame.node->state == State::Visiting) {
                frame.node->state = State::Done;
            }
            path.pop_back();
            continue;
        }
        kel::ComponentDeclaration const* component =
            frame.instances[frame.next++]->getComponent().tryGetDeclaration();
        if (component == nullptr || !component->hasSystem()) {
            continue;
        }
        Sys& inner = sysOf(component->getSystem());
        if (inner.state == State::Visiting) {
            inner.state = State::Cyclic;
            frame.node->state = State::Cyclic;
        } else if (inner.state == State::NotVisited) {
            inner.state = State::Visiting;
            path.push_back({&inner, inner.system->getInstancesVec()});
        }
    }
}

} // namespace language
