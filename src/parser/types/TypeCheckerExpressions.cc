// The type of each class of expression, with the rules of its operator.
#include "parser/types/TypeChecker.h"

#include "om/AsType.h"

#include <array>
#include <string_view>

namespace language {

namespace {

// What the operands of a binary operator must be.
enum class OperandRule { Boolean, Integer, Equality };

struct BinaryOperator {
    std::string const& className;
    std::string_view symbol;
    OperandRule rule;
    bool yieldsInt;
};

std::array<BinaryOperator, 10> const binaryOperators{{
    {kel::BooleanAndExpression::ClassName, "&&", OperandRule::Boolean, false},
    {kel::BooleanOrExpression::ClassName, "||", OperandRule::Boolean, false},
    {kel::IsEqualExpression::ClassName, "==", OperandRule::Equality, false},
    {kel::IsNotEqualExpression::ClassName, "!=", OperandRule::Equality, false},
    {kel::PlusExpression::ClassName, "+", OperandRule::Integer, true},
    {kel::MinusExpression::ClassName, "-", OperandRule::Integer, true},
    {kel::IsLessExpression::ClassName, "<", OperandRule::Integer, false},
    {kel::IsLessEqualExpression::ClassName, "<=", OperandRule::Integer, false},
    {kel::IsGreaterExpression::ClassName, ">", OperandRule::Integer, false},
    {kel::IsGreaterEqualExpression::ClassName, ">=", OperandRule::Integer, false},
}};

BinaryOperator const* tryGetBinaryOperator(kel::Expression const& expression) {
    std::string const& className = expression.getClassName();
    for (BinaryOperator const& candidate : binaryOperators) {
        if (candidate.className == className) {
            return &candidate;
        }
    }
    return nullptr;
}

// Every binary operator class keeps its operands under these two names.
kel::Expression const& operand(kel::Expression const& expression, std::string const& member) {
    return om::AsType<kel::Expression>(*expression.getCompositionObjects(member).at(0));
}

std::string const ordinal[] = {"first", "second"};

// The message about one operand, or nothing; an unknown type has none.
std::string operandError(BinaryOperator const& op, kel::TypeDeclaration const* type,
                         std::size_t index) {
    std::string const symbol = ParserBase::q(std::string(op.symbol));
    if (type == nullptr) {
        return {};
    }
    switch (op.rule) {
    case OperandRule::Boolean:
        return ParserBase::isBooleanType(*type)
                   ? std::string()
                   : symbol + " requires a boolean " + ordinal[index] + " argument";
    case OperandRule::Integer:
        return ParserBase::isIntType(*type)
                   ? std::string()
                   : symbol + " requires an int " + ordinal[index] + " argument";
    case OperandRule::Equality:
        return ParserBase::isDataType(*type) ? "data type argument not allowed as " +
                                                   ordinal[index] + " argument in " + symbol
                                             : std::string();
    }
    return {};
}

} // namespace

kel::TypeDeclaration const* TypeChecker::tryGetAndCheckType(kel::Expression const& expression,
                                                            bool& ok) {
    if (expression.asNameExpression() != nullptr) {
        return nullptr;
    }
    if (kel::VariableExpression const* variable = expression.asVariableExpression()) {
        return typeOfVariable(*variable, ok);
    }
    if (kel::ActionExpression const* action = expression.asActionExpression()) {
        return checkAction(*action, ok);
    }
    if (kel::FunctionCallExpression const* call = expression.asFunctionCallExpression()) {
        return checkFunctionCall(*call, ok);
    }
    if (kel::EnumConstantExpression const* constant = expression.asEnumConstantExpression()) {
        return typeOfEnumConstant(*constant, ok);
    }
    if (expression.asEnumVariableValueExpression() != nullptr ||
        expression.asBooleanConstantExpression() != nullptr) {
        return &getBoolType();
    }
    if (kel::BooleanNotExpression const* negation = expression.asBooleanNotExpression()) {
        return checkNot(*negation, ok);
    }
    if (expression.asIntConstantExpression() != nullptr) {
        return &getIntType();
    }
    if (expression.asDataExpression() != nullptr) {
        return &getDataType();
    }
    if (expression.asAssignmentExpression() != nullptr) {
        report(expression, "'<-' is not allowed here", ok);
        return nullptr;
    }
    return checkOperatorExpression(expression, ok);
}

kel::TypeDeclaration const* TypeChecker::checkOperatorExpression(kel::Expression const& expression,
                                                                 bool& ok) {
    BinaryOperator const* op = tryGetBinaryOperator(expression);
    if (op == nullptr) {
        ok = FALSE();
        return nullptr;
    }
    std::array<kel::TypeDeclaration const*, 2> const types{
        tryGetAndCheckType(operand(expression, "Expr1"), ok),
        tryGetAndCheckType(operand(expression, "Expr2"), ok)};
    bool const bothKnown = types[0] != nullptr && types[1] != nullptr;
    if (op->rule == OperandRule::Equality && !bothKnown) {
        return &getBoolType();
    }
    for (std::size_t index = 0; index < types.size(); ++index) {
        std::string const message = operandError(*op, types[index], index);
        if (!message.empty()) {
            report(expression, message, ok);
        }
    }
    if (op->rule == OperandRule::Equality && !isEqualType(*types[0], *types[1])) {
        report(expression, q(std::string(op->symbol)) + " requires two arguments of equal type",
               ok);
    }
    if (op->yieldsInt) {
        return &getIntType();
    }
    return &getBoolType();
}

kel::TypeDeclaration const* TypeChecker::checkNot(kel::BooleanNotExpression const& expression,
                                                  bool& ok) {
    kel::TypeDeclaration const* type = tryGetAndCheckType(expression.getExpr(), ok);
    if (type != nullptr && !isBooleanType(*type)) {
        report(expression, "'not' requires a boolean argument", ok);
    }
    return &getBoolType();
}

kel::TypeDeclaration const* TypeChecker::typeOfVariable(kel::VariableExpression const& expression,
                                                        bool& ok) {
    kel::VariableDeclaration const* variable = expression.getVariable().tryGetDeclaration();
    if (variable == nullptr) {
        ok = FALSE();
        return nullptr;
    }
    return variable->getType().tryGetDeclaration();
}

kel::TypeDeclaration const*
TypeChecker::typeOfEnumConstant(kel::EnumConstantExpression const& constant, bool& ok) {
    kel::EnumValueDeclaration const* value = constant.getValue().tryGetDeclaration();
    if (value == nullptr) {
        ok = FALSE();
        return nullptr;
    }
    return dynamic_cast<kel::EnumTypeDeclaration const*>(value->tryGetParent());
}

namespace {

kel::TypeDeclaration const* tryGetReturnType(kel::TypeReference const* returnType) {
    return returnType ? returnType->tryGetDeclaration() : nullptr;
}

} // namespace

// The number of arguments is the resolver's matter, so only the pairs that
// exist are compared.
kel::TypeDeclaration const* TypeChecker::checkAction(kel::ActionExpression const& action,
                                                     bool& ok) {
    kel::EventInstance const& instance = action.getEvent();
    kel::EventDeclaration const* event = instance.getEvent().tryGetDeclaration();
    if (event == nullptr) {
        ok = FALSE();
        return nullptr;
    }
    kel::ConstParameterDeclarationVec const parameters = event->getParametersVec();
    kel::ConstExpressionVec const arguments = instance.getArgumentsVec();
    for (std::size_t index = 0; index < parameters.size() && index < arguments.size(); ++index) {
        kel::TypeDeclaration const* expected = parameters[index]->getType().tryGetDeclaration();
        kel::TypeDeclaration const* found = tryGetAndCheckType(*arguments[index], ok);
        if (expected != nullptr && found != nullptr && !isEqualType(*expected, *found)) {
            report(*arguments[index], "Parameter value does not match with expected type", ok);
        } else if (found == nullptr && ok) {
            report(*arguments[index], "Expression not properly typed", ok);
        }
    }
    return tryGetReturnType(event->tryGetReturnType());
}

kel::TypeDeclaration const* TypeChecker::checkFunctionCall(kel::FunctionCallExpression const& call,
                                                           bool& ok) {
    kel::FunctionDeclaration const* function = call.getFunction().tryGetDeclaration();
    if (function == nullptr) {
        ok = FALSE();
        return nullptr;
    }
    kel::ConstParameterDeclarationVec const parameters = function->getParametersVec();
    kel::ConstExpressionVec const arguments = call.getArgumentsVec();
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        if (index >= parameters.size()) {
            report(*arguments[index], "unexpected argument", ok);
            continue;
        }
        kel::TypeDeclaration const* found = tryGetAndCheckType(*arguments[index], ok);
        kel::TypeDeclaration const* expected = parameters[index]->getType().tryGetDeclaration();
        if (expected != nullptr && found != nullptr && !isEqualType(*expected, *found)) {
            report(*arguments[index], "argument does not match Parameter Type", ok);
        }
    }
    if (parameters.size() > arguments.size()) {
        report(call, "missing arguments in Function call: " + q(call.getFunction().getName()), ok);
    }
    return tryGetReturnType(function->tryGetReturnType());
}

} // namespace language
