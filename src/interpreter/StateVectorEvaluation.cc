// Evaluation of expressions and guards over a state vector.
#include "interpreter/StateVector.h"

#include "metamodel/Behaviour.h"
#include "metamodel/BlockingStatement.h"
#include "metamodel/Kel.h"
#include "metamodel/TreePredicates.h"

#include <stdexcept>
#include <variant>

namespace {

// A value while an expression is evaluated: what an operator computes is held
// in place and a variable's value is borrowed from the vector, so that a guard
// costs no allocation. Empty for no value.
class Operand {
public:
    Operand() = default;
    explicit Operand(StateVariableValue const* borrowed) {
        if (borrowed != nullptr) {
            m_value = borrowed;
        }
    }
    template <class Value> explicit Operand(Value computed) : m_value(computed) {}

    bool hasValue() const { return m_value.index() != 0; }
    StateVariableValue const& operator*() const { return std::visit(AsValue{}, m_value); }
    StateVariableValuePtr copy() const { return hasValue() ? (**this).clone() : nullptr; }

private:
    struct AsValue {
        StateVariableValue const& operator()(std::monostate) const {
            throw std::logic_error("Operand without value");
        }
        StateVariableValue const& operator()(StateVariableValue const* borrowed) const {
            return *borrowed;
        }
        StateVariableValue const& operator()(StateVariableValue const& computed) const {
            return computed;
        }
    };

    std::variant<std::monostate, StateVariableValue const*, BoolStateVariableValue,
                 IntStateVariableValue, EnumStateVariableValue>
        m_value;
};

Operand Bool(bool value) { return Operand(BoolStateVariableValue(value)); }

Operand Evaluate(StateVector const& vector, kel::Expression const& expression);

// Applies `operation` to both operands, first operand first; no value when
// either has none.
template <class Binary, class Operation>
Operand Combine(StateVector const& vector, Binary const& expression, Operation operation) {
    auto const left = Evaluate(vector, expression.getExpr1());
    auto const right = Evaluate(vector, expression.getExpr2());
    return left.hasValue() && right.hasValue() ? operation(*left, *right) : Operand();
}

template <class Binary, class Compare>
Operand CompareInts(StateVector const& vector, Binary const& expression, Compare compare) {
    return Combine(vector, expression, [&](auto const& left, auto const& right) {
        return Bool(compare(IntStateVariableValue(left), IntStateVariableValue(right)));
    });
}

// `and` and `or` decide on their first operand where it suffices.
template <class Binary>
Operand ShortCircuit(StateVector const& vector, Binary const& expression, bool decisive) {
    auto const left = Evaluate(vector, expression.getExpr1());
    if (!left.hasValue() || (BoolStateVariableValue(decisive) == *left)) {
        return left.hasValue() ? Bool(decisive) : Operand();
    }
    auto const right = Evaluate(vector, expression.getExpr2());
    return right.hasValue() ? Bool(BoolStateVariableValue(true) == *right) : Operand();
}

Operand Evaluate(StateVector const& vector, kel::Expression const& expression) {
    if (auto const* constant = expression.asBooleanConstantExpression()) {
        return Operand(BoolStateVariableValue(constant->getValue()));
    }
    if (auto const* constant = expression.asIntConstantExpression()) {
        return Operand(IntStateVariableValue(constant->getValue()));
    }
    if (auto const* constant = expression.asEnumConstantExpression()) {
        return Operand(EnumStateVariableValue(constant->getValue().getDeclaration()));
    }
    if (auto const* test = expression.asEnumVariableValueExpression()) {
        auto const* value = vector.getValue(test->getVariable().getDeclarationOid());
        return Bool(value != nullptr &&
                    *value == EnumStateVariableValue(test->getValue().getDeclaration()));
    }
    if (auto const* variable = expression.asVariableExpression()) {
        return Operand(vector.getValue(variable->getVariable().getDeclarationOid()));
    }
    if (auto const* conjunction = expression.asBooleanAndExpression()) {
        return ShortCircuit(vector, *conjunction, false);
    }
    if (auto const* disjunction = expression.asBooleanOrExpression()) {
        return ShortCircuit(vector, *disjunction, true);
    }
    if (auto const* negation = expression.asBooleanNotExpression()) {
        auto const operand = Evaluate(vector, negation->getExpr());
        return operand.hasValue() ? Bool(!(BoolStateVariableValue(true) == *operand)) : Operand();
    }
    if (auto const* equality = expression.asIsEqualExpression()) {
        return Combine(vector, *equality,
                       [](auto const& left, auto const& right) { return Bool(left == right); });
    }
    if (auto const* inequality = expression.asIsNotEqualExpression()) {
        return Combine(vector, *inequality,
                       [](auto const& left, auto const& right) { return Bool(left != right); });
    }
    if (auto const* less = expression.asIsLessExpression()) {
        return CompareInts(vector, *less, [](auto const& a, auto const& b) { return a < b; });
    }
    if (auto const* lessEqual = expression.asIsLessEqualExpression()) {
        return CompareInts(vector, *lessEqual, [](auto const& a, auto const& b) { return a <= b; });
    }
    if (auto const* greater = expression.asIsGreaterExpression()) {
        return CompareInts(vector, *greater, [](auto const& a, auto const& b) { return a > b; });
    }
    if (auto const* greaterEqual = expression.asIsGreaterEqualExpression()) {
        return CompareInts(vector, *greaterEqual,
                           [](auto const& a, auto const& b) { return a >= b; });
    }
    if (auto const* plus = expression.asPlusExpression()) {
        return Combine(vector, *plus, [](auto const& left, auto const& right) {
            return Operand(IntStateVariableValue(left) + IntStateVariableValue(right));
        });
    }
    if (auto const* minus = expression.asMinusExpression()) {
        return Combine(vector, *minus, [](auto const& left, auto const& right) {
            return Operand(IntStateVariableValue(left) - IntStateVariableValue(right));
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

// Appends the guarded statements among `statements` whose guards hold, or
// those with `otherwise` when none does; for a vector and for a walk over a
// block alike.
template <class Statements, class Out> void
AppendPassableGuardedStatements(StateVector const& vector, Statements const& statements, Out& out) {
    auto const before = out.size();
    for (auto const* statement : statements) {
        auto const* guarded = statement->asGuardedStatement();
        if (guarded != nullptr && HoldsExpressionGuard(vector, guarded->tryGetGuard())) {
            out.push_back(guarded);
        }
    }
    if (out.size() != before) {
        return;
    }
    for (auto const* statement : statements) {
        auto const* guarded = statement->asGuardedStatement();
        if (guarded != nullptr && IsOtherwise(guarded->tryGetGuard())) {
            out.push_back(guarded);
        }
    }
}

} // namespace

StateVariableValuePtr StateVector::EvaluateExpression(kel::Expression const& expression) const {
    return Evaluate(*this, expression).copy();
}

// A variable read before it has a value (`bool c = !c;`) makes the whole
// expression valueless, so that the statement that evaluates it ends the run
// as a fault of the model. Only a guard or a condition, which must decide,
// has to refuse it outright.
bool StateVector::BoolExpressionValue(kel::Expression const& expression) const {
    auto const value = Evaluate(*this, expression);
    if (!value.hasValue()) {
        throw std::runtime_error("expression could not be evaluated due to uninitialized variable");
    }
    return BoolStateVariableValue(true) == *value;
}

kel::ConstGuardedStatementVec StateVector::passableGuardedStatements(
    std::vector<kel::BehaviourStatement const*> const& statements) const {
    kel::ConstGuardedStatementVec passable;
    AppendPassableGuardedStatements(*this, statements, passable);
    return passable;
}

kel::ConstGuardedStatementVec StateVector::passableGuardedStatements(
    om::ObjectView<kel::BehaviourStatement> const& statements) const {
    kel::ConstGuardedStatementVec passable;
    AppendPassableGuardedStatements(*this, statements, passable);
    return passable;
}

void StateVector::appendPassableGuardedStatements(
    om::ObjectView<kel::BehaviourStatement> const& statements, Candidates& out) const {
    AppendPassableGuardedStatements(*this, statements, out);
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
