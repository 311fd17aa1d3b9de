#include "metamodel/TreePredicates.h"

#include "metamodel/ActionStatement.h"
#include "metamodel/AssignmentStatement.h"
#include "metamodel/BlockingStatement.h"
#include "metamodel/BuiltinDeclarations.h"
#include "metamodel/ConstActionExpressionVec.h"
#include "metamodel/ConstBehaviourStatementVec.h"
#include "metamodel/ConstCompoundStatementVec.h"
#include "metamodel/ConstEventDeclarationVec.h"
#include "metamodel/ConstEventInstanceVec.h"
#include "metamodel/ConstEventReferenceVec.h"
#include "metamodel/ConstExpressionVec.h"
#include "metamodel/ConstGuardedStatementVec.h"
#include "metamodel/ConstInterfaceDeclarationVec.h"
#include "metamodel/ConstOnEventStatementVec.h"
#include "metamodel/ConstTypeDeclarationVec.h"
#include "metamodel/ConstVariableDeclarationVec.h"
#include "metamodel/PortReference.h"
#include "metamodel/TypeReference.h"
#include "metamodel/VariableDeclarationStatement.h"
#include "om/AsType.h"

namespace kel {
namespace {

// A blocking statement stands for its content.
BehaviourStatement const& Unblocked(BehaviourStatement const& statement) {
    auto const* blocking = statement.asBlockingStatement();
    return blocking == nullptr ? statement : blocking->getStatement();
}

EventInstance const* ActionInstanceOf(Expression const* expression) {
    auto const* action = om::TryAs<ActionExpression>(expression);
    return action == nullptr ? nullptr : &action->getEvent();
}

} // namespace

bool IsBuiltin(EventDeclaration const& event) {
    auto const& name = event.getName();
    return name == "illegal" || name == "optional" || name == "inevitable";
}

bool IsBuiltin(EventReference const& event) {
    auto const* declaration = event.tryGetDeclaration();
    return declaration != nullptr && IsBuiltin(*declaration);
}

bool IsBuiltin(EventInstance const& instance) { return IsBuiltin(instance.getEvent()); }

bool IsBuiltin(OnEventStatement const& statement) {
    return TryGetBuiltinEventInstance(statement) != nullptr;
}

bool IsBool(TypeDeclaration const& type) { return type.getName() == "bool"; }

bool IsDefaultInterface(InterfaceDeclaration const& interface) {
    // The default interface is unnamed; a named one need not search the store.
    if (!interface.getName().empty()) {
        return false;
    }
    auto const* defaultInterface = GetDefaultInterface(interface.getOwner());
    return defaultInterface != nullptr && defaultInterface->getOid() == interface.getOid();
}

bool IsIllegal(EventInstance const& instance) {
    auto const* declaration = instance.getEvent().tryGetDeclaration();
    // The interpreter asks this for every action; the name rules out most
    // events before the store is searched.
    if (declaration == nullptr || declaration->getName() != "illegal") {
        return false;
    }
    auto const* illegal = GetIllegalEvent(instance.getOwner());
    return illegal != nullptr && illegal->getOid() == declaration->getOid();
}

bool IsIllegal(BehaviourStatement const& statement) {
    auto const* action = statement.asActionStatement();
    return action != nullptr && action->getExpression().getEvent().getName() == "illegal";
}

bool IsImperative(BehaviourStatement const& statement) {
    return statement.asActionStatement() != nullptr ||
           statement.asAssignmentStatement() != nullptr ||
           statement.asVariableDeclarationStatement() != nullptr ||
           statement.asIfStatement() != nullptr || statement.asReplyStatement() != nullptr ||
           statement.asReturnStatement() != nullptr ||
           statement.asFunctionCallStatement() != nullptr;
}

// Asked at every step into a compound, so it walks the statements in place.
bool IsDeclarative(CompoundStatement const& compound) {
    CompoundStatement const* firstNested = nullptr;
    for (auto const* statement : compound.getStatementsView()) {
        auto const& unblocked = Unblocked(*statement);
        if (om::IsA<GuardedStatement>(unblocked) || om::IsA<OnEventStatement>(unblocked)) {
            return true;
        }
        if (firstNested == nullptr) {
            firstNested = om::TryAs<CompoundStatement>(&unblocked);
        }
    }
    return firstNested != nullptr && IsDeclarative(*firstNested);
}

bool IsDataVariable(VariableDeclaration const& variable) {
    auto const* type = variable.getType().tryGetDeclaration();
    return type != nullptr && type->asDataTypeDeclaration() != nullptr;
}

bool IsStateVariable(VariableDeclaration const& variable) { return !IsDataVariable(variable); }

bool IsEqual(EventInstance const& a, EventInstance const& b) {
    auto const identity = IdentityOf(a);
    return identity.has_value() && identity == IdentityOf(b);
}

std::optional<EventIdentity> IdentityOf(EventInstance const& instance) {
    auto const& event = instance.getEvent();
    if (!event.hasDeclaration()) {
        return std::nullopt;
    }
    if (!instance.hasPort()) {
        return EventIdentity{event.getDeclarationOid(), om::NULL_OID};
    }
    auto const& port = instance.getPort();
    if (!port.hasDeclaration()) {
        return std::nullopt;
    }
    return EventIdentity{event.getDeclarationOid(), port.getDeclarationOid()};
}

EventInstance const* tryGetActionEventInstance(BehaviourStatement const& statement) {
    if (auto const* action = statement.asActionStatement()) {
        return &action->getExpression().getEvent();
    }
    if (auto const* assignment = statement.asAssignmentStatement()) {
        return ActionInstanceOf(assignment->tryGetValue());
    }
    if (auto const* declaration = statement.asVariableDeclarationStatement()) {
        return ActionInstanceOf(declaration->getVariable().tryGetInitialValue());
    }
    return nullptr;
}

EventInstance const* TryGetBuiltinEventInstance(OnEventStatement const& statement) {
    for (auto const* instance : statement.getEventsView()) {
        if (IsBuiltin(*instance)) {
            return instance;
        }
    }
    return nullptr;
}

EventInstance const* TryGetEventInstance(OnEventStatement const& statement,
                                         std::string const& name) {
    for (auto const* instance : statement.getEventsView()) {
        if (instance->getName() == name) {
            return instance;
        }
    }
    return nullptr;
}

ConstOnEventStatementVec FindOnEventStatementsByName(ConstOnEventStatementVec const& statements,
                                                     std::string const& name) {
    ConstOnEventStatementVec result;
    for (auto const* statement : statements) {
        for (auto const* instance : statement->getEventsView()) {
            if (instance->getName() == name) {
                result.push_back(statement);
            }
        }
    }
    return result;
}

} // namespace kel
