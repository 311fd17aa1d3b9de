#include "interpreter/KelSemantics.h"

#include "metamodel/ActionExpression.h"
#include "metamodel/ActionStatement.h"
#include "metamodel/EventDeclaration.h"
#include "metamodel/EventReference.h"
#include "metamodel/InternalDeclaration.h"
#include "metamodel/PortReference.h"
#include "metamodel/TreePredicates.h"

bool KelSemantics::IsAction(kel::BehaviourStatement const& statement) {
    return kel::tryGetActionEventInstance(statement) != nullptr;
}

bool KelSemantics::IsEventSendAction(kel::BehaviourStatement const& statement) {
    auto const* action = statement.asActionStatement();
    if (action == nullptr) {
        return false;
    }
    auto const& instance = action->getExpression().getEvent();
    auto const* event = instance.getEvent().tryGetDeclaration();
    return event != nullptr && event->getDirection() == kel::edirOut && !kel::IsIllegal(instance);
}

bool KelSemantics::IsEventCallAction(kel::BehaviourStatement const& statement) {
    return IsAction(statement) && !IsEventSendAction(statement);
}

bool KelSemantics::IsInternalAction(kel::BehaviourStatement const& statement) {
    auto const* action = statement.asActionStatement();
    if (action == nullptr) {
        return false;
    }
    auto const* port = action->getExpression().getEvent().tryGetPort();
    auto const* declaration = port == nullptr ? nullptr : port->tryGetDeclaration();
    return declaration != nullptr && declaration->asInternalDeclaration() != nullptr &&
           IsEventCallAction(statement);
}
