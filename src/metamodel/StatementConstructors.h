// Construction helpers for statements, guards and event instances. Each makes
// one node with its children in the store and returns its id; an id of 0
// leaves an optional member empty. Names stay unresolved.
#pragma once

#include "metamodel/DeclarationConstructors.h"

#include <string>

namespace kel {

om::Oid constructGuardedStatement(om::ObjectModel& model, om::Oid guardId, om::Oid statementId);
om::Oid constructExpressionGuard(om::ObjectModel& model, om::Oid expressionId);
om::Oid constructOtherwiseGuard(om::ObjectModel& model);
om::Oid constructOnEventStatement(om::ObjectModel& model, OidVec const& eventIds,
                                  om::Oid statementId);
om::Oid constructOnEventStatement(om::ObjectModel& model, om::Oid eventId, om::Oid statementId);
om::Oid constructBlockingStatement(om::ObjectModel& model, om::Oid statementId);
// Named "port.event", or "event" with an empty port name and then no Port.
om::Oid constructEventInstance(om::ObjectModel& model, std::string const& portName,
                               std::string const& eventName, bool parentheses,
                               OidVec const& argumentIds);
om::Oid constructEventInstance(om::ObjectModel& model, std::string const& portName,
                               std::string const& eventName, bool parentheses);
om::Oid constructIllegalInstance(om::ObjectModel& model);
om::Oid constructOptionalInstance(om::ObjectModel& model);
om::Oid constructInevitableInstance(om::ObjectModel& model);
// The action of the illegal event.
om::Oid constructIllegalStatement(om::ObjectModel& model);
om::Oid constructAssignmentBehaviourStatement(om::ObjectModel& model,
                                              std::string const& variableName, om::Oid valueId);
om::Oid constructNameStatement(om::ObjectModel& model, std::string const& name, bool parentheses,
                               OidVec const& argumentIds);
om::Oid constructIfStatement(om::ObjectModel& model, om::Oid expressionId, om::Oid thenId,
                             om::Oid elseId);
om::Oid constructReplyStatement(om::ObjectModel& model, std::string const& portName,
                                om::Oid expressionId);
om::Oid constructReturnStatement(om::ObjectModel& model, om::Oid expressionId);
// A variable declaration among the ids is wrapped in a declaration statement
// with the variable's location.
om::Oid constructCompoundBehaviourStatement(om::ObjectModel& model, OidVec const& ids);

} // namespace kel
