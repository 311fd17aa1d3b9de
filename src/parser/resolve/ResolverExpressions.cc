// Resolving expressions, and deciding what a bare name in an expression is.
#include "parser/resolve/Resolver.h"

#include "om/AsType.h"

namespace language {

bool Resolver::resolveReferencesExpression(kel::Expression const& expression,
                                           LocalVariablesScope const& scope) {
    if (auto const* variable = dynamic_cast<kel::VariableExpression const*>(&expression)) {
        return resolve(variable->getVariable(), scope);
    }
    if (auto const* name = dynamic_cast<kel::NameExpression const*>(&expression)) {
        return resolveReferencesNameExpression(*name, name->getName(), scope);
    }
    if (auto const* action = dynamic_cast<kel::ActionExpression const*>(&expression)) {
        return resolveActionExpression(*action, scope);
    }
    if (auto const* call = dynamic_cast<kel::FunctionCallExpression const*>(&expression)) {
        bool ok = resolve(call->getFunction(), scope);
        return resolveOperands(call->getArguments(), scope) && ok;
    }
    if (auto const* value = dynamic_cast<kel::EnumVariableValueExpression const*>(&expression)) {
        if (!resolve(value->getVariable(), scope)) {
            return FALSE();
        }
        kel::TypeReference const& type = value->getVariable().getDeclaration().getType();
        EnumTypeScope const* values = getEnumTypeScope(type.getDeclarationOid());
        return values != nullptr && resolve(value->getValue(), *values);
    }
    if (auto const* negation = dynamic_cast<kel::BooleanNotExpression const*>(&expression)) {
        return resolveReferencesExpression(negation->getExpr(), scope);
    }
    // Every binary operator holds its operands as Expr1 and Expr2.
    if (expression.hasComposition(kel::PlusExpression::Expr1Composition)) {
        kel::ConstExpressionVec operands;
        for (char const* key : {"Expr1", "Expr2"}) {
            om::Oid id = expression.getComposition(key).get();
            operands.push_back(&om::AsType<kel::Expression>(*m_model.find(id)));
        }
        return resolveOperands(operands, scope);
    }
    return true;
}

bool Resolver::resolveOperands(kel::ConstExpressionVec const& operands,
                               LocalVariablesScope const& scope) {
    bool ok = true;
    for (kel::Expression const* operand : operands) {
        ok &= resolveReferencesExpression(*operand, scope);
    }
    return ok;
}

bool Resolver::resolveActionExpression(kel::ActionExpression const& action,
                                       LocalVariablesScope const& scope) {
    kel::EventInstance const& event = action.getEvent();
    if (kel::PortReference const* port = event.tryGetPort()) {
        if (lookupReference<kel::PortDeclaration>(port->getName(), scope) != om::NULL_OID) {
            return resolve(event, scope, true);
        }
        errorAt(event, "undefined Port reference: " + q(port->getName()));
        return FALSE();
    }
    std::string const& name = event.getEvent().getName();
    if (lookupReference<kel::EventDeclaration>(name, scope) != om::NULL_OID || isBuiltin(event)) {
        return resolve(event, scope, true);
    }
    errorAt(event, "undeclared Event reference: " + q(name));
    return FALSE();
}

bool Resolver::resolveReferencesNameExpression(kel::NameExpression const& expression,
                                               std::string const& name, Scope const& scope) {
    return name.find('.') == std::string::npos
               ? resolveSimpleNameExpression(expression, name, scope)
               : resolveDottedNameExpression(expression, name, scope);
}

bool Resolver::reportKind(kel::Location const& at, std::string const& name, Scope const& scope) {
    errorAt(at, "Expression with type " + q(lookupTypeName(name, scope)) +
                    " not allowed here: " + q(name));
    return FALSE();
}

bool Resolver::resolveInFreshScope(kel::Expression const& expression, Scope const& scope) {
    LocalVariablesScope fresh(scope);
    return resolveReferencesExpression(expression, fresh);
}

bool Resolver::resolveDottedNameExpression(kel::NameExpression const& expression,
                                           std::string const& name, Scope const& scope) {
    std::size_t dot = name.find('.');
    std::string const head = name.substr(0, dot);
    om::Oid id = lookupName(head, scope);
    if (id == om::NULL_OID) {
        errorAt(expression, "Undefined identifier: " + q(head));
        return FALSE();
    }
    om::Object const& found = *m_model.find(id);
    // The tail is looked up in the namespace or interface and then outward
    // from there; the scope itself serves as well as a copy of it would.
    Scope const* inner = nullptr;
    if (dynamic_cast<kel::Namespace const*>(&found) != nullptr) {
        inner = getNamespaceScope(id);
    } else if (dynamic_cast<kel::InterfaceDeclaration const*>(&found) != nullptr) {
        inner = getInterfaceScope(id);
    }
    if (inner != nullptr) {
        return resolveReferencesNameExpression(expression, name.substr(dot + 1), *inner);
    }
    std::string const whole = expression.getName();
    if (dynamic_cast<kel::EnumTypeDeclaration const*>(&found) != nullptr) {
        if (expression.getParentheses()) {
            errorAt(expression, "Parentheses not allowed in Enum constant: " + q(whole));
            return FALSE();
        }
        auto const& constant = replaceByEnumConstantExpression(expression);
        return resolve(constant.getValue(), *getEnumTypeScope(id));
    }
    if (auto const* variable = dynamic_cast<kel::VariableDeclaration const*>(&found)) {
        if (expression.getParentheses()) {
            errorAt(expression, "Parentheses not allowed in variable expression: " + q(whole));
            return FALSE();
        }
        auto const* type = variable->getType().tryGetDeclaration();
        if (dynamic_cast<kel::EnumTypeDeclaration const*>(type) == nullptr) {
            errorAt(expression, "Variable is not an Enum variable: " + q(head));
            return FALSE();
        }
        return resolveInFreshScope(replaceByEnumVariableValueExpression(expression), scope);
    }
    if (dynamic_cast<kel::PortDeclaration const*>(&found) != nullptr) {
        return resolveInFreshScope(replaceByActionExpression(expression), scope);
    }
    return reportKind(expression, head, scope);
}

bool Resolver::resolveSimpleNameExpression(kel::NameExpression const& expression,
                                           std::string const& name, Scope const& scope) {
    om::Oid id = lookupName(name, scope);
    if (id == om::NULL_OID) {
        errorAt(expression, "Undefined identifier: " + q(name));
        return FALSE();
    }
    om::Object const& found = *m_model.find(id);
    if (dynamic_cast<kel::VariableDeclaration const*>(&found) != nullptr) {
        if (expression.getParentheses()) {
            errorAt(expression, "Parentheses not allowed for variable: " + q(name));
            return FALSE();
        }
        return resolveInFreshScope(replaceByVariableExpression(expression), scope);
    }
    if (dynamic_cast<kel::EventDeclaration const*>(&found) != nullptr) {
        return resolveInFreshScope(replaceByActionExpression(expression), scope);
    }
    if (dynamic_cast<kel::FunctionDeclaration const*>(&found) != nullptr) {
        if (!expression.getParentheses()) {
            errorAt(expression, "Function call without parameters is not allowed: " + q(name));
            return FALSE();
        }
        return resolveInFreshScope(replaceByFunctionCallExpression(expression), scope);
    }
    return reportKind(expression, name, scope);
}

} // namespace language
