// What a run runs: a model, and the port on whose behalf an interface runs.
// Made once per run and shared, never changed.
#pragma once

#include "metamodel/ConstPortDeclarationVec.h"
#include "metamodel/ModelDeclaration.h"
#include "metamodel/PortDeclaration.h"
#include "metamodel/PortEvent.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>

class ModelInstance {
public:
    // The run of a component or of a bare interface.
    explicit ModelInstance(kel::ModelDeclaration const& model);
    // The run of one port: its interface, reported under the port's name.
    explicit ModelInstance(kel::PortDeclaration const& port);

    kel::ModelDeclaration const* const model;
    // Null when the model runs for itself.
    kel::PortDeclaration const* const port;

    // The port's name if there is a port, else the model's.
    std::string const& getName() const;
    // "component", "interface", "provided", "required", "required external"
    // or "unknown": how the diagram labels the run.
    std::string getRoleName() const;
    bool isOutputEvent(std::string const& name) const;
    bool isInputEvent(std::string const& name) const;
    // The event that a trace entry stands for; for a component an entry whose
    // first dotted part names a port gives that port without event, which is
    // how a queue-flush marker finds its port. Empty when nothing matches.
    kel::PortEvent getPortEvent(std::string const& name) const;
    // The provided ports of a component in declaration order; none otherwise.
    kel::ConstPortDeclarationVec getProvidesPorts() const;

private:
    // The model's events by their trace texts, found at the first lookup:
    // activation looks the head of the trace up at every step. The first
    // event of a text wins. A model without behaviour is never asked.
    struct EventIndex {
        std::unordered_map<std::string, kel::PortEvent> byText;
        std::unordered_set<std::string> outputs;
        std::unordered_set<std::string> inputs;
    };
    mutable std::unique_ptr<EventIndex const> eventIndex;

    EventIndex const& events() const;
};

using ModelInstancePtr = std::shared_ptr<ModelInstance const>;
