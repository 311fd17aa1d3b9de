#include "metamodel/PortEvent.h"

#include "metamodel/ConstEnumTypeDeclarationVec.h"
#include "metamodel/ConstEnumValueDeclarationVec.h"
#include "metamodel/ConstEventInstanceVec.h"
#include "metamodel/ConstEventReferenceVec.h"
#include "metamodel/ConstIntTypeDeclarationVec.h"
#include "metamodel/ConstInterfaceDeclarationVec.h"
#include "metamodel/ConstPortDeclarationVec.h"
#include "metamodel/ConstPortReferenceVec.h"
#include "metamodel/ConstTypeDeclarationVec.h"
#include "metamodel/ConstTypeReferenceVec.h"
#include "metamodel/TreePredicates.h"
#include "om/OMException.h"

#include <algorithm>
#include <stdexcept>

namespace kel {
namespace {

// One reply per value of the return type; none for a type of another kind.
std::vector<PortReturn> RepliesOfType(PortReturn const& base, TypeDeclaration const& type) {
    std::vector<PortReturn> replies;
    auto add = [&](auto set) {
        auto reply = base;
        reply.type = &type;
        set(reply);
        replies.push_back(reply);
    };
    if (auto const* enumType = type.asEnumTypeDeclaration()) {
        for (auto const* value : enumType->getValues()) {
            add([&](PortReturn& reply) { reply.enumValue = value; });
        }
    } else if (IsBool(type)) {
        add([](PortReturn& reply) { reply.boolValue = true; });
        add([](PortReturn& reply) { reply.boolValue = false; });
    } else if (auto const* intType = type.asIntTypeDeclaration()) {
        for (auto value = std::int64_t{intType->getMinValue()}; value <= intType->getMaxValue();
             ++value) {
            add([&](PortReturn& reply) { reply.intValue = std::int32_t(value); });
        }
    }
    return replies;
}

} // namespace

PortEvent::PortEvent(EventInstance const& instance)
    : port(instance.hasPort() ? instance.getPort().tryGetDeclaration() : nullptr),
      event(instance.getEvent().tryGetDeclaration()) {}

PortDeclaration const& PortEvent::GetPort() const {
    if (port == nullptr) {
        throw std::runtime_error("PortEvent has no port");
    }
    return *port;
}

std::string PortEvent::event_str() const { return event == nullptr ? "tau" : event->getName(); }

std::string PortEvent::str() const {
    return port == nullptr ? event_str() : port->getName() + "." + event_str();
}

InterfaceDeclaration const& PortEvent::getInterface() const {
    if (event == nullptr) {
        throw std::runtime_error("PortEvent has no event");
    }
    auto const* interface = dynamic_cast<InterfaceDeclaration const*>(event->tryGetParent());
    if (interface == nullptr) {
        throw om::OMException("Object doesn't have parent of type " +
                              InterfaceDeclaration::ClassName);
    }
    return *interface;
}

bool PortEvent::IsInput() const {
    if (event == nullptr || IsBuiltin(*event)) {
        return false;
    }
    auto const portDirection = port == nullptr ? idirProvided : port->getDirection();
    return (event->getDirection() == edirIn && portDirection == idirProvided) ||
           (event->getDirection() == edirOut && portDirection == idirRequired);
}

bool PortEvent::IsVoid() const {
    return event == nullptr || IsBuiltin(*event) || !event->hasReturnType();
}

bool PortEvent::IsCall() const {
    return event != nullptr && !IsBuiltin(*event) && event->getDirection() == edirIn;
}

std::vector<PortReturn> PortEvent::PortReturns() const {
    if (event == nullptr || IsBuiltin(*event)) {
        return {};
    }
    PortReturn base;
    base.port = port;
    base.interface = port == nullptr ? &getInterface() : base.getInterface();
    if (!event->hasReturnType()) {
        return {base};
    }
    auto const* type = event->getReturnType().tryGetDeclaration();
    return type == nullptr ? std::vector<PortReturn>{} : RepliesOfType(base, *type);
}

bool PortEvent::IsValidReturn(std::string const& text) const {
    auto const replies = PortReturns();
    return std::any_of(replies.begin(), replies.end(),
                       [&](PortReturn const& reply) { return reply.str() == text; });
}

} // namespace kel
