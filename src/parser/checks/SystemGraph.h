// The bindings of a system as a graph from the instance that requires to the
// instance that provides, and the nesting of systems in systems; finds cycles
// in both.
#pragma once

#include "metamodel/Kel.h"

#include <map>
#include <memory>
#include <vector>

namespace language {

class SystemGraph {
public:
    // Builds the graph and runs both walks.
    explicit SystemGraph(kel::System const& system);

    // Whether the instance lies on a cycle of bindings or can reach one.
    bool isCyclic(kel::ComponentInstanceDeclaration const& instance) const;
    // Whether the system contains itself through the systems of its instances.
    bool isRecursive(kel::System const& system) const;

private:
    enum class State { NotVisited, Visiting, Done, Cyclic };

    struct CompInst {
        kel::ComponentInstanceDeclaration const* instance;
        State state = State::NotVisited;
        std::vector<CompInst*> successors;
    };

    struct Sys {
        kel::System const* system;
        State state = State::NotVisited;
    };

    // Ordered by id, so that the walks go in the order of creation.
    template <class Node> using Nodes = std::map<om::Oid, std::unique_ptr<Node>>;

    void addEdges(kel::BindingStatement const& binding);
    CompInst* nodeOf(kel::ComponentInstanceReference const& reference);
    void traverse(CompInst& node);
    void recurse(Sys& node);
    Sys& sysOf(kel::System const& system);

    Nodes<CompInst> m_instances;
    Nodes<Sys> m_systems;
};

} // namespace language
