// The type rules of statements: conditions, assignments, replies and returns.
#include "parser/types/TypeChecker.h"

#include "om/OMException.h"
#include "parser/types/TypeMessages.h"

namespace language {

bool TypeChecker::checkExpressionTypes(kel::BehaviourStatement const& statement) {
    bool ok = true;
    checkOwnRules(statement, ok);
    return checkInnerStatements(statement) && ok;
}

void TypeChecker::checkOwnRules(kel::BehaviourStatement const& statement, bool& ok) {
    if (statement.asNameStatement() != nullptr || statement.asBlockingStatement() != nullptr ||
        statement.asCompoundStatement() != nullptr) {
        return;
    }
    if (auto const* assignment = statement.asAssignmentStatement()) {
        if (assignment->tryGetValue() != nullptr) {
            checkAssignment(*assignment, assignment->getVariable(), assignment->getValue(), ok);
        }
    } else if (auto const* declaration = statement.asVariableDeclarationStatement()) {
        checkVariableDeclaration(*declaration, ok);
    } else if (auto const* guarded = statement.asGuardedStatement()) {
        checkGuard(*guarded, ok);
    } else if (auto const* action = statement.asActionStatement()) {
        tryGetAndCheckType(action->getExpression(), ok);
    } else if (auto const* on = statement.asOnEventStatement()) {
        checkTriggerAssignments(*on, ok);
    } else if (auto const* branch = statement.asIfStatement()) {
        checkIfCondition(*branch, ok);
    } else if (auto const* reply = statement.asReplyStatement()) {
        checkReply(*reply, ok);
    } else if (auto const* ret = statement.asReturnStatement()) {
        checkReturn(*ret, ok);
    } else if (auto const* call = statement.asFunctionCallStatement()) {
        tryGetAndCheckType(call->getExpression(), ok);
    } else {
        throw om::OMException("unexpected statement type in checkExpressionTypes: " +
                              statement.getClassName());
    }
}

bool TypeChecker::checkInnerStatements(kel::BehaviourStatement const& statement) {
    bool ok = true;
    if (auto const* compound = statement.asCompoundStatement()) {
        for (kel::BehaviourStatement const* inner : compound->getStatementsVec()) {
            ok = checkExpressionTypes(*inner) && ok;
        }
    } else if (auto const* blocking = statement.asBlockingStatement()) {
        ok = checkExpressionTypes(blocking->getStatement());
    } else if (auto const* guarded = statement.asGuardedStatement()) {
        ok = checkExpressionTypes(guarded->getStatement());
    } else if (auto const* on = statement.asOnEventStatement()) {
        ok = checkExpressionTypes(on->getStatement());
    } else if (auto const* branch = statement.asIfStatement()) {
        ok = checkExpressionTypes(branch->getThenStatement());
        if (kel::BehaviourStatement const* otherwise = branch->tryGetElseStatement()) {
            ok = checkExpressionTypes(*otherwise) && ok;
        }
    }
    return ok;
}

// An unbound variable is the resolver's error.
void TypeChecker::checkAssignment(kel::Location const& at, kel::VariableReference const& variable,
                                  kel::Expression const& value, bool& ok) {
    kel::VariableDeclaration const* declaration = variable.tryGetDeclaration();
    if (declaration == nullptr) {
        return;
    }
    kel::TypeDeclaration const* declared = declaration->getType().tryGetDeclaration();
    kel::TypeDeclaration const* found = tryGetAndCheckType(value, ok);
    if (declared != nullptr && found != nullptr && !isEqualType(*declared, *found)) {
        report(at, valueMismatch(declaration->getName()), ok);
    } else if (found == nullptr && ok) {
        report(at, valueNotTyped(declaration->getName()), ok);
    }
}

void TypeChecker::checkVariableDeclaration(kel::VariableDeclarationStatement const& statement,
                                           bool& ok) {
    kel::VariableDeclaration const& variable = statement.getVariable();
    kel::Expression const* value = variable.tryGetInitialValue();
    if (value == nullptr) {
        return;
    }
    kel::TypeDeclaration const* declared = variable.getType().tryGetDeclaration();
    kel::TypeDeclaration const* found = tryGetAndCheckType(*value, ok);
    if (declared != nullptr && found != nullptr && !isEqualType(*declared, *found)) {
        report(variable, typeMismatch(declared->getName(), q(found->getName())), ok);
    } else if (found == nullptr && ok) {
        report(statement,
               declared == nullptr ? "cannot determine type of right hand side"
                                   : "cannot determine type of right hand side, "
                                     "expected: " +
                                         q(declared->getName()),
               ok);
    }
}

// A guard that failed inside already is not reported again.
void TypeChecker::checkGuard(kel::GuardedStatement const& statement, bool& ok) {
    kel::Guard const* guard = statement.tryGetGuard();
    kel::ExpressionGuard const* condition = guard ? guard->asExpressionGuard() : nullptr;
    if (condition == nullptr) {
        return;
    }
    kel::TypeDeclaration const* type = tryGetAndCheckType(condition->getExpression(), ok);
    if (ok && (type == nullptr || !isBooleanType(*type))) {
        report(*condition, "Boolean guard expected", ok);
    }
}

void TypeChecker::checkTriggerAssignments(kel::OnEventStatement const& statement, bool& ok) {
    for (kel::EventInstance const* trigger : statement.getEventsVec()) {
        for (kel::Expression const* argument : trigger->getArgumentsVec()) {
            if (auto const* assignment = argument->asAssignmentExpression()) {
                checkAssignment(*assignment, assignment->getVariable(), assignment->getValue(), ok);
            }
        }
    }
}

// Unlike a guard, a condition without a known type is always reported.
void TypeChecker::checkIfCondition(kel::IfStatement const& statement, bool& ok) {
    kel::Expression const* condition = statement.tryGetExpression();
    if (condition == nullptr) {
        return;
    }
    kel::TypeDeclaration const* type = tryGetAndCheckType(*condition, ok);
    if (type == nullptr || !isBooleanType(*type)) {
        report(*condition, "Boolean guard expected", ok);
    }
}

void TypeChecker::checkReply(kel::ReplyStatement const& statement, bool& ok) {
    kel::Expression const* value = statement.tryGetExpression();
    if (value == nullptr) {
        return;
    }
    kel::TypeDeclaration const* type = tryGetAndCheckType(*value, ok);
    if (type == nullptr) {
        if (ok) {
            report(*value, "Typed Expression expected in reply", ok);
        }
    } else if (type->asEnumTypeDeclaration() != nullptr &&
               type->tryGetParentOfType(kel::Behaviour::ClassName) != nullptr) {
        report(*value, "Behaviour-local Enum value is not allowed in reply", ok);
    }
}

// A return in the behaviour's own statement is a matter of well-formedness.
void TypeChecker::checkReturn(kel::ReturnStatement const& statement, bool& ok) {
    auto const* function = dynamic_cast<kel::FunctionDeclaration const*>(
        statement.tryGetParentOfType(kel::FunctionDeclaration::ClassName));
    if (function == nullptr) {
        return;
    }
    kel::TypeReference const* returnType = function->tryGetReturnType();
    kel::Expression const* value = statement.tryGetExpression();
    if (value == nullptr) {
        if (returnType != nullptr) {
            report(statement, "Valued function must return a value.", ok);
        }
        return;
    }
    kel::TypeDeclaration const* type = tryGetAndCheckType(*value, ok);
    if (type == nullptr) {
        if (!ok) {
            return;
        }
        report(*value, "Typed Expression expected in return.", ok);
    }
    if (type != nullptr && returnType == nullptr) {
        report(*value, "Return expression not allowed in void function.", ok);
    }
    kel::TypeDeclaration const* expected = returnType ? returnType->tryGetDeclaration() : nullptr;
    if (expected != nullptr && (type == nullptr || !isEqualType(*expected, *type))) {
        report(*value, "Return type does not match function type.", ok);
    }
}

} // namespace language
