// Resolving the statements of behaviours and functions.
#include "parser/resolve/Resolver.h"

#include "om/OMException.h"

namespace language {

bool Resolver::resolveReferencesBehaviourStatement(kel::BehaviourStatement const& statement,
                                                   LocalVariablesScope& scope) {
    if (auto const* name = dynamic_cast<kel::NameStatement const*>(&statement)) {
        return resolveNameStatement(*name, scope);
    }
    if (auto const* action = dynamic_cast<kel::ActionStatement const*>(&statement)) {
        return resolveReferencesExpression(action->getExpression(), scope);
    }
    if (auto const* call = dynamic_cast<kel::FunctionCallStatement const*>(&statement)) {
        return resolveReferencesExpression(call->getExpression(), scope);
    }
    if (auto const* on = dynamic_cast<kel::OnEventStatement const*>(&statement)) {
        return resolveReferencesOnEventStatement(*on, scope);
    }
    if (auto const* assignment = dynamic_cast<kel::AssignmentStatement const*>(&statement)) {
        bool ok = resolve(assignment->getVariable(), scope);
        kel::Expression const* value = assignment->tryGetValue();
        return (value == nullptr || resolveReferencesExpression(*value, scope)) && ok;
    }
    if (auto const* declaration =
            dynamic_cast<kel::VariableDeclarationStatement const*>(&statement)) {
        return resolveVariableDeclarationStatement(*declaration, scope);
    }
    if (auto const* compound = dynamic_cast<kel::CompoundStatement const*>(&statement)) {
        CompoundScope& inner = getCompoundScope(compound->getOid(), scope);
        bool ok = true;
        for (kel::BehaviourStatement const* nested : compound->getStatements()) {
            ok &= resolveReferencesBehaviourStatement(*nested, inner);
        }
        return ok;
    }
    if (auto const* blocking = dynamic_cast<kel::BlockingStatement const*>(&statement)) {
        return resolveReferencesBehaviourStatement(blocking->getStatement(), scope);
    }
    if (auto const* guarded = dynamic_cast<kel::GuardedStatement const*>(&statement)) {
        return resolveGuardedStatement(*guarded, scope);
    }
    if (auto const* choice = dynamic_cast<kel::IfStatement const*>(&statement)) {
        kel::Expression const* condition = choice->tryGetExpression();
        bool ok = condition == nullptr || resolveReferencesExpression(*condition, scope);
        ok &= resolveReferencesBehaviourStatement(choice->getThenStatement(), scope);
        kel::BehaviourStatement const* otherwise = choice->tryGetElseStatement();
        return (otherwise == nullptr || resolveReferencesBehaviourStatement(*otherwise, scope)) &&
               ok;
    }
    if (auto const* reply = dynamic_cast<kel::ReplyStatement const*>(&statement)) {
        return resolveReplyStatement(*reply, scope);
    }
    if (auto const* result = dynamic_cast<kel::ReturnStatement const*>(&statement)) {
        kel::Expression const* value = result->tryGetExpression();
        return value == nullptr || resolveReferencesExpression(*value, scope);
    }
    throw om::OMException("unexpected statement type in resolveReferencesBehaviourStatement: " +
                          statement.getClassName());
}

bool Resolver::resolveGuardedStatement(kel::GuardedStatement const& statement,
                                       LocalVariablesScope& scope) {
    bool ok = true;
    if (auto const* guard = dynamic_cast<kel::ExpressionGuard const*>(statement.tryGetGuard())) {
        ok = resolveReferencesExpression(guard->getExpression(), scope);
    }
    return resolveReferencesBehaviourStatement(statement.getStatement(), scope) && ok;
}

bool Resolver::resolveReplyStatement(kel::ReplyStatement const& statement,
                                     LocalVariablesScope& scope) {
    bool ok = true;
    if (kel::PortReference const* port = statement.tryGetPort()) {
        om::Oid id = lookupReference<kel::PortDeclaration>(port->getName(), scope);
        if (id != om::NULL_OID) {
            setDeclaration(*port, id);
        } else {
            errorAt(statement, "undefined Port reference: " + q(port->getName()));
            ok = FALSE();
        }
    }
    kel::Expression const* value = statement.tryGetExpression();
    return (value == nullptr || resolveReferencesExpression(*value, scope)) && ok;
}

// `name;` or `name(args);` standing alone: an action or a function call.
bool Resolver::resolveNameStatement(kel::NameStatement const& statement,
                                    LocalVariablesScope& scope) {
    kel::NameExpression const& expression = statement.getExpression();
    std::string const name = expression.getName();
    std::size_t dot = name.find('.');
    std::string const head = name.substr(0, dot);
    om::Oid id = lookupName(head, scope);
    if (id == om::NULL_OID) {
        errorAt(expression, "Undefined identifier: " + q(head));
        return FALSE();
    }
    om::Object const& found = *m_model.find(id);
    bool isPort = dynamic_cast<kel::PortDeclaration const*>(&found) != nullptr;
    bool isEvent = dynamic_cast<kel::EventDeclaration const*>(&found) != nullptr;
    if (dot != std::string::npos ? isPort : isEvent) {
        return resolveReferencesBehaviourStatement(replaceByActionStatement(statement), scope);
    }
    if (dot == std::string::npos && dynamic_cast<kel::FunctionDeclaration const*>(&found)) {
        return resolveReferencesBehaviourStatement(replaceByFunctionCallStatement(statement),
                                                   scope);
    }
    return reportKind(expression, head, scope);
}

bool Resolver::resolveVariableDeclarationStatement(
    kel::VariableDeclarationStatement const& statement, LocalVariablesScope& scope) {
    kel::VariableDeclaration const& variable = statement.getVariable();
    bool ok = checkNewName(scope, variable);
    if (ok) {
        scope.variables.emplace(variable.getName(), variable.getOid());
    }
    // Entered first, so an initial value that names the variable finds it.
    return resolveVariable(variable, scope, statement) && ok;
}

} // namespace language
