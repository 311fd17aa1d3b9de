// The pass as a whole and the order of the checks of a behaviour and a function.
#include "parser/checks/WellformednessChecker.h"

#include "metamodel/BuiltinDeclarations.h"
#include "parser/checks/StatementQueries.h"

namespace language {

WellformednessChecker::WellformednessChecker(om::ObjectModel& model, Files* files)
    : ParserBase(model, files) {}

bool WellformednessChecker::checkWellformedness() {
    kel::ConstNamespaceVec spaces = kel::GetRoot(m_model).getNamespacesVec();
    return spaces.empty() || checkWellformednessNamespace(*spaces.front());
}

bool WellformednessChecker::checkWellformednessBehaviour(kel::Behaviour const& behaviour) {
    bool ok = true;
    kel::ConstTypeDeclarationVec types = behaviour.getTypesVec();
    for (kel::TypeDeclaration const* type : types) {
        ok = checkModelNameclash(*type) && ok;
    }
    for (kel::TypeDeclaration const* type : types) {
        if (kel::IntTypeDeclaration const* subrange = type->asIntTypeDeclaration()) {
            ok = checkSubInt(*subrange) && ok;
        }
    }
    kel::ConstVariableDeclarationVec variables = behaviour.getVariablesVec();
    for (kel::VariableDeclaration const* variable : variables) {
        ok = checkModelNameclash(*variable) && ok;
    }
    for (kel::VariableDeclaration const* variable : variables) {
        if (kel::Expression const* value = variable->tryGetInitialValue()) {
            ok = (checkValuedExpr(*value) && checkConstExpr(*value)) && ok;
        }
    }
    for (kel::InternalDeclaration const* internal : behaviour.getInternalsVec()) {
        ok = checkWellformednessInternal(*internal) && ok;
    }
    for (kel::FunctionDeclaration const* function : behaviour.getFunctionsVec()) {
        ok = checkWellformednessFunction(*function) && ok;
    }
    ok = checkRecursion(behaviour) && ok;
    kel::CompoundStatement const& statement = behaviour.getStatement();
    ok = checkRecursive(statement, &WellformednessChecker::checkDirection) && ok;
    ok = checkOnOrBlockingSeen(statement, false, false) && ok;
    ok = checkBlocking(statement) && ok;
    ok = checkMixingRelaxedVec(statement.getStatementsVec()) && ok;
    ok = checkRecursive(statement, &WellformednessChecker::checkValued) && ok;
    ok = checkRecursive(statement, &WellformednessChecker::checkNoReturn) && ok;
    ok = checkRecursive(statement, &WellformednessChecker::checkReply) && ok;
    return checkModeling(behaviour) && ok;
}

bool WellformednessChecker::checkWellformednessFunction(kel::FunctionDeclaration const& function) {
    kel::CompoundStatement const& statement = function.getStatement();
    bool ok = checkMixingImperative(statement);
    ok = checkRecursive(statement, &WellformednessChecker::checkDirection) && ok;
    ok = checkRecursive(statement, &WellformednessChecker::checkValued) && ok;
    ok = checkRecursive(statement, &WellformednessChecker::checkReply) && ok;
    if (hasReturn(statement)) {
        return ok;
    }
    if (!function.hasReturnType()) {
        addMissingReturn(statement);
        return ok;
    }
    return report(function,
                  "Function does not return a value in all cases: " + q(function.getName())) &&
           ok;
}

bool WellformednessChecker::checkRecursive(kel::BehaviourStatement const& statement,
                                           StatementCheck check) {
    bool ok = (this->*check)(statement);
    if (kel::IfStatement const* branch = statement.asIfStatement()) {
        ok = checkRecursive(branch->getThenStatement(), check) && ok;
        if (kel::BehaviourStatement const* otherwise = branch->tryGetElseStatement()) {
            // The else branch is checked here and once more by the walk into it.
            ok = (this->*check)(*otherwise) && ok;
            ok = checkRecursive(*otherwise, check) && ok;
        }
        return ok;
    }
    for (kel::BehaviourStatement const* inner : innerStatements(statement)) {
        ok = checkRecursive(*inner, check) && ok;
    }
    return ok;
}

bool WellformednessChecker::report(kel::Location const& at, std::string const& message) {
    error(getLocation(at), "Well-formedness error: " + message);
    return FALSE();
}

} // namespace language
