// The pass that checks the types of every expression of a resolved tree and
// the few type rules on declarations. It changes nothing in the tree.
#pragma once

#include "metamodel/Kel.h"
#include "om/ObjectModel.h"
#include "parser/grammar/ParserBase.h"

#include <string>

namespace language {

class TypeChecker : public ParserBase {
public:
    // The form of the driver; the files are those of the whole parse.
    TypeChecker(om::ObjectModel& model, Files* files);
    // The form for checking single expressions.
    explicit TypeChecker(om::ObjectModel& model);

    // Every namespace of the root; true when the whole tree passed.
    bool checkAllExpressionTypes();
    // The namespaces inside first, then the four passes over this one.
    bool checkAllExpressionTypes(kel::Namespace const& space);
    bool checkAllEventDeclarationTypes(kel::Namespace const& space);
    bool checkAllFunctionDeclarationTypes(kel::Namespace const& space);
    bool checkAllConstructorExpressionTypes(kel::Namespace const& space);
    bool checkAllBehaviourExpressionTypes(kel::Namespace const& space);
    // Initial values of the variables, then the functions, then the statement.
    bool checkBehaviourExpressionTypes(kel::Behaviour const& behaviour);

    // One statement with the statements inside it; true when all passed.
    bool checkExpressionTypes(kel::BehaviourStatement const& statement);
    // The type of the expression, or null when it has none that is known.
    // Reports what is wrong inside it; sets `ok` to false on any failure and
    // never back to true. A type of a constant lives as long as this checker.
    kel::TypeDeclaration const* tryGetAndCheckType(kel::Expression const& expression, bool& ok);

private:
    // ---- Declarations.
    bool checkReturnTypeIsNoData(kel::TypeReference const* returnType);
    bool checkBinding(kel::BindingStatement const& binding, bool& complete);
    bool checkInitialValue(kel::VariableDeclaration const& variable);

    // ---- Expressions.
    kel::TypeDeclaration const* checkOperatorExpression(kel::Expression const& expression,
                                                        bool& ok);
    kel::TypeDeclaration const* checkNot(kel::BooleanNotExpression const& expression, bool& ok);
    kel::TypeDeclaration const* checkAction(kel::ActionExpression const& action, bool& ok);
    kel::TypeDeclaration const* checkFunctionCall(kel::FunctionCallExpression const& call,
                                                  bool& ok);
    kel::TypeDeclaration const* typeOfEnumConstant(kel::EnumConstantExpression const& constant,
                                                   bool& ok);
    kel::TypeDeclaration const* typeOfVariable(kel::VariableExpression const& expression, bool& ok);

    // ---- Statements, each with the `ok` of the statement.
    // The rules of the statement itself, before those of the statements inside.
    void checkOwnRules(kel::BehaviourStatement const& statement, bool& ok);
    void checkAssignment(kel::Location const& at, kel::VariableReference const& variable,
                         kel::Expression const& value, bool& ok);
    void checkVariableDeclaration(kel::VariableDeclarationStatement const& statement, bool& ok);
    void checkGuard(kel::GuardedStatement const& statement, bool& ok);
    void checkTriggerAssignments(kel::OnEventStatement const& statement, bool& ok);
    void checkIfCondition(kel::IfStatement const& statement, bool& ok);
    void checkReply(kel::ReplyStatement const& statement, bool& ok);
    void checkReturn(kel::ReturnStatement const& statement, bool& ok);
    bool checkInnerStatements(kel::BehaviourStatement const& statement);

    // Reports at the object's location; the result turns false.
    void report(kel::Location const& at, std::string const& message, bool& ok);
    // Where an error at a tree object is shown: its main position.
    static location locationOf(kel::Location const& object);
};

} // namespace language
