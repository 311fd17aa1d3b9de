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

// A variable read before it has a value (`bool c = !c;`) makes the whole
// expression valueless, so that the statement that evaluates it ends the run
// as a fault of the model. Only a guard or a condition, which must decide,
// has to refuse it outright.
Value Defined(Value value) {
    if (value == nullptr) {
        throw std::runtime_error(
            "expression could not be evaluated due to uninitialized variable");
    }
    return value;
}

// Applies `operation` to both operands, first operand first; no value when
// either has none.
template <class Binary, class Operation>
Value Combine(StateVector const& vector, Binary const& expression, Operation operation) {
    auto const left = vector.EvaluateExpression(expression.getExpr1());
    auto const right = vector.EvaluateExpression(expression.getExpr2());
    return left == nullptr || right == nullptr ? nullptr : operation(*left, *right);
}

template <class Binary, class Compare>
Value CompareInts(StateVector const& vector, Binary const& expression, Compare compare) {
    return Combine(vector, expression, [&](auto const& left, auto const& right) {
        return Bool(compare(IntStateVariableValue(left), IntStateVariableValue(right)));
    });
}

// `and` and `or` decide on their first operand where it suffices.
template <class Binary>
Value ShortCircuit(StateVector const& vector, Binary const& expression, bool decisive) {
    auto const left = vector.EvaluateExpression(expression.getExpr1());
    if (left == nullptr || (BoolStateVariableValue(decisive) == *left)) {
        return left == nullptr ? nullptr : Bool(decisive);
    }
    auto const right = vector.EvaluateExpression(expression.getExpr2());
    return right == nullptr ? nullptr : Bool(BoolStateVariableValue(true) == *right);
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

// The guarded statements among `statements` whose guards hold, or those with
// `otherwise` when none does; for a vector and for a walk over a block alike.
template <class Statements>
kel::ConstGuardedStatementVec PassableGuardedStatements(StateVector const& vector,
                                                        Statements const& statements) {
    kel::ConstGuardedStatementVec passable;
    kel::ConstGuardedStatementVec otherwise;
    for (auto const* statement : statements) {
        if (auto const* guarded = statement->asGuardedStatement()) {
            auto const* guard = guarded->tryGetGuard();
            if (HoldsExpressionGuard(vector, guard)) {
                passable.push_back(guarded);
            } else if (IsOtherwise(guard)) {
                otherwise.push_back(guarded);
            }
        }
    }
    return passable.empty() ? otherwise : passable;
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
        return ShortCircuit(*this, *conjunction, false);
    }
    if (auto const* disjunction = expression.asBooleanOrExpression()) {
        return ShortCircuit(*this, *disjunction, true);
    }
    if (auto const* negation = expression.asBooleanNotExpression()) {
        auto const operand = EvaluateExpression(negation->getExpr());
        return operand == nullptr ? nullptr : Bool(!(BoolStateVariableValue(true) == *operand));
    }
    if (auto const* equality = expression.asIsEqualExpression()) {
        return Combine(*this, *equality,
                       [](auto const& left, auto const& right) { return Bool(left == right); });
    }
    if (auto const* inequality = expression.asIsNotEqualExpression()) {
        return Combine(*this, *inequality,
                       [](auto const& left, auto const& right) { return Bool(left != right); });
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
        return Combine(*this, *plus, [](auto const& left, auto const& right) {
            return (IntStateVariableValue(left) + IntStateVariableValue(right)).clone();
        });
    }
    if (auto const* minus = expression.asMinusExpression()) {
        return Combine(*this, *minus, [](auto const& left, auto const& right) {
            return (IntStateVariableValue(left) - IntStateVariableValue(right)).clone();
        });
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
    return PassableGuardedStatements(*this, statements);
}

kel::ConstGuardedStatementVec StateVector::passableGuardedStatements(
    om::ObjectView<kel::BehaviourStatement> const& statements) const {
    return PassableGuardedStatements(*this, statements);
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
    auto const statements = compound->getStatementsView();
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
