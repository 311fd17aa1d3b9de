#include "parser/Triggers.h"

#include "metamodel/ResolvedConstructors.h"
#include "metamodel/TreePredicates.h"
#include "om/AsType.h"

namespace language {

namespace {

kel::EventInstance const& stored(om::ObjectModel& model, om::Oid id) {
    return om::AsType<kel::EventInstance>(*model.find(id));
}

void addEvents(om::ObjectModel& model, kel::PortDeclaration const& port, kel::EventDirection wanted,
               kel::ConstEventInstanceVec& triggers) {
    kel::InterfaceDeclaration const* interface = port.getInterface().tryGetDeclaration();
    if (interface == nullptr) {
        return;
    }
    for (kel::EventDeclaration const* event : interface->getEventsVec()) {
        if (event->getDirection() == wanted) {
            triggers.push_back(&stored(model, kel::ConstructEventInstance(model, *event, port)));
        }
    }
}

// What comes in: calls on a provided port, notifications on a required one.
void addPortTriggers(om::ObjectModel& model, kel::PortDeclaration const& port,
                     kel::ConstEventInstanceVec& triggers) {
    if (port.getDirection() == kel::idirProvided) {
        addEvents(model, port, kel::edirIn, triggers);
    } else if (port.getDirection() == kel::idirRequired) {
        addEvents(model, port, kel::edirOut, triggers);
    }
}

} // namespace

kel::ConstEventInstanceVec GetAllTriggers(om::ObjectModel& model,
                                          kel::ModelDeclaration const& declaration) {
    kel::ConstEventInstanceVec triggers;
    if (kel::InterfaceDeclaration const* interface = declaration.asInterfaceDeclaration()) {
        for (kel::EventDeclaration const* event : interface->getEventsVec()) {
            if (event->getDirection() == kel::edirIn) {
                triggers.push_back(&stored(model, kel::ConstructEventInstance(model, *event)));
            }
        }
    } else if (kel::ComponentDeclaration const* component = declaration.asComponentDeclaration()) {
        for (kel::PortDeclaration const* port : component->getPortsVec()) {
            addPortTriggers(model, *port, triggers);
        }
        if (kel::Behaviour const* behaviour = component->tryGetBehaviour()) {
            for (kel::InternalDeclaration const* internal : behaviour->getInternalsVec()) {
                addEvents(model, *internal, kel::edirOut, triggers);
            }
        }
    }
    return triggers;
}

void ClearAllTriggers(om::ObjectModel& model, kel::ConstEventInstanceVec& triggers) {
    for (kel::EventInstance const* instance : triggers) {
        kel::DestructEventInstance(model, *instance);
    }
    triggers.clear();
}

bool vecIsMember(kel::EventInstance const& event, kel::ConstEventInstanceVec const& list) {
    for (kel::EventInstance const* member : list) {
        if (kel::IsEqual(event, *member)) {
            return true;
        }
    }
    return false;
}

} // namespace language
