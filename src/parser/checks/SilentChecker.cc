#include "parser/checks/SilentChecker.h"

#include "parser/checks/Recurser.h"

#include <array>
#include <vector>

namespace language {

namespace {

using S = Silentness;
using Table = std::array<std::array<S, 6>, 6>;

constexpr S N0 = S::Silent, N1 = S::Indeterminate, N2 = S::NotSilent, N3 = S::RecursionSeed,
            N4 = S::TowardsNotSilent, N5 = S::TowardsSilent;

constexpr Table sequence{{{N0, N1, N2, N3, N4, N5},
                          {N1, N1, N2, N1, N1, N1},
                          {N2, N2, N2, N2, N2, N2},
                          {N3, N1, N2, N3, N4, N5},
                          {N4, N1, N2, N4, N4, N1},
                          {N5, N1, N2, N5, N1, N5}}};

constexpr Table alternative{{{N0, N1, N1, N5, N1, N5},
                             {N1, N1, N1, N1, N1, N1},
                             {N1, N1, N2, N4, N4, N1},
                             {N5, N1, N4, N3, N4, N5},
                             {N1, N1, N4, N4, N4, N1},
                             {N5, N1, N1, N5, N1, N5}}};

S lookup(Table const& table, S row, S column) {
    return table[static_cast<int>(row)][static_cast<int>(column)];
}

// What is still waiting for recursion settles once nothing changes any more.
S settled(S value) {
    switch (value) {
    case S::RecursionSeed:
    case S::TowardsSilent:
        return S::Silent;
    case S::TowardsNotSilent:
        return S::NotSilent;
    default:
        return value;
    }
}

} // namespace

SilentChecker::SilentChecker(kel::Behaviour const& /*behaviour*/) {}

Silentness SilentChecker::isSilentSemicolon(Silentness first, Silentness second) {
    return lookup(sequence, first, second);
}

Silentness SilentChecker::isSilentIf(Silentness first, Silentness second) {
    return lookup(alternative, first, second);
}

void SilentChecker::getFixedPoint(kel::Behaviour const& behaviour) {
    std::vector<kel::FunctionDeclaration const*> recursive;
    // One analysis for all functions: each one made anew would redo the whole behaviour.
    Recurser const recurser(behaviour);
    for (kel::FunctionDeclaration const* function : behaviour.getFunctionsVec()) {
        if (recurser.isRecursiveFunction(*function)) {
            recursive.push_back(function);
            m_functions[function->getOid()] = S::RecursionSeed;
        } else {
            m_functions[function->getOid()] = isSilent(function->getStatement());
        }
    }
    for (bool changed = true; changed;) {
        changed = false;
        for (kel::FunctionDeclaration const* function : recursive) {
            S value = isSilent(function->getStatement());
            S& entry = m_functions[function->getOid()];
            if (value != entry) {
                entry = value;
                changed = true;
            }
        }
    }
    for (kel::FunctionDeclaration const* function : recursive) {
        S& entry = m_functions[function->getOid()];
        entry = settled(entry);
    }
}

Silentness SilentChecker::isSilent(kel::BehaviourStatement const& statement) {
    if (statement.asActionStatement() != nullptr || statement.asGuardedStatement() != nullptr ||
        statement.asBlockingStatement() != nullptr || statement.asOnEventStatement() != nullptr) {
        return S::NotSilent;
    }
    if (statement.asVariableDeclarationStatement() != nullptr ||
        statement.asReplyStatement() != nullptr || statement.asReturnStatement() != nullptr) {
        return S::Silent;
    }
    if (kel::AssignmentStatement const* assignment = statement.asAssignmentStatement()) {
        kel::Expression const* value = assignment->tryGetValue();
        return value != nullptr ? isSilent(*value) : S::Silent;
    }
    if (kel::FunctionCallStatement const* call = statement.asFunctionCallStatement()) {
        return isSilentCall(call->getExpression());
    }
    if (kel::CompoundStatement const* compound = statement.asCompoundStatement()) {
        return isSilentCompound(*compound);
    }
    if (kel::IfStatement const* branch = statement.asIfStatement()) {
        kel::BehaviourStatement const* otherwise = branch->tryGetElseStatement();
        S then = isSilent(branch->getThenStatement());
        return isSilentIf(then, otherwise != nullptr ? isSilent(*otherwise) : S::Silent);
    }
    return S::Indeterminate;
}

Silentness SilentChecker::isSilentCompound(kel::CompoundStatement const& compound) {
    S value = S::Silent;
    for (kel::BehaviourStatement const* inner : compound.getStatementsVec()) {
        value = isSilentSemicolon(value, isSilent(*inner));
    }
    return value;
}

Silentness SilentChecker::isSilent(kel::Expression const& expression) {
    if (expression.asActionExpression() != nullptr) {
        return S::NotSilent;
    }
    if (kel::FunctionCallExpression const* call = expression.asFunctionCallExpression()) {
        return isSilentCall(*call);
    }
    return S::Silent;
}

Silentness SilentChecker::isSilentCall(kel::FunctionCallExpression const& call) {
    kel::FunctionDeclaration const* callee = call.getFunction().tryGetDeclaration();
    return callee != nullptr ? isSilentFunction(*callee) : S::Indeterminate;
}

Silentness SilentChecker::isSilentFunction(kel::FunctionDeclaration const& function) {
    return m_functions.try_emplace(function.getOid(), S::Silent).first->second;
}

} // namespace language
