// Evaluation of expressions and guards over a state vector.
#include "interpreter/StateVector.h"

#include "metamodel/Behaviour.h"
#include "metamodel/BlockingStatement.h"
#include "metamodel/Kel.h"
#include "metamodel/TreePredicates.h"

#include <stdexcept>

namespace {

using Value = StateVariableValuePtr;

Value Bool(bool value) { return std::make_unique<BoolStateVariableValue>(value); }

// A checked model reads no variable before it has a value; should one slip
// through, the run stops with a clear error rather than reading nothing.
Value Defined(Value value) {
    if (value == nullptr) {
        throw std::runtime_error(
            "expression could not be evaluated due to uninitialized variable");
    }
    return value;
}

// Both operands, first operand first.
template <class Binary>
std::pair<Value, Value> Operands(StateVector const& vector, Binary const& expression) {
    auto first = Defined(vector.EvaluateExpression(expression.getExpr1()));
    return {std::move(first), Defined(vector.EvaluateExpression(expression.getExpr2()))};
}

template <class Binary, class Compare>
Value CompareInts(StateVector const& vector, Binary const& expression, Compare compare) {
    auto const [left, right] = Operands(vector, expression);
    return Bool(compare(IntStateVariableValue(*left), IntStateVariableValue(*right)));
}

bool HoldsExpressionGuard(StateVector const& vector, kel::Guard const* guard) {
    auto const* expressionGuard = guard == nullptr ? nullptr : guard->asExpressionGuard();
    return expressionGuard != nullptr &&
           vector.BoolExpressionValue(expressionGuard->getExpression());
}

bool IsOtherwise(kel::Guard const* guard) {
    return guard != nullptr && guard->asOtherwiseGuard() != nullptr;
}

void Append(std::vector<kel::Guard const*>& to, std::vector<kel::Guard const*> const& from) {
    to.insert(to.end(), from.begin(), from.end());
}

} // namespace

StateVariableValuePtr StateVector::EvaluateExpression(kel::Expression const& expression) const {
    if (auto const* constant = expression.asBooleanConstantExpression()) {
        return std::make_unique<BoolStateVariableValue>(constant->getValue());
    }
    if (auto const* constant = expression.asIntConstantExpression()) {
        return std::make_unique<IntStateVariableValue>(constant->getValue());
    }
    if (auto const* constant = expression.asEnumConstantExpression()) {
        return std::make_unique<EnumStateVariableValue>(constant->getValue().getDeclaration());
    }
    if (auto const* test = expression.asEnumVariableValueExpression()) {
        auto const* value = getValue(test->getVariable().getDeclarationOid());
        return Bool(value != nullptr &&
                    *value == EnumStateVariableValue(test->getValue().getDeclaration()));
    }
    if (auto const* variable = expression.asVariableExpression()) {
        auto const* value = getValue(variable->getVariable().getDeclarationOid());
        return value == nullptr ? nullptr : value->clone();
    }
    if (auto const* conjunction = expression.asBooleanAndExpression()) {
        return Bool(BoolExpressionValue(conjunction->getExpr1()) &&
                    BoolExpressionValue(conjunction->getExpr2()));
    }
    if (auto const* disjunction = expression.asBooleanOrExpression()) {
        return Bool(BoolExpressionValue(disjunction->getExpr1()) ||
                    BoolExpressionValue(disjunction->getExpr2()));
    }
    if (auto const* negation = expression.asBooleanNotExpression()) {
        return Bool(!BoolExpressionValue(negation->getExpr()));
    }
    if (auto const* equality = expression.asIsEqualExpression()) {
        auto const [left, right] = Operands(*this, *equality);
        return Bool(*left == *right);
    }
    if (auto const* inequality = expression.asIsNotEqualExpression()) {
        auto const [left, right] = Operands(*this, *inequality);
        return Bool(*left != *right);
    }
    if (auto const* less = expression.asIsLessExpression()) {
        return CompareInts(*this, *less, [](auto const& a, auto const& b) { return a < b; });
    }
    if (auto const* lessEqual = expression.asIsLessEqualExpression()) {
        return CompareInts(*this, *lessEqual, [](auto const& a, auto const& b) { return a <= b; });
    }
    if (auto const* greater = expression.asIsGreaterExpression()) {
        return CompareInts(*this, *greater, [](auto const& a, auto const& b) { return a > b; });
    }
    if (auto const* greaterEqual = expression.asIsGreaterEqualExpression()) {
        return CompareInts(*this, *greaterEqual,
                           [](auto const& a, auto const& b) { return a >= b; });
    }
    if (auto const* plus = expression.asPlusExpression()) {
        auto const [left, right] = Operands(*this, *plus);
        return IntStateVariableValue(*left).operator+(IntStateVariableValue(*right)).clone();
    }
    if (auto const* minus = expression.asMinusExpression()) {
        auto const [left, right] = Operands(*this, *minus);
        return IntStateVariableValue(*left).operator-(IntStateVariableValue(*right)).clone();
    }
    if (expression.asFunctionCallExpression() != nullptr) {
        throw std::runtime_error(
            "FunctionCallExpression must be executed. No in-place evaluation.");
    }
    if (expression.asActionExpression() != nullptr) {
        throw std::runtime_error("ActionExpression must be executed. No in-place evaluation.");
    }
    if (expression.asDataExpression() != nullptr) {
        throw std::runtime_error("DataExpression can not be evaluated.");
    }
    throw std::runtime_error("Unhandled expression type");
}

bool StateVector::BoolExpressionValue(kel::Expression const& expression) const {
    auto const value = Defined(EvaluateExpression(expression));
    return BoolStateVariableValue(true) == *value;
}

kel::ConstGuardedStatementVec StateVector::passableGuardedStatements(
    std::vector<kel::BehaviourStatement const*> const& statements) const {
    kel::ConstGuardedStatementVec passable;
    kel::ConstGuardedStatementVec otherwise;
    for (auto const* statement : statements) {
        if (auto const* guarded = statement->asGuardedStatement()) {
            auto const* guard = guarded->tryGetGuard();
            if (HoldsExpressionGuard(*this, guard)) {
                passable.push_back(guarded);
            } else if (IsOtherwise(guard)) {
                otherwise.push_back(guarded);
            }
        }
    }
    return passable.empty() ? otherwise : passable;
}

std::vector<kel::Guard const*> StateVector::ArmedGuards() const {
    auto const* behaviour = modelInstance->model->tryGetBehaviour();
    return behaviour == nullptr ? std::vector<kel::Guard const*>{}
                                : ArmedGuards(behaviour->getStatement());
}

std::vector<kel::Guard const*>
StateVector::ArmedGuards(kel::BehaviourStatement const& statement) const {
    if (auto const* blocking = statement.asBlockingStatement()) {
        return ArmedGuards(blocking->getStatement());
    }
    if (auto const* on = statement.asOnEventStatement()) {
        return ArmedGuards(on->getStatement());
    }
    if (auto const* guarded = statement.asGuardedStatement()) {
        auto const* guard = guarded->tryGetGuard();
        if (IsOtherwise(guard)) {
            return ArmedGuards(guarded->getStatement());
        }
        if (!HoldsExpressionGuard(*this, guard)) {
            return {};
        }
        auto guards = ArmedGuards(guarded->getStatement());
        guards.push_back(guard);
        return guards;
    }
    auto const* compound = statement.asCompoundStatement();
    if (compound == nullptr || !kel::IsDeclarative(*compound)) {
        return {};
    }
    auto const statements = compound->getStatements();
    auto const passable = passableGuardedStatements(statements);
    std::vector<kel::Guard const*> guards;
    for (auto const* guarded : passable) {
        guards.push_back(guarded->tryGetGuard());
    }
    for (auto const* guarded : passable) {
        Append(guards, ArmedGuards(guarded->getStatement()));
    }
    for (auto const* member : statements) {
        if (member->asGuardedStatement() == nullptr) {
            Append(guards, ArmedGuards(*member));
        }
    }
    return guards;
}
