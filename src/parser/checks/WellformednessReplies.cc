// What a reply may reply to: the port it names or implies, and the events
// of that port's interface that have a matching return type.
#include "parser/checks/WellformednessChecker.h"

#include "parser/checks/ModelQueries.h"
#include "parser/types/TypeChecker.h"

#include <vector>

namespace language {

namespace {

using Interfaces = std::vector<kel::InterfaceDeclaration const*>;

kel::EventDirection boundDirection(kel::EventInstance const& instance) {
    kel::EventDeclaration const* event = instance.getEvent().tryGetDeclaration();
    return event != nullptr ? event->getDirection() : kel::edirUnknown;
}

bool hasOutEvent(kel::OnEventStatement const& on) {
    for (kel::EventInstance const* instance : on.getEventsVec()) {
        if (boundDirection(*instance) == kel::edirOut) {
            return true;
        }
    }
    return false;
}

// The ports that a reply in a component may concern.
std::vector<kel::PortDeclaration const*>
concernedPorts(kel::ReplyStatement const& reply, kel::ComponentDeclaration const& component) {
    if (kel::PortReference const* port = reply.tryGetPort()) {
        if (port->hasDeclaration()) {
            return {&port->getDeclaration()};
        }
        return {};
    }
    kel::OnEventStatement const* on = tryGetAncestor<kel::OnEventStatement>(reply);
    if (on == nullptr || hasOutEvent(*on)) {
        return providedPorts(component);
    }
    std::vector<kel::PortDeclaration const*> ports;
    for (kel::EventInstance const* instance : on->getEventsVec()) {
        kel::PortReference const* port = instance->tryGetPort();
        if (boundDirection(*instance) == kel::edirIn && port != nullptr && port->hasDeclaration()) {
            ports.push_back(&port->getDeclaration());
        }
    }
    return ports;
}

// The interfaces whose events the reply is held against; none outside a model.
Interfaces concernedInterfaces(kel::ReplyStatement const& reply) {
    if (kel::ComponentDeclaration const* component =
            tryGetAncestor<kel::ComponentDeclaration>(reply)) {
        Interfaces interfaces;
        for (kel::PortDeclaration const* port : concernedPorts(reply, *component)) {
            if (kel::InterfaceDeclaration const* interface =
                    port->getInterface().tryGetDeclaration()) {
                interfaces.push_back(interface);
            }
        }
        return interfaces;
    }
    if (auto const* interface = tryGetAncestor<kel::InterfaceDeclaration>(reply)) {
        return {interface};
    }
    return {};
}

template <class Matches> bool anyEvent(Interfaces const& interfaces, Matches matches) {
    for (kel::InterfaceDeclaration const* interface : interfaces) {
        for (kel::EventDeclaration const* event : interface->getEventsVec()) {
            if (matches(*event)) {
                return true;
            }
        }
    }
    return false;
}

} // namespace

bool WellformednessChecker::checkReply(kel::BehaviourStatement const& statement) {
    kel::ReplyStatement const* reply = statement.asReplyStatement();
    return reply == nullptr || (checkReplyPort(*reply) && checkReplyType(*reply));
}

bool WellformednessChecker::checkReplyPort(kel::ReplyStatement const& reply) {
    if (kel::PortReference const* port = reply.tryGetPort()) {
        if (port->hasDeclaration() && port->getDeclaration().getDirection() == kel::idirRequired) {
            return report(reply, "Reply not allowed on 'requires' Port: " + q(port->getName()));
        }
        return true;
    }
    kel::ComponentDeclaration const* component = tryGetAncestor<kel::ComponentDeclaration>(reply);
    if (component == nullptr || providedPorts(*component).size() < 2) {
        return true;
    }
    kel::OnEventStatement const* on = tryGetAncestor<kel::OnEventStatement>(reply);
    if (on == nullptr) {
        return report(reply, "Reply without port is not allowed outside the scope of an 'on' "
                             "clause when multiple 'provides' ports are present");
    }
    return !hasOutEvent(*on) || report(reply, "Reply without port is not allowed for an 'out' "
                                              "event when multiple 'provides' ports are present");
}

bool WellformednessChecker::checkReplyType(kel::ReplyStatement const& reply) {
    bool inModel = tryGetAncestor<kel::ComponentDeclaration>(reply) != nullptr ||
                   tryGetAncestor<kel::InterfaceDeclaration>(reply) != nullptr;
    if (!inModel) {
        return true;
    }
    Interfaces interfaces = concernedInterfaces(reply);
    kel::Expression const* expression = reply.tryGetExpression();
    if (expression == nullptr) {
        return anyEvent(interfaces,
                        [](kel::EventDeclaration const& event) {
                            return event.getDirection() == kel::edirIn && !event.hasReturnType();
                        }) ||
               report(reply, "Void Reply type does not match any event type");
    }
    // A checker of its own, whose errors were reported by the type check already.
    TypeChecker types(m_model);
    bool typed = true;
    kel::TypeDeclaration const* type = types.tryGetAndCheckType(*expression, typed);
    if (type == nullptr) {
        return true;
    }
    return anyEvent(interfaces,
                    [type](kel::EventDeclaration const& event) {
                        kel::TypeReference const* returned = event.tryGetReturnType();
                        return returned != nullptr && returned->hasDeclaration() &&
                               isEqualType(returned->getDeclaration(), *type);
                    }) ||
           report(reply, "Reply type does not match any event type: " + q(type->getName()));
}

} // namespace language
