#include "interpreter/Program.h"

#include "metamodel/AssignmentStatement.h"
#include "metamodel/Behaviour.h"
#include "metamodel/CompoundStatement.h"
#include "metamodel/Expression.h"
#include "metamodel/VariableDeclaration.h"
#include "metamodel/VariableDeclarationStatement.h"

#include <stdexcept>

namespace {

bool IsFunctionCall(kel::Expression const* expression) {
    return expression != nullptr && expression->asFunctionCallExpression() != nullptr;
}

bool IsOwnedByBehaviour(kel::BehaviourStatement const& statement) {
    return dynamic_cast<kel::Behaviour const*>(statement.tryGetParent()) != nullptr;
}

} // namespace

bool ProgramScope::IsMainProgram() const { return IsOwnedByBehaviour(*owner); }

bool ProgramScope::IsCompound() const { return owner->asCompoundStatement() != nullptr; }

bool ProgramScope::IsFunction() const {
    if (owner->asFunctionCallStatement() != nullptr) {
        return true;
    }
    if (auto const* assignment = owner->asAssignmentStatement()) {
        return IsFunctionCall(assignment->tryGetValue());
    }
    auto const* declaration = owner->asVariableDeclarationStatement();
    return declaration != nullptr &&
           IsFunctionCall(declaration->getVariable().tryGetInitialValue());
}

Program::Program(kel::ModelDeclaration const& model) {
    if (auto const* behaviour = model.tryGetBehaviour()) {
        OpenScope(behaviour->getStatement());
        PushStatement(behaviour->getStatement());
    }
}

void Program::OpenScope(kel::BehaviourStatement const& owner) {
    scopes.push_back(ProgramScope{{}, &owner});
}

void Program::CloseScope() {
    if (scopes.empty()) {
        throw std::runtime_error("Fout!");
    }
    if (scopes.back().IsMainProgram()) {
        throw std::runtime_error("Main program scope should not be closed.");
    }
    scopes.pop_back();
}

void Program::PushStatement(kel::BehaviourStatement const& statement) {
    if (scopes.empty()) {
        throw std::runtime_error("Cannot push statement when no program.");
    }
    scopes.back().statements.push_back(&statement);
}

kel::BehaviourStatement const* Program::PopNextStatement() {
    auto const* top = TopStatement();
    if (top != nullptr) {
        scopes.back().statements.pop_back();
    }
    return top;
}

kel::BehaviourStatement const* Program::TopStatement() const {
    if (scopes.empty() || scopes.back().statements.empty()) {
        return nullptr;
    }
    return scopes.back().statements.back();
}

bool Program::IsCurrentScopeDepleted() const { return TopStatement() == nullptr; }

kel::BehaviourStatement const* Program::GetScopeOwner() const {
    return scopes.empty() ? nullptr : scopes.back().owner;
}

ProgramScope const* Program::CurrentScope() const {
    return scopes.empty() ? nullptr : &scopes.back();
}

void Program::MainProgramReturn() { PushStatement(*GetScopeOwner()); }
