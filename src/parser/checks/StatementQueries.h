// Small queries over statements and expressions that the well-formedness
// checks and their analyses share.
#pragma once

#include "metamodel/Kel.h"

#include <cstddef>
#include <vector>

namespace language {

// False for a compound in which no statement is non-empty, through all nesting.
bool isNonEmpty(kel::BehaviourStatement const& statement);
// The number of statements, counting those of a compound instead of the compound.
std::size_t getSize(kel::ConstBehaviourStatementVec const& statements);
// The first action of "illegal" in order, looking into compounds, or null.
kel::ActionStatement const* findIllegal(kel::ConstBehaviourStatementVec const& statements);

// Whether the expression is a negation or one of the binary operators.
bool isOperatorExpression(kel::Expression const& expression);
// The operands of an operator expression, first one first; empty for any other.
std::vector<kel::Expression const*> operandsOf(kel::Expression const& expression);
// Whether the expression is one that holds no other expression and no call.
bool isLeafExpression(kel::Expression const& expression);

// The statements directly below one that wraps others: the inner statement of a
// guard, a blocking or an on, the list of a compound, the branches of an if.
std::vector<kel::BehaviourStatement const*>
innerStatements(kel::BehaviourStatement const& statement);

} // namespace language
