// Small questions about statements and events that the stepping asks in many places.
#pragma once

#include "metamodel/BehaviourStatement.h"
#include "metamodel/EventInstance.h"
#include "metamodel/Expression.h"
#include "metamodel/PortDeclaration.h"
#include "metamodel/VariableDeclaration.h"

#include <string>

// The port the instance names, or null.
kel::PortDeclaration const* PortOf(kel::EventInstance const& instance);
// The statement that holds the expression.
kel::BehaviourStatement const& NearestStatement(kel::Expression const& expression);
// The variable that an assignment or a declaration gives a value; else null.
kel::VariableDeclaration const* AssignedVariable(kel::BehaviourStatement const& statement);
// Whether an `on` or an action statement stands for the event text `name`;
// built-in events stand for "tau", the autonomous activation.
bool isMatchingEventStatement(kel::BehaviourStatement const& statement, std::string const& name);
