// Resolving event instances of actions and triggers, and binding trigger arguments.
#include "parser/resolve/Resolver.h"

#include "om/OMException.h"

#include <algorithm>

namespace language {

namespace {

// Whether the statement does nothing but "illegal", through single-statement
// compounds and guards.
bool isIllegalAction(kel::BehaviourStatement const& statement) {
    if (auto const* compound = dynamic_cast<kel::CompoundStatement const*>(&statement)) {
        kel::ConstBehaviourStatementVec statements = compound->getStatements();
        return statements.size() == 1 && isIllegalAction(*statements.front());
    }
    if (auto const* guarded = dynamic_cast<kel::GuardedStatement const*>(&statement)) {
        return isIllegalAction(guarded->getStatement());
    }
    if (auto const* action = dynamic_cast<kel::ActionStatement const*>(&statement)) {
        return action->getExpression().getEvent().getName() == "illegal";
    }
    return false;
}

// A trigger of an on statement whose body is only "illegal" need not list the arguments.
bool isIllegalTrigger(kel::EventInstance const& instance) {
    auto const* on = dynamic_cast<kel::OnEventStatement const*>(instance.tryGetParent());
    return on != nullptr && isIllegalAction(on->getStatement());
}

} // namespace

bool Resolver::resolve(kel::EventInstance const& instance, LocalVariablesScope const& scope,
                       bool resolveArguments) {
    if (isBuiltin(instance)) {
        kel::EventReference const& event = instance.getEvent();
        kel::EventDeclaration const* builtin =
            event.hasDeclaration() ? nullptr : tryGetBuiltinEvent(instance);
        if (builtin != nullptr) {
            setDeclaration(event, builtin->getOid());
        }
        return true;
    }
    om::Object const* model = instance.tryGetParentOfType(kel::ModelDeclaration::ClassName);
    if (model == nullptr) {
        throw om::OMException("Object doesn't have parent of type " +
                              kel::ModelDeclaration::ClassName);
    }
    bool inComponent = dynamic_cast<kel::ComponentDeclaration const*>(model) != nullptr;
    Scope const* eventScope = &scope;
    if (instance.hasPort() && !resolveEventPort(instance, inComponent, scope, eventScope)) {
        return FALSE();
    }
    if (!resolve(instance.getEvent(), *eventScope)) {
        return FALSE();
    }
    std::string const& eventName = instance.getEvent().getName();
    if (!inComponent) {
        if (instance.getParentheses()) {
            errorAt(instance, "Event must be used without parentheses: " + q(eventName));
            return FALSE();
        }
        return true;
    }
    if (!instance.getParentheses()) {
        if (isIllegalTrigger(instance)) {
            return true;
        }
        errorAt(instance, "Event must be used with parentheses: " + q(eventName));
        return FALSE();
    }
    bool ok = checkEventArguments(instance);
    if (resolveArguments) {
        ok &= resolveOperands(instance.getArguments(), scope);
    }
    return ok;
}

// The scope of the interface of the instance's port, where its event is declared.
bool Resolver::resolveEventPort(kel::EventInstance const& instance, bool inComponent,
                                LocalVariablesScope const& scope, Scope const*& eventScope) {
    if (!inComponent) {
        errorAt(instance,
                "this is not a valid InterfaceInstance: " +
                    q(instance.getPort().getName() + "." + instance.getEvent().getName()));
        return FALSE();
    }
    kel::PortReference const& port = instance.getPort();
    if (!resolve(port, scope)) {
        return FALSE();
    }
    // An unresolved interface was reported with the port's declaration.
    kel::InterfaceDeclaration const* interface =
        port.getDeclaration().getInterface().tryGetDeclaration();
    if (interface == nullptr) {
        return FALSE();
    }
    eventScope = getInterfaceScope(interface->getOid());
    return eventScope != nullptr;
}

bool Resolver::checkEventArguments(kel::EventInstance const& instance) {
    std::uint64_t arguments = instance.getArgumentsSize();
    if (instance.getEvent().getDeclaration().getParametersSize() == arguments ||
        (arguments == 0 && isIllegalTrigger(instance))) {
        return true;
    }
    errorAt(instance, "Event must have the same number of arguments as its definition: " +
                          q(instance.getName()));
    return FALSE();
}

bool Resolver::resolveReferencesOnEventStatement(kel::OnEventStatement const& statement,
                                                 LocalVariablesScope& scope) {
    OnEventScope& bound = getOnEventScope(statement.getOid(), scope);
    // Triggers of an interface bind nothing.
    bool inInterface =
        statement.tryGetParentOfType(kel::InterfaceDeclaration::ClassName) != nullptr;
    bool ok = true;
    for (kel::EventInstance const* trigger : statement.getEvents()) {
        if (!resolve(*trigger, scope, false)) {
            ok = FALSE();
        } else if (!inInterface && trigger->getEvent().hasDeclaration()) {
            ok &= bindTrigger(*trigger, scope, bound);
        }
    }
    return resolveReferencesBehaviourStatement(statement.getStatement(), bound) && ok;
}

bool Resolver::bindTrigger(kel::EventInstance const& trigger, LocalVariablesScope const& scope,
                           OnEventScope& bound) {
    OnEventScope& triggerScope = getOnEventScope(trigger.getOid(), scope);
    kel::ConstParameterDeclarationVec parameters =
        trigger.getEvent().getDeclaration().getParameters();
    kel::ConstExpressionVec arguments = trigger.getArguments();
    // Counts agree for all but a built-in event, which takes no arguments.
    std::size_t count = std::min(parameters.size(), arguments.size());
    bool ok = true;
    for (std::size_t index = 0; index < count; ++index) {
        ok &=
            bindTriggerArgument(*arguments[index], *parameters[index], scope, triggerScope, bound);
    }
    return ok;
}

bool Resolver::bindTriggerArgument(kel::Expression const& argument,
                                   kel::ParameterDeclaration const& parameter,
                                   LocalVariablesScope const& scope, OnEventScope& triggerScope,
                                   OnEventScope& bound) {
    if (auto const* name = dynamic_cast<kel::NameExpression const*>(&argument)) {
        std::string const text = name->getName();
        if (text.find('.') != std::string::npos || name->hasArguments()) {
            errorAt(argument, "Variable expected");
            return FALSE();
        }
        if (!checkNewName(triggerScope, text, getLocation(argument))) {
            return FALSE();
        }
        kel::VariableReference const& reference = replaceByVariableExpression(*name).getVariable();
        triggerScope.variables.emplace(text, reference.getOid());
        return bindVariable(reference, parameter, bound);
    }
    if (auto const* assignment = dynamic_cast<kel::AssignmentExpression const*>(&argument)) {
        // The source belongs to the surrounding scope; the target may repeat a name.
        bool ok = resolveReferencesExpression(assignment->getValue(), scope);
        kel::VariableReference const& reference = assignment->getVariable();
        triggerScope.variables.insert_or_assign(reference.getName(), reference.getOid());
        return bindVariable(reference, parameter, bound) && ok;
    }
    return true;
}

// One variable per name across the triggers of one on statement.
bool Resolver::bindVariable(kel::VariableReference const& reference,
                            kel::ParameterDeclaration const& parameter, OnEventScope& bound) {
    std::string const& name = reference.getName();
    kel::TypeReference const& parameterType = parameter.getType();
    auto found = bound.variables.find(name);
    if (found == bound.variables.end()) {
        auto variable = newAt<kel::VariableDeclaration>(reference);
        variable.setName(name);
        auto type = newAt<kel::TypeReference>(reference);
        type.setName(parameterType.getName());
        if (parameterType.hasDeclaration()) {
            type.setDeclaration(parameterType.getDeclarationOid());
        }
        variable.setType(insert(std::move(type)));
        om::Oid const id = insert(std::move(variable)).getOid();
        setDeclaration(reference, id);
        bound.variables.emplace(name, id);
        return true;
    }
    auto const& previous = om::AsType<kel::VariableDeclaration>(*m_model.find(found->second));
    kel::TypeReference const& previousType = previous.getType();
    if (previousType.hasDeclaration() && parameterType.hasDeclaration() &&
        previousType.getDeclarationOid() != parameterType.getDeclarationOid()) {
        errorAt(reference, "Trigger parameters with same name but different type: " + q(name));
        errorAt(previous, "previous " + q(name) + " defined here");
        return FALSE();
    }
    setDeclaration(reference, previous.getOid());
    return true;
}

} // namespace language
