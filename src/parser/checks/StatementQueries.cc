#include "parser/checks/StatementQueries.h"

#include "metamodel/TreePredicates.h"
#include "om/AsType.h"

#include <array>
#include <string>

namespace language {

namespace {

std::array<std::string const*, 10> const& binaryClassNames() {
    static std::array<std::string const*, 10> const names{
        &kel::BooleanAndExpression::ClassName, &kel::BooleanOrExpression::ClassName,
        &kel::IsEqualExpression::ClassName,    &kel::IsNotEqualExpression::ClassName,
        &kel::IsLessExpression::ClassName,     &kel::IsLessEqualExpression::ClassName,
        &kel::IsGreaterExpression::ClassName,  &kel::IsGreaterEqualExpression::ClassName,
        &kel::PlusExpression::ClassName,       &kel::MinusExpression::ClassName};
    return names;
}

bool isBinary(kel::Expression const& expression) {
    std::string const& name = expression.getClassName();
    for (std::string const* binary : binaryClassNames()) {
        if (*binary == name) {
            return true;
        }
    }
    return false;
}

kel::Expression const& operand(kel::Expression const& expression, char const* member) {
    return om::AsType<kel::Expression>(*expression.getCompositionObjects(member).front());
}

} // namespace

bool isNonEmpty(kel::BehaviourStatement const& statement) {
    kel::CompoundStatement const* compound = statement.asCompoundStatement();
    if (compound == nullptr) {
        return true;
    }
    for (kel::BehaviourStatement const* inner : compound->getStatementsVec()) {
        if (isNonEmpty(*inner)) {
            return true;
        }
    }
    return false;
}

std::size_t getSize(kel::ConstBehaviourStatementVec const& statements) {
    std::size_t size = 0;
    for (kel::BehaviourStatement const* statement : statements) {
        kel::CompoundStatement const* compound = statement->asCompoundStatement();
        size += compound != nullptr ? getSize(compound->getStatementsVec()) : 1;
    }
    return size;
}

kel::ActionStatement const* findIllegal(kel::ConstBehaviourStatementVec const& statements) {
    for (kel::BehaviourStatement const* statement : statements) {
        if (kel::CompoundStatement const* compound = statement->asCompoundStatement()) {
            if (kel::ActionStatement const* found = findIllegal(compound->getStatementsVec())) {
                return found;
            }
        } else if (kel::IsIllegal(*statement)) {
            return statement->asActionStatement();
        }
    }
    return nullptr;
}

bool isOperatorExpression(kel::Expression const& expression) {
    return expression.asBooleanNotExpression() != nullptr || isBinary(expression);
}

std::vector<kel::Expression const*> operandsOf(kel::Expression const& expression) {
    if (kel::BooleanNotExpression const* negation = expression.asBooleanNotExpression()) {
        return {&negation->getExpr()};
    }
    if (isBinary(expression)) {
        return {&operand(expression, "Expr1"), &operand(expression, "Expr2")};
    }
    return {};
}

bool isLeafExpression(kel::Expression const& expression) {
    return expression.asVariableExpression() != nullptr ||
           expression.asEnumVariableValueExpression() != nullptr ||
           expression.asEnumConstantExpression() != nullptr ||
           expression.asBooleanConstantExpression() != nullptr ||
           expression.asIntConstantExpression() != nullptr ||
           expression.asActionExpression() != nullptr || expression.asDataExpression() != nullptr;
}

std::vector<kel::BehaviourStatement const*>
innerStatements(kel::BehaviourStatement const& statement) {
    if (kel::CompoundStatement const* compound = statement.asCompoundStatement()) {
        auto const inner = compound->getStatementsView();
        return {inner.begin(), inner.end()};
    }
    if (kel::GuardedStatement const* guarded = statement.asGuardedStatement()) {
        return {&guarded->getStatement()};
    }
    if (kel::BlockingStatement const* blocking = statement.asBlockingStatement()) {
        return {&blocking->getStatement()};
    }
    if (kel::OnEventStatement const* on = statement.asOnEventStatement()) {
        return {&on->getStatement()};
    }
    if (kel::IfStatement const* branch = statement.asIfStatement()) {
        if (kel::BehaviourStatement const* otherwise = branch->tryGetElseStatement()) {
            return {&branch->getThenStatement(), otherwise};
        }
        return {&branch->getThenStatement()};
    }
    return {};
}

} // namespace language
