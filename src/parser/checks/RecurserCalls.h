// The parts of a statement that the recursion analysis walks for calls.
#pragma once

#include "metamodel/Kel.h"

#include <vector>

namespace language {

// The value of an assignment or initialisation, the expression of a reply,
// return or call statement, the condition of an if; empty for any other.
std::vector<kel::Expression const*>
callCarryingExpressions(kel::BehaviourStatement const& statement);
// OMException for an expression of a class that the walk does not know.
void checkCallCarrier(kel::Expression const& expression);

} // namespace language
