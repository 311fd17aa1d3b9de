// A small resolved model for the event tests: interface I with events of
// every return kind, interface J with an enum of its own, ports of each
// direction and a component with an internal port.
#pragma once

#include "StoreFixture.h"

#include "metamodel/BuiltinDeclarations.h"
#include "metamodel/DeclarationConstructors.h"
#include "metamodel/PortEvent.h"

#include <string>
#include <vector>

namespace kel::test {

class EventModelFixture : public StoreFixture {
protected:
    void SetUp() override {
        root();
        auto const& space = *GetDefaultNamespace(model);
        small = &find<IntTypeDeclaration>(constructIntTypeDeclaration(model, "Small", 0, 3));
        change(space, [&](Namespace& copy) { copy.addToTypes(small->getOid()); });
        j = &interfaceWithEnum("J", "Other", {"a", "b"});
        i = &interfaceWithEnum("I", "Result", {"ok", "nok"});
        addEvents();
        p = &port("p", idirProvided, i);
        r = &port("r", idirRequired, i);
        unknown = &port("w", idirUnknown, i);
        unresolved = &port("z", idirProvided, nullptr);
        component = &componentWithInternal();
    }

    // Makes an event of I, its return type resolved to `type` unless null.
    EventDeclaration const& event(std::string const& name, EventDirection direction,
                                  std::string const& typeName, TypeDeclaration const* type) {
        auto const& declaration =
            find<EventDeclaration>(constructEventDeclaration(model, direction, typeName, name, {}));
        if (type != nullptr) {
            change(declaration.getReturnType(),
                   [&](TypeReference& copy) { copy.setDeclaration(type->getOid()); });
        }
        return declaration;
    }

    EventDeclaration const& eventOfI(std::string const& name) {
        for (auto const* candidate : i->getEvents()) {
            if (candidate->getName() == name) {
                return *candidate;
            }
        }
        throw std::runtime_error("no event " + name);
    }

    static std::vector<std::string> TextsOf(std::vector<PortEvent> const& events) {
        std::vector<std::string> texts;
        for (auto const& event : events) {
            texts.push_back(event.str());
        }
        return texts;
    }

    IntTypeDeclaration const* small = nullptr;
    InterfaceDeclaration const* i = nullptr;
    InterfaceDeclaration const* j = nullptr;
    PortDeclaration const* p = nullptr;
    PortDeclaration const* r = nullptr;
    PortDeclaration const* unknown = nullptr;
    PortDeclaration const* unresolved = nullptr;
    ComponentDeclaration const* component = nullptr;

private:
    InterfaceDeclaration const& interfaceWithEnum(std::string const& name,
                                                  std::string const& enumName,
                                                  std::vector<std::string> const& values) {
        std::vector<om::Oid> valueIds;
        for (auto const& value : values) {
            valueIds.push_back(constructEnumValueDeclaration(model, value));
        }
        auto const enumId = constructEnumTypeDeclaration(model, enumName, valueIds);
        auto const& interface =
            find<InterfaceDeclaration>(constructInterfaceDeclaration(model, name, 0));
        change(interface, [&](InterfaceDeclaration& copy) { copy.addToTypes(enumId); });
        change(*GetDefaultNamespace(model),
               [&](Namespace& copy) { copy.addToModels(interface.getOid()); });
        return interface;
    }

    void addEvents() {
        auto const& result = *i->getTypes().toPtr();
        auto const& other = *j->getTypes().toPtr();
        std::vector<om::Oid> const ids{
            event("e", edirIn, "void", nullptr).getOid(),
            event("f", edirIn, "Result", &result).getOid(),
            event("g", edirIn, "bool", GetBoolTypeDeclaration(model)).getOid(),
            event("h", edirIn, "Small", small).getOid(),
            event("k", edirIn, "J.Other", &other).getOid(),
            event("x", edirOut, "void", nullptr).getOid(),
            event("optional", edirOut, "void", nullptr).getOid(),
            event("inevitable", edirIn, "void", nullptr).getOid(),
            event("u", edirUnknown, "void", nullptr).getOid(),
            event("y", edirIn, "Missing", nullptr).getOid(),
        };
        change(*i, [&](InterfaceDeclaration& copy) { copy.addToEvents(ids); });
    }

    PortDeclaration const& port(std::string const& name, PortDirection direction,
                                InterfaceDeclaration const* interface) {
        auto const& declaration = find<PortDeclaration>(
            constructPortDeclaration(model, "I", name, direction, false, false));
        if (interface != nullptr) {
            change(declaration.getInterface(),
                   [&](InterfaceReference& copy) { copy.setDeclaration(interface->getOid()); });
        }
        return declaration;
    }

    ComponentDeclaration const& componentWithInternal() {
        auto const internalId = constructInternalDeclaration(model, "I", "q", {});
        change(find<InternalDeclaration>(internalId).getInterface(),
               [&](InterfaceReference& copy) { copy.setDeclaration(i->getOid()); });
        auto const behaviourId = constructBehaviour(model, "");
        change(find<Behaviour>(behaviourId),
               [&](Behaviour& copy) { copy.addToInternals(internalId); });
        return find<ComponentDeclaration>(constructComponentDeclaration(
            model, "C", {p->getOid(), r->getOid(), unresolved->getOid()}, behaviourId, 0));
    }
};

} // namespace kel::test
