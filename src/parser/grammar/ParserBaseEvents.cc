#include "parser/grammar/ParserBase.h"

#include "metamodel/ResolvedConstructors.h"
#include "metamodel/TreePredicates.h"
#include "om/AsType.h"

namespace language {

bool ParserBase::vecIsMember(kel::EventInstance const& event,
                             kel::ConstEventInstanceVec const& list) {
    for (kel::EventInstance const* member : list) {
        if (kel::IsEqual(event, *member)) {
            return true;
        }
    }
    return false;
}

kel::ConstEventInstanceVec ParserBase::GetAllTriggers(kel::ModelDeclaration const& model) {
    kel::ConstEventInstanceVec triggers;
    if (kel::InterfaceDeclaration const* interface = model.asInterfaceDeclaration()) {
        for (kel::EventDeclaration const* event : interface->getEventsVec()) {
            if (event->getDirection() == kel::edirIn) {
                triggers.push_back(&storedInstance(kel::ConstructEventInstance(m_model, *event)));
            }
        }
    } else if (kel::ComponentDeclaration const* component = model.asComponentDeclaration()) {
        for (kel::PortDeclaration const* port : component->getPortsVec()) {
            addPortTriggers(*port, triggers);
        }
        if (kel::Behaviour const* behaviour = component->tryGetBehaviour()) {
            for (kel::InternalDeclaration const* internal : behaviour->getInternalsVec()) {
                addTriggers(*internal, kel::edirOut, triggers);
            }
        }
    }
    return triggers;
}

void ParserBase::ClearAllTriggers(kel::ConstEventInstanceVec& triggers) {
    for (kel::EventInstance const* instance : triggers) {
        kel::DestructEventInstance(m_model, *instance);
    }
    triggers.clear();
}

void ParserBase::addPortTriggers(kel::PortDeclaration const& port,
                                 kel::ConstEventInstanceVec& triggers) {
    if (port.getDirection() == kel::idirProvided) {
        addTriggers(port, kel::edirIn, triggers);
    } else if (port.getDirection() == kel::idirRequired) {
        addTriggers(port, kel::edirOut, triggers);
    }
}

void ParserBase::addTriggers(kel::PortDeclaration const& port, kel::EventDirection wanted,
                             kel::ConstEventInstanceVec& triggers) {
    kel::InterfaceDeclaration const* interface = port.getInterface().tryGetDeclaration();
    if (interface == nullptr) {
        return;
    }
    for (kel::EventDeclaration const* event : interface->getEventsVec()) {
        if (event->getDirection() == wanted) {
            triggers.push_back(&storedInstance(kel::ConstructEventInstance(m_model, *event, port)));
        }
    }
}

kel::EventInstance const& ParserBase::storedInstance(om::Oid id) const {
    return om::AsType<kel::EventInstance>(*m_model.find(id));
}

} // namespace language
