// Modeling events, whose bodies must be silent or not on every path, and the
// tail position of recursive calls.
#include "parser/checks/WellformednessChecker.h"

#include "metamodel/TreePredicates.h"
#include "om/AsType.h"
#include "om/OMException.h"
#include "parser/checks/StatementQueries.h"

namespace language {

namespace {

bool isModelingEvent(kel::EventInstance const& instance) {
    return instance.getName() == "optional" || instance.getName() == "inevitable";
}

} // namespace

bool WellformednessChecker::checkModeling(kel::Behaviour const& behaviour) {
    SilentChecker silentChecker(behaviour);
    silentChecker.getFixedPoint(behaviour);
    return checkModelingStatement(behaviour.getStatement(), silentChecker);
}

bool WellformednessChecker::checkModelingStatement(kel::BehaviourStatement const& statement,
                                                   SilentChecker& silentChecker) {
    kel::OnEventStatement const* on = statement.asOnEventStatement();
    if (on == nullptr) {
        if (statement.asGuardedStatement() == nullptr &&
            statement.asBlockingStatement() == nullptr &&
            statement.asCompoundStatement() == nullptr) {
            return true;
        }
        bool ok = true;
        for (kel::BehaviourStatement const* inner : innerStatements(statement)) {
            ok = checkModelingStatement(*inner, silentChecker) && ok;
        }
        return ok;
    }
    bool ok = true;
    for (kel::EventInstance const* instance : on->getEventsVec()) {
        if (!isModelingEvent(*instance)) {
            continue;
        }
        Silentness silentness = silentChecker.isSilent(on->getStatement());
        if (silentness == Silentness::Indeterminate) {
            ok = report(on->getStatement(), "Cannot determine silentness of modeling event");
            continue;
        }
        kel::OnEventStatement copy(*on);
        copy.setSilent(silentness == Silentness::Silent ? kel::boolTrue : kel::boolFalse);
        m_model.update(copy);
    }
    return ok;
}

bool WellformednessChecker::checkRecursion(kel::Behaviour const& behaviour) {
    Recurser recurser(behaviour);
    bool ok = true;
    for (kel::FunctionDeclaration const* function : behaviour.getFunctionsVec()) {
        if (recurser.isRecursiveFunction(*function)) {
            ok = checkTailRecursive(function->getStatement(), *function, recurser) && ok;
        }
    }
    return ok;
}

// After the statement that holds the recursive call only returns and empty
// compounds may follow.
bool WellformednessChecker::checkTailRecursive(kel::CompoundStatement const& compound,
                                               kel::FunctionDeclaration const& function,
                                               Recurser const& recurser) {
    bool ok = true;
    bool seen = false;
    for (kel::BehaviourStatement const* statement : compound.getStatementsVec()) {
        if (!isNonEmpty(*statement) || statement->asReturnStatement() != nullptr) {
            continue;
        }
        if (seen) {
            ok = report(*statement, "Statement violates tail recursion in recursive Function");
            continue;
        }
        seen = recurser.containsRecursiveCallTo(function, *statement);
        if (seen) {
            ok = checkTailRecursiveInside(*statement, function, recurser) && ok;
        }
    }
    return ok;
}

bool WellformednessChecker::checkTailRecursiveInside(kel::BehaviourStatement const& statement,
                                                     kel::FunctionDeclaration const& function,
                                                     Recurser const& recurser) {
    if (kel::IsImperative(statement) && statement.asIfStatement() == nullptr) {
        return true;
    }
    if (statement.asCompoundStatement() == nullptr && statement.asGuardedStatement() == nullptr &&
        statement.asBlockingStatement() == nullptr && statement.asOnEventStatement() == nullptr &&
        statement.asIfStatement() == nullptr) {
        throw om::OMException("unexpected statement type in checkTailRecursive: " +
                              statement.getClassName());
    }
    if (kel::CompoundStatement const* compound = statement.asCompoundStatement()) {
        return checkTailRecursive(*compound, function, recurser);
    }
    bool ok = true;
    for (kel::BehaviourStatement const* inner : innerStatements(statement)) {
        if (kel::CompoundStatement const* compound = inner->asCompoundStatement()) {
            ok = checkTailRecursive(*compound, function, recurser) && ok;
        }
    }
    return ok;
}

} // namespace language
