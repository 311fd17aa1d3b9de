#include "parser/Recurser.h"

#include "om/AsType.h"
#include "om/OMException.h"
#include "om/ObjectModel.h"
#include "parser/ModelQueries.h"
#include "parser/RecurserCalls.h"
#include "parser/StatementQueries.h"

#include <algorithm>

namespace language {

namespace {

bool contains(std::vector<om::Oid> const& ids, om::Oid id) {
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

kel::FunctionDeclaration const& functionWithId(kel::FunctionDeclaration const& any, om::Oid id) {
    return om::AsType<kel::FunctionDeclaration>(*any.getOwner().find(id));
}

} // namespace

Recurser::Recurser(kel::Behaviour const& /*behaviour*/) {}

std::vector<om::Oid> Recurser::containingCalls(kel::FunctionDeclaration const& function) const {
    std::vector<om::Oid> calls;
    addContainingCalls(function.getStatement(), calls);
    return calls;
}

void Recurser::addContainingCalls(kel::BehaviourStatement const& statement,
                                  std::vector<om::Oid>& calls) const {
    for (kel::Expression const* expression : callCarryingExpressions(statement)) {
        addContainingCallsInExpr(*expression, calls);
    }
    for (kel::BehaviourStatement const* inner : innerStatements(statement)) {
        addContainingCalls(*inner, calls);
    }
}

void Recurser::addContainingCallsInExpr(kel::Expression const& expression,
                                        std::vector<om::Oid>& calls) const {
    checkCallCarrier(expression);
    if (kel::FunctionCallExpression const* call = expression.asFunctionCallExpression()) {
        kel::FunctionDeclaration const* callee = call->getFunction().tryGetDeclaration();
        if (callee != nullptr && !contains(calls, callee->getOid())) {
            calls.push_back(callee->getOid());
        }
        for (kel::Expression const* argument : call->getArgumentsVec()) {
            addContainingCallsInExpr(*argument, calls);
        }
        return;
    }
    for (kel::Expression const* operand : operandsOf(expression)) {
        addContainingCallsInExpr(*operand, calls);
    }
}

bool Recurser::containsRecursiveCallToFunction(om::Oid target,
                                               kel::FunctionDeclaration const& function,
                                               std::vector<om::Oid> const& visited) const {
    for (om::Oid callee : containingCalls(function)) {
        if (callee == target) {
            return true;
        }
        if (contains(visited, callee)) {
            continue;
        }
        std::vector<om::Oid> path = visited;
        path.push_back(callee);
        if (containsRecursiveCallToFunction(target, functionWithId(function, callee), path)) {
            return true;
        }
    }
    return false;
}

bool Recurser::containsRecursiveCallTo(kel::FunctionDeclaration const& function,
                                       kel::BehaviourStatement const& statement) const {
    for (kel::Expression const* expression : callCarryingExpressions(statement)) {
        if (exprContainsRecursiveCallTo(function, *expression)) {
            return true;
        }
    }
    for (kel::BehaviourStatement const* inner : innerStatements(statement)) {
        if (containsRecursiveCallTo(function, *inner)) {
            return true;
        }
    }
    return false;
}

bool Recurser::exprContainsRecursiveCallTo(kel::FunctionDeclaration const& function,
                                           kel::Expression const& expression) const {
    checkCallCarrier(expression);
    std::vector<kel::Expression const*> inner = operandsOf(expression);
    if (kel::FunctionCallExpression const* call = expression.asFunctionCallExpression()) {
        if (kel::FunctionDeclaration const* callee = call->getFunction().tryGetDeclaration()) {
            if (callee->getOid() == function.getOid() ||
                containsRecursiveCallToFunction(function.getOid(), *callee, {callee->getOid()})) {
                return true;
            }
        }
        kel::ConstExpressionVec arguments = call->getArgumentsVec();
        inner.assign(arguments.begin(), arguments.end());
    }
    for (kel::Expression const* operand : inner) {
        if (exprContainsRecursiveCallTo(function, *operand)) {
            return true;
        }
    }
    return false;
}

bool Recurser::isRecursiveFunction(kel::FunctionDeclaration const& function) const {
    return containsRecursiveCallTo(function, function.getStatement());
}

bool isRecursive(kel::FunctionDeclaration const& function) {
    kel::Behaviour const* behaviour = tryGetAncestor<kel::Behaviour>(function);
    if (behaviour == nullptr) {
        throw om::OMException("Object doesn't have parent of type " + kel::Behaviour::ClassName);
    }
    return Recurser(*behaviour).isRecursiveFunction(function);
}

} // namespace language
