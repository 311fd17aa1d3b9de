// Construction helpers for expressions. Each makes one node with its children
// in the store and returns its id. Names stay unresolved.
#pragma once

#include "metamodel/DeclarationConstructors.h"

#include <cstdint>
#include <string>

namespace kel {

om::Oid constructNamedExpression(om::ObjectModel& model, std::string const& name, bool parentheses,
                                 OidVec const& argumentIds);
om::Oid constructNotExpression(om::ObjectModel& model, om::Oid expressionId);
om::Oid constructAndExpression(om::ObjectModel& model, om::Oid leftId, om::Oid rightId);
om::Oid constructOrExpression(om::ObjectModel& model, om::Oid leftId, om::Oid rightId);
om::Oid constructIsEqualExpression(om::ObjectModel& model, om::Oid leftId, om::Oid rightId);
om::Oid constructIsNotEqualExpression(om::ObjectModel& model, om::Oid leftId, om::Oid rightId);
om::Oid constructIsLessExpression(om::ObjectModel& model, om::Oid leftId, om::Oid rightId);
om::Oid constructIsLessEqualExpression(om::ObjectModel& model, om::Oid leftId, om::Oid rightId);
om::Oid constructIsGreaterExpression(om::ObjectModel& model, om::Oid leftId, om::Oid rightId);
om::Oid constructIsGreaterEqualExpression(om::ObjectModel& model, om::Oid leftId, om::Oid rightId);
om::Oid constructPlusExpression(om::ObjectModel& model, om::Oid leftId, om::Oid rightId);
om::Oid constructMinusExpression(om::ObjectModel& model, om::Oid leftId, om::Oid rightId);
om::Oid constructIntConstantExpression(om::ObjectModel& model, std::int32_t value);
// boolFalse for the text "false", boolTrue for any other text.
om::Oid constructBoolConstantExpression(om::ObjectModel& model, std::string const& text);
om::Oid ConstructBooleanConstantExpression(om::ObjectModel& model, BooleanValue value);
om::Oid constructDataExpression(om::ObjectModel& model, std::string const& value);
// The value is a name expression without parentheses.
om::Oid constructAssignmentExpression(om::ObjectModel& model, std::string const& variableName,
                                      std::string const& valueName);

} // namespace kel
