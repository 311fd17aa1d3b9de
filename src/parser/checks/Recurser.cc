#include "parser/checks/Recurser.h"

#include "om/AsType.h"
#include "om/OMException.h"
#include "om/ObjectModel.h"
#include "parser/checks/ModelQueries.h"
#include "parser/checks/RecurserCalls.h"
#include "parser/checks/StatementQueries.h"

#include <algorithm>
#include <set>

namespace language {

namespace {

bool contains(std::vector<om::Oid> const& ids, om::Oid id) {
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

kel::FunctionDeclaration const& functionWithId(kel::FunctionDeclaration const& any, om::Oid id) {
    return om::AsType<kel::FunctionDeclaration>(*any.getOwner().find(id));
}

} // namespace

Recurser::Recurser(kel::Behaviour const& behaviour) {
    std::map<om::Oid, std::vector<om::Oid>> calls;
    std::vector<kel::FunctionDeclaration const*> pending;
    for (kel::FunctionDeclaration const* function : behaviour.getFunctionsVec()) {
        pending.push_back(function);
    }
    while (!pending.empty()) {
        kel::FunctionDeclaration const& function = *pending.back();
        pending.pop_back();
        auto [entry, isNew] = calls.try_emplace(function.getOid());
        if (!isNew) {
            continue;
        }
        entry->second = containingCalls(function);
        for (om::Oid callee : entry->second) {
            pending.push_back(&functionWithId(function, callee));
        }
    }
    findComponents(calls);
}

// Tarjan's strongly connected components, on a stack of its own.
void Recurser::findComponents(std::map<om::Oid, std::vector<om::Oid>> const& calls) {
    std::map<om::Oid, std::size_t> order;
    std::map<om::Oid, std::size_t> low;
    std::vector<om::Oid> open;
    std::vector<std::pair<om::Oid, std::size_t>> path;
    auto enter = [&](om::Oid id) {
        order[id] = low[id] = order.size();
        open.push_back(id);
        path.emplace_back(id, 0);
    };
    for (auto const& [root, unused] : calls) {
        if (!order.contains(root)) {
            enter(root);
        }
        while (!path.empty()) {
            auto& [id, next] = path.back();
            std::vector<om::Oid> const& callees = calls.at(id);
            if (next < callees.size()) {
                om::Oid const callee = callees[next++];
                if (!order.contains(callee)) {
                    enter(callee);
                } else if (!m_components.contains(callee)) {
                    low[id] = std::min(low[id], order[callee]);
                }
                continue;
            }
            om::Oid const done = id;
            path.pop_back();
            if (!path.empty()) {
                low[path.back().first] = std::min(low[path.back().first], low[done]);
            }
            if (low[done] == order[done]) {
                om::Oid member;
                do {
                    member = open.back();
                    open.pop_back();
                    m_components[member] = order[done];
                } while (member != done);
            }
        }
    }
}

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

// Any path will do, so every function is walked once: the answer is that of
// a walk that only avoids the functions on its own path.
bool Recurser::containsRecursiveCallToFunction(om::Oid target,
                                               kel::FunctionDeclaration const& function,
                                               std::vector<om::Oid> const& visited) const {
    std::set<om::Oid> seen(visited.begin(), visited.end());
    std::vector<kel::FunctionDeclaration const*> pending{&function};
    while (!pending.empty()) {
        kel::FunctionDeclaration const& caller = *pending.back();
        pending.pop_back();
        std::vector<om::Oid> const callees = containingCalls(caller);
        if (contains(callees, target)) {
            return true;
        }
        for (auto callee = callees.rbegin(); callee != callees.rend(); ++callee) {
            if (seen.insert(*callee).second) {
                pending.push_back(&functionWithId(caller, *callee));
            }
        }
    }
    return false;
}

bool Recurser::reaches(om::Oid callee, kel::FunctionDeclaration const& function,
                       kel::Expression const& call) const {
    if (callee == function.getOid()) {
        return true;
    }
    auto const calleeComponent = m_components.find(callee);
    auto const functionComponent = m_components.find(function.getOid());
    if (calleeComponent != m_components.end() && functionComponent != m_components.end() &&
        tryGetAncestor<kel::FunctionDeclaration>(call) == &function) {
        return calleeComponent->second == functionComponent->second;
    }
    return containsRecursiveCallToFunction(function.getOid(), functionWithId(function, callee),
                                           {callee});
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
            if (reaches(callee->getOid(), function, expression)) {
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
