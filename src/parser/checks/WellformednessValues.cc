// How values of actions and calls may be used, constant expressions, returns
// and the bounds of subranges.
#include "parser/checks/WellformednessChecker.h"

#include "metamodel/ConstructionSupport.h"
#include "metamodel/TreePredicates.h"
#include "om/OMException.h"
#include "parser/checks/ModelQueries.h"
#include "parser/checks/StatementQueries.h"

namespace language {

namespace {

[[noreturn]] void unexpected(kel::Expression const& expression) {
    throw om::OMException("unexpected expression type: " + expression.getClassName());
}

bool hasReturnType(kel::EventInstance const& instance) {
    kel::EventDeclaration const* event = instance.getEvent().tryGetDeclaration();
    return event != nullptr && event->hasReturnType();
}

} // namespace

bool WellformednessChecker::checkValued(kel::BehaviourStatement const& statement) {
    if (kel::AssignmentStatement const* assignment = statement.asAssignmentStatement()) {
        kel::Expression const* value = assignment->tryGetValue();
        return value == nullptr || checkSimpleValued(*value);
    }
    if (auto const* declaration = statement.asVariableDeclarationStatement()) {
        kel::Expression const* value = declaration->getVariable().tryGetInitialValue();
        return value == nullptr || checkSimpleValued(*value);
    }
    if (kel::ActionStatement const* action = statement.asActionStatement()) {
        kel::EventInstance const& event = action->getExpression().getEvent();
        return !hasReturnType(event) ||
               report(statement, "Action value discarded: " + q(event.getName()));
    }
    if (kel::FunctionCallStatement const* call = statement.asFunctionCallStatement()) {
        kel::FunctionCallExpression const& expression = call->getExpression();
        kel::FunctionDeclaration const* function = expression.getFunction().tryGetDeclaration();
        bool ok =
            function == nullptr || !function->hasReturnType() ||
            report(statement, "Function value discarded: " + q(expression.getFunction().getName()));
        for (kel::Expression const* argument : expression.getArgumentsVec()) {
            ok = checkValuedExpr(*argument) && ok;
        }
        return ok;
    }
    kel::Expression const* value = nullptr;
    if (kel::IfStatement const* branch = statement.asIfStatement()) {
        value = branch->tryGetExpression();
    } else if (kel::ReplyStatement const* reply = statement.asReplyStatement()) {
        value = reply->tryGetExpression();
    } else if (kel::ReturnStatement const* ret = statement.asReturnStatement()) {
        value = ret->tryGetExpression();
    }
    return value == nullptr || checkValuedExpr(*value);
}

// An action or a call may stand only as the whole right-hand side.
bool WellformednessChecker::checkSimpleValued(kel::Expression const& expression) {
    if (expression.asActionExpression() != nullptr || expression.asDataExpression() != nullptr) {
        return true;
    }
    if (kel::FunctionCallExpression const* call = expression.asFunctionCallExpression()) {
        bool ok = true;
        for (kel::Expression const* argument : call->getArgumentsVec()) {
            ok = checkValuedExpr(*argument) && ok;
        }
        return ok;
    }
    return checkValuedExpr(expression);
}

bool WellformednessChecker::checkValuedExpr(kel::Expression const& expression) {
    if (isLeafExpression(expression) && expression.asActionExpression() == nullptr) {
        return true;
    }
    if (expression.asAssignmentExpression() != nullptr) {
        return tryGetAncestor<kel::EventInstance>(expression) != nullptr ||
               report(expression, "'<-' not allowed here");
    }
    if (expression.asActionExpression() != nullptr) {
        return report(expression, "Actions are not allowed here");
    }
    if (expression.asFunctionCallExpression() != nullptr) {
        return report(expression, "Function calls are not allowed here");
    }
    if (!isOperatorExpression(expression)) {
        unexpected(expression);
    }
    bool ok = true;
    for (kel::Expression const* operand : operandsOf(expression)) {
        ok = checkValuedExpr(*operand) && ok;
    }
    return ok;
}

bool WellformednessChecker::checkConstExpr(kel::Expression const& expression) {
    if (kel::VariableExpression const* variable = expression.asVariableExpression()) {
        return report(expression,
                      "Constant expression expected: " + q(variable->getVariable().getName()));
    }
    if (auto const* enumVariable = expression.asEnumVariableValueExpression()) {
        return report(expression,
                      "Constant expression expected: " + q(enumVariable->getVariable().getName()));
    }
    if (isLeafExpression(expression) || expression.asAssignmentExpression() != nullptr ||
        expression.asFunctionCallExpression() != nullptr) {
        return true;
    }
    if (!isOperatorExpression(expression)) {
        unexpected(expression);
    }
    bool ok = true;
    for (kel::Expression const* operand : operandsOf(expression)) {
        ok = checkConstExpr(*operand) && ok;
    }
    return ok;
}

bool WellformednessChecker::checkNoReturn(kel::BehaviourStatement const& statement) {
    return statement.asReturnStatement() == nullptr ||
           report(statement, "Return Statement not allowed here");
}

bool WellformednessChecker::checkSubInt(kel::IntTypeDeclaration const& type) {
    return type.getMinValue() <= type.getMaxValue() ||
           report(type, "Minimum version must not be smaller than maximum value");
}

bool WellformednessChecker::hasReturn(kel::BehaviourStatement const& statement) {
    if (statement.asReturnStatement() != nullptr) {
        return true;
    }
    if (kel::CompoundStatement const* compound = statement.asCompoundStatement()) {
        for (kel::BehaviourStatement const* inner : compound->getStatementsVec()) {
            if (hasReturn(*inner)) {
                return true;
            }
        }
        return false;
    }
    if (kel::IfStatement const* branch = statement.asIfStatement()) {
        kel::BehaviourStatement const* otherwise = branch->tryGetElseStatement();
        return otherwise != nullptr && hasReturn(branch->getThenStatement()) &&
               hasReturn(*otherwise);
    }
    if (statement.asActionStatement() != nullptr) {
        return kel::IsIllegal(statement);
    }
    std::vector<kel::BehaviourStatement const*> inner = innerStatements(statement);
    return inner.size() == 1 && hasReturn(*inner.front());
}

void WellformednessChecker::addMissingReturn(kel::CompoundStatement const& compound) {
    auto ret = kel::NewObject<kel::ReturnStatement>(m_model);
    // It points at the end of the body, where the return is missing.
    if (compound.hasFile()) {
        ret.setFile(compound.getFileOid());
    }
    for (auto set :
         {&kel::Location::setBeginLine, &kel::Location::setLine, &kel::Location::setEndLine}) {
        (ret.*set)(compound.getEndLine());
    }
    for (auto set : {&kel::Location::setBeginColumn, &kel::Location::setColumn,
                     &kel::Location::setEndColumn}) {
        (ret.*set)(compound.getEndColumn());
    }
    om::Oid id = kel::Insert(m_model, std::move(ret));
    kel::CompoundStatement copy(compound);
    copy.addToStatements(id);
    m_model.update(copy);
}

} // namespace language
