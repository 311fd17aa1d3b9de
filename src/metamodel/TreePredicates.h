// Small queries over statements, events and variables that the checkers and
// the interpreter share.
#pragma once

#include "metamodel/BehaviourStatement.h"
#include "metamodel/CompoundStatement.h"
#include "metamodel/ConstOnEventStatementVec.h"
#include "metamodel/EventDeclaration.h"
#include "metamodel/EventInstance.h"
#include "metamodel/EventReference.h"
#include "metamodel/InterfaceDeclaration.h"
#include "metamodel/OnEventStatement.h"
#include "metamodel/TypeDeclaration.h"
#include "metamodel/VariableDeclaration.h"

#include <optional>
#include <string>
#include <utility>

namespace kel {

// "illegal", "optional" and "inevitable" are built in.
bool IsBuiltin(EventDeclaration const& event);
// Only a resolved reference can be built in.
bool IsBuiltin(EventReference const& event);
bool IsBuiltin(EventInstance const& instance);
// Whether any of its events is built in.
bool IsBuiltin(OnEventStatement const& statement);
bool IsBool(TypeDeclaration const& type);
bool IsDefaultInterface(InterfaceDeclaration const& interface);
// Whether the instance's resolved event is the one illegal event of the store.
bool IsIllegal(EventInstance const& instance);
// Whether it is the action statement of an instance named "illegal".
bool IsIllegal(BehaviourStatement const& statement);
// Action, assignment, variable declaration, if, reply, return or function call.
bool IsImperative(BehaviourStatement const& statement);
// Whether the compound chooses by guards or events rather than running in order.
bool IsDeclarative(CompoundStatement const& compound);
// Whether the variable's type is resolved to an extern data type.
bool IsDataVariable(VariableDeclaration const& variable);
bool IsStateVariable(VariableDeclaration const& variable);
// Same event declaration, and either no port on both or the same port declaration.
bool IsEqual(EventInstance const& a, EventInstance const& b);
// What IsEqual compares: the ids of the event's declaration and of the port's
// (NULL_OID without a port); nothing when either is unresolved, as such an
// instance equals no other. Lets a caller keep many instances in a set.
using EventIdentity = std::pair<om::Oid, om::Oid>;
std::optional<EventIdentity> IdentityOf(EventInstance const& instance);

// The event instance that an action, an assignment of an action or a
// variable initialised by an action performs; null for anything else.
EventInstance const* tryGetActionEventInstance(BehaviourStatement const& statement);
EventInstance const* TryGetBuiltinEventInstance(OnEventStatement const& statement);
EventInstance const* TryGetEventInstance(OnEventStatement const& statement,
                                         std::string const& name);
// Each statement once for each of its event instances with that name, in order.
ConstOnEventStatementVec FindOnEventStatementsByName(ConstOnEventStatementVec const& statements,
                                                     std::string const& name);

} // namespace kel
