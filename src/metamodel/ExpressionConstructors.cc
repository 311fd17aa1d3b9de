#include "metamodel/ExpressionConstructors.h"

#include "metamodel/ConstAssignmentExpressionVec.h"
#include "metamodel/ConstBooleanAndExpressionVec.h"
#include "metamodel/ConstBooleanConstantExpressionVec.h"
#include "metamodel/ConstBooleanNotExpressionVec.h"
#include "metamodel/ConstBooleanOrExpressionVec.h"
#include "metamodel/ConstDataExpressionVec.h"
#include "metamodel/ConstExpressionVec.h"
#include "metamodel/ConstIntConstantExpressionVec.h"
#include "metamodel/ConstIsEqualExpressionVec.h"
#include "metamodel/ConstIsGreaterEqualExpressionVec.h"
#include "metamodel/ConstIsGreaterExpressionVec.h"
#include "metamodel/ConstIsLessEqualExpressionVec.h"
#include "metamodel/ConstIsLessExpressionVec.h"
#include "metamodel/ConstIsNotEqualExpressionVec.h"
#include "metamodel/ConstMinusExpressionVec.h"
#include "metamodel/ConstNameExpressionVec.h"
#include "metamodel/ConstPlusExpressionVec.h"
#include "metamodel/ConstVariableReferenceVec.h"
#include "metamodel/ConstructionSupport.h"

namespace kel {
namespace {

template <class T> om::Oid Binary(om::ObjectModel& model, om::Oid leftId, om::Oid rightId) {
    auto copy = NewObject<T>(model);
    copy.setExpr1(Find<Expression>(model, leftId));
    copy.setExpr2(Find<Expression>(model, rightId));
    return Insert(model, std::move(copy));
}

} // namespace

om::Oid constructNamedExpression(om::ObjectModel& model, std::string const& name, bool parentheses,
                                 OidVec const& argumentIds) {
    auto copy = NewObject<NameExpression>(model);
    copy.setName(name);
    copy.setParentheses(parentheses);
    copy.setArguments(Checked<Expression>(model, argumentIds));
    return Insert(model, std::move(copy));
}

om::Oid constructNotExpression(om::ObjectModel& model, om::Oid expressionId) {
    auto copy = NewObject<BooleanNotExpression>(model);
    copy.setExpr(Find<Expression>(model, expressionId));
    return Insert(model, std::move(copy));
}

om::Oid constructAndExpression(om::ObjectModel& model, om::Oid leftId, om::Oid rightId) {
    return Binary<BooleanAndExpression>(model, leftId, rightId);
}

om::Oid constructOrExpression(om::ObjectModel& model, om::Oid leftId, om::Oid rightId) {
    return Binary<BooleanOrExpression>(model, leftId, rightId);
}

om::Oid constructIsEqualExpression(om::ObjectModel& model, om::Oid leftId, om::Oid rightId) {
    return Binary<IsEqualExpression>(model, leftId, rightId);
}

om::Oid constructIsNotEqualExpression(om::ObjectModel& model, om::Oid leftId, om::Oid rightId) {
    return Binary<IsNotEqualExpression>(model, leftId, rightId);
}

om::Oid constructIsLessExpression(om::ObjectModel& model, om::Oid leftId, om::Oid rightId) {
    return Binary<IsLessExpression>(model, leftId, rightId);
}

om::Oid constructIsLessEqualExpression(om::ObjectModel& model, om::Oid leftId, om::Oid rightId) {
    return Binary<IsLessEqualExpression>(model, leftId, rightId);
}

om::Oid constructIsGreaterExpression(om::ObjectModel& model, om::Oid leftId, om::Oid rightId) {
    return Binary<IsGreaterExpression>(model, leftId, rightId);
}

om::Oid constructIsGreaterEqualExpression(om::ObjectModel& model, om::Oid leftId, om::Oid rightId) {
    return Binary<IsGreaterEqualExpression>(model, leftId, rightId);
}

om::Oid constructPlusExpression(om::ObjectModel& model, om::Oid leftId, om::Oid rightId) {
    return Binary<PlusExpression>(model, leftId, rightId);
}

om::Oid constructMinusExpression(om::ObjectModel& model, om::Oid leftId, om::Oid rightId) {
    return Binary<MinusExpression>(model, leftId, rightId);
}

om::Oid constructIntConstantExpression(om::ObjectModel& model, std::int32_t value) {
    auto copy = NewObject<IntConstantExpression>(model);
    copy.setValue(value);
    return Insert(model, std::move(copy));
}

om::Oid constructBoolConstantExpression(om::ObjectModel& model, std::string const& text) {
    return ConstructBooleanConstantExpression(model, text == "false" ? boolFalse : boolTrue);
}

om::Oid ConstructBooleanConstantExpression(om::ObjectModel& model, BooleanValue value) {
    auto copy = NewObject<BooleanConstantExpression>(model);
    copy.setValue(value);
    return Insert(model, std::move(copy));
}

om::Oid constructDataExpression(om::ObjectModel& model, std::string const& value) {
    auto copy = NewObject<DataExpression>(model);
    copy.setValue(value);
    return Insert(model, std::move(copy));
}

om::Oid constructAssignmentExpression(om::ObjectModel& model, std::string const& variableName,
                                      std::string const& valueName) {
    auto copy = NewObject<AssignmentExpression>(model);
    copy.setVariable(
        Find<VariableReference>(model, NewNamed<VariableReference>(model, variableName)));
    copy.setValue(Find<Expression>(model, constructNamedExpression(model, valueName, false, {})));
    return Insert(model, std::move(copy));
}

} // namespace kel
