#include "interpreter/ModelInstance.h"

#include "metamodel/ComponentDeclaration.h"
#include "metamodel/EventSets.h"
#include "metamodel/InterfaceDeclaration.h"
#include "metamodel/InterfaceReference.h"
#include "metamodel/InternalDeclaration.h"

ModelInstance::ModelInstance(kel::ModelDeclaration const& model) : model(&model), port(nullptr) {}

ModelInstance::ModelInstance(kel::PortDeclaration const& port)
    : model(&port.getInterface().getDeclaration()), port(&port) {}

ModelInstance::EventIndex const& ModelInstance::events() const {
    if (eventIndex == nullptr) {
        auto index = std::make_unique<EventIndex>();
        for (auto const& events : {kel::ObservableEvents(*model), kel::InternalEvents(*model)}) {
            for (auto const& event : events) {
                index->byText.try_emplace(event.str(), event);
            }
        }
        for (auto const& event : kel::OutputEvents(*model)) {
            index->outputs.insert(event.str());
        }
        for (auto const& event : kel::InputEvents(*model)) {
            index->inputs.insert(event.str());
        }
        eventIndex = std::move(index);
    }
    return *eventIndex;
}

std::string const& ModelInstance::getName() const {
    return port != nullptr ? port->getName() : model->getName();
}

std::string ModelInstance::getRoleName() const {
    if (port == nullptr) {
        if (model->asComponentDeclaration() != nullptr) {
            return "component";
        }
        return model->asInterfaceDeclaration() != nullptr ? "interface" : "unknown";
    }
    switch (port->getDirection()) {
    case kel::idirRequired:
        return port->getExternal() ? "required external" : "required";
    case kel::idirProvided:
        return "provided";
    default:
        return "unknown";
    }
}

bool ModelInstance::isOutputEvent(std::string const& name) const {
    return events().outputs.contains(name);
}

bool ModelInstance::isInputEvent(std::string const& name) const {
    return events().inputs.contains(name);
}

kel::PortEvent ModelInstance::getPortEvent(std::string const& name) const {
    auto const& byText = events().byText;
    if (auto const found = byText.find(name); found != byText.end()) {
        return found->second;
    }
    auto const* component = model->asComponentDeclaration();
    if (component == nullptr) {
        return {};
    }
    auto const portName = name.substr(0, name.find('.'));
    for (auto const* candidate : component->getPortsView()) {
        if (candidate->getName() == portName) {
            return {candidate, nullptr};
        }
    }
    return {};
}

kel::ConstPortDeclarationVec ModelInstance::getProvidesPorts() const {
    kel::ConstPortDeclarationVec result;
    if (auto const* component = model->asComponentDeclaration()) {
        for (auto const* candidate : component->getPortsView()) {
            if (candidate->getDirection() == kel::idirProvided) {
                result.push_back(candidate);
            }
        }
    }
    return result;
}
