#include "interpreter/StatementQueries.h"

#include "metamodel/Kel.h"
#include "metamodel/TreePredicates.h"

#include <stdexcept>

kel::PortDeclaration const* PortOf(kel::EventInstance const& instance) {
    auto const* port = instance.tryGetPort();
    return port == nullptr ? nullptr : port->tryGetDeclaration();
}

kel::BehaviourStatement const& NearestStatement(kel::Expression const& expression) {
    for (auto const* parent = expression.tryGetParent(); parent != nullptr;
         parent = parent->tryGetParent()) {
        if (auto const* statement = dynamic_cast<kel::BehaviourStatement const*>(parent)) {
            return *statement;
        }
    }
    throw std::logic_error("Expression outside a statement");
}

kel::VariableDeclaration const* AssignedVariable(kel::BehaviourStatement const& statement) {
    if (auto const* assignment = statement.asAssignmentStatement()) {
        return &assignment->getVariable().getDeclaration();
    }
    if (auto const* declaration = statement.asVariableDeclarationStatement()) {
        return &declaration->getVariable();
    }
    return nullptr;
}

bool isMatchingEventStatement(kel::BehaviourStatement const& statement, std::string const& name) {
    if (auto const* on = statement.asOnEventStatement()) {
        if (kel::IsBuiltin(*on)) {
            // "optional" and "inevitable" are alike here: both are simply
            // reachable in an autonomous activation.
            return name == "tau";
        }
        return kel::TryGetEventInstance(*on, name) != nullptr;
    }
    if (auto const* action = statement.asActionStatement()) {
        return action->getExpression().getEvent().getName() == name;
    }
    return false;
}
