// The walk over namespaces, models, behaviours and functions.
#include "parser/resolve/Resolver.h"

namespace language {

bool Resolver::resolveReferencesRoot(kel::Root const& root) {
    RootScope& scope = getRootScope(root.getOid());
    kel::ConstNamespaceVec namespaces = root.getNamespaces();
    bool ok = true;
    // Every interface before any component: triggers of components read the
    // resolved parameter types of interfaces.
    for (kel::Namespace const* space : namespaces) {
        ok &= resolveReferencesNamespaceInterfaces(*space, scope);
    }
    for (kel::Namespace const* space : namespaces) {
        ok &= resolveReferencesNamespaceComponents(*space, scope);
    }
    return ok;
}

bool Resolver::resolveReferencesNamespaceInterfaces(kel::Namespace const& space,
                                                    Scope const& parent) {
    NamespaceScope& scope = getNamespaceScope(space.getOid(), parent);
    bool ok = true;
    for (kel::Namespace const* nested : space.getNamespaces()) {
        ok &= resolveReferencesNamespaceInterfaces(*nested, scope);
    }
    for (kel::ModelDeclaration const* model : space.getModels()) {
        if (auto const* interface = dynamic_cast<kel::InterfaceDeclaration const*>(model)) {
            ok &= resolveReferencesInterface(*interface, scope);
        }
    }
    return ok;
}

bool Resolver::resolveReferencesNamespaceComponents(kel::Namespace const& space,
                                                    Scope const& parent) {
    NamespaceScope& scope = getNamespaceScope(space.getOid(), parent);
    bool ok = true;
    for (kel::Namespace const* nested : space.getNamespaces()) {
        ok &= resolveReferencesNamespaceComponents(*nested, scope);
    }
    kel::ConstComponentDeclarationVec systems;
    for (kel::ModelDeclaration const* model : space.getModels()) {
        if (auto const* component = dynamic_cast<kel::ComponentDeclaration const*>(model)) {
            if (component->hasSystem()) {
                systems.push_back(component);
            } else {
                ok &= resolveReferencesComponent(*component, scope);
            }
        }
    }
    for (kel::ComponentDeclaration const* component : systems) {
        ok &= resolveReferencesSystem(*component, scope);
    }
    return ok;
}

bool Resolver::resolveReferencesInterface(kel::InterfaceDeclaration const& interface,
                                          NamespaceScope const& parent) {
    InterfaceScope& scope = getInterfaceScope(interface.getOid(), parent);
    bool ok = true;
    for (kel::EventDeclaration const* event : interface.getEvents()) {
        for (kel::ParameterDeclaration const* parameter : event->getParameters()) {
            ok &= resolve(parameter->getType(), scope);
        }
        if (kel::TypeReference const* returnType = event->tryGetReturnType()) {
            ok &= resolve(*returnType, scope);
        }
    }
    kel::Behaviour const* behaviour = interface.tryGetBehaviour();
    return (behaviour == nullptr || resolveReferencesBehaviour(*behaviour, scope)) && ok;
}

bool Resolver::resolvePorts(kel::ComponentDeclaration const& component,
                            NamespaceScope const& parent) {
    bool ok = true;
    for (kel::PortDeclaration const* port : component.getPorts()) {
        ok &= resolve(port->getInterface(), parent);
    }
    return ok;
}

bool Resolver::resolveReferencesComponent(kel::ComponentDeclaration const& component,
                                          NamespaceScope const& parent) {
    ComponentScope& scope = getComponentScope(component.getOid(), parent);
    bool ok = resolvePorts(component, parent);
    kel::Behaviour const* behaviour = component.tryGetBehaviour();
    return (behaviour == nullptr || resolveReferencesBehaviour(*behaviour, scope)) && ok;
}

bool Resolver::resolveReferencesSystem(kel::ComponentDeclaration const& component,
                                       NamespaceScope const& parent) {
    SystemScope& scope = getSystemScope(component.getOid(), parent);
    bool ok = resolvePorts(component, parent);
    kel::System const& system = component.getSystem();
    for (kel::ComponentInstanceDeclaration const* instance : system.getInstances()) {
        ok &= resolve(instance->getComponent(), parent);
    }
    for (kel::ConstructorStatement const* statement : system.getStatements()) {
        if (auto const* binding = dynamic_cast<kel::BindingStatement const*>(statement)) {
            ok &= resolve(binding->getLeft(), scope);
            ok &= resolve(binding->getRight(), scope);
        }
    }
    return ok;
}

bool Resolver::resolveReferencesBehaviour(kel::Behaviour const& behaviour,
                                          ModelScope const& parent) {
    BehaviourScope& scope = getBehaviourScope(behaviour.getOid(), parent);
    bool ok = true;
    for (kel::VariableDeclaration const* variable : behaviour.getVariables()) {
        ok &= resolveVariable(*variable, scope, *variable);
    }
    for (kel::FunctionDeclaration const* function : behaviour.getFunctions()) {
        ok &= resolveReferencesFunction(*function, scope);
    }
    for (kel::InternalDeclaration const* internal : behaviour.getInternals()) {
        for (kel::ParameterDeclaration const* parameter : internal->getParameters()) {
            ok &= resolve(parameter->getType(), parent);
        }
    }
    return resolveReferencesBehaviourStatement(behaviour.getStatement(), scope) && ok;
}

bool Resolver::resolveVariable(kel::VariableDeclaration const& variable, LocalVariablesScope& scope,
                               kel::Location const& at) {
    bool ok = resolve(variable.getType(), scope);
    kel::TypeDeclaration const* type = variable.getType().tryGetDeclaration();
    bool isData = dynamic_cast<kel::DataTypeDeclaration const*>(type) != nullptr;
    if (isData && variable.tryGetParentOfType(kel::InterfaceDeclaration::ClassName) != nullptr) {
        errorAt(variable, "Datavariable not allowed in Interface: " + q(variable.getName()));
        ok = FALSE();
    }
    if (kel::Expression const* value = variable.tryGetInitialValue()) {
        return resolveReferencesExpression(*value, scope) && ok;
    }
    if (type != nullptr && !isData) {
        errorAt(at, "Variable must have initial value: " + q(variable.getName()));
        return FALSE();
    }
    return ok;
}

bool Resolver::resolveReferencesFunction(kel::FunctionDeclaration const& function,
                                         BehaviourScope const& parent) {
    FunctionScope& scope = getFunctionScope(function.getOid(), parent);
    bool ok = true;
    if (kel::TypeReference const* returnType = function.tryGetReturnType()) {
        ok &= resolve(*returnType, parent);
    }
    for (kel::ParameterDeclaration const* parameter : function.getParameters()) {
        ok &= resolve(parameter->getType(), parent);
    }
    return resolveReferencesBehaviourStatement(function.getStatement(), scope) && ok;
}

} // namespace language
