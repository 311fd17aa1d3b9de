// Where calls stand: the expressions of a statement that are walked for calls.
#include "parser/checks/RecurserCalls.h"

#include "om/OMException.h"
#include "parser/checks/StatementQueries.h"

namespace language {

std::vector<kel::Expression const*>
callCarryingExpressions(kel::BehaviourStatement const& statement) {
    if (kel::AssignmentStatement const* assignment = statement.asAssignmentStatement()) {
        if (kel::Expression const* value = assignment->tryGetValue()) {
            return {value};
        }
    } else if (auto const* declaration = statement.asVariableDeclarationStatement()) {
        if (kel::Expression const* value = declaration->getVariable().tryGetInitialValue()) {
            return {value};
        }
    } else if (kel::ReplyStatement const* reply = statement.asReplyStatement()) {
        if (kel::Expression const* value = reply->tryGetExpression()) {
            return {value};
        }
    } else if (kel::ReturnStatement const* ret = statement.asReturnStatement()) {
        if (kel::Expression const* value = ret->tryGetExpression()) {
            return {value};
        }
    } else if (kel::FunctionCallStatement const* call = statement.asFunctionCallStatement()) {
        return {&call->getExpression()};
    } else if (kel::IfStatement const* branch = statement.asIfStatement()) {
        if (kel::Expression const* condition = branch->tryGetExpression()) {
            return {condition};
        }
    }
    return {};
}

void checkCallCarrier(kel::Expression const& expression) {
    if (!isOperatorExpression(expression) && !isLeafExpression(expression) &&
        expression.asFunctionCallExpression() == nullptr) {
        throw om::OMException("unexpected expression type: " + expression.getClassName());
    }
}

} // namespace language
