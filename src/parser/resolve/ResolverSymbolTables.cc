// Merging namespaces of equal name and filling the scopes with the declarations.
#include "parser/resolve/Resolver.h"

namespace language {

namespace {

// The ids of one composition of every namespace but the first, in order.
std::vector<om::Oid> childIdsOfTwins(std::vector<kel::Namespace const*> const& twins,
                                     std::string const& composition) {
    std::vector<om::Oid> ids;
    for (auto twin = twins.begin() + 1; twin != twins.end(); ++twin) {
        om::CompositionValue const& children = (*twin)->getComposition(composition);
        ids.insert(ids.end(), children.begin(), children.end());
    }
    return ids;
}

// Enters the object under its name unless the scope has that name already.
bool enter(Resolver& resolver, Scope const& scope, SymbolTable& table, kel::Named const& object) {
    if (!resolver.checkNewName(scope, object)) {
        return false;
    }
    table.emplace(object.getName(), object.getOid());
    return true;
}

} // namespace

void Resolver::mergeNamespaces(kel::ConstNamespaceVec namespaces) {
    std::map<std::string, std::vector<kel::Namespace const*>> byName;
    for (kel::Namespace const* space : namespaces) {
        byName[space->getName()].push_back(space);
    }
    for (auto const& [name, twins] : byName) {
        kel::Namespace const& first = *twins.front();
        kel::Namespace merged(first);
        // One addition per composition: a namespace may have many thousand twins.
        merged.addToNamespaces(childIdsOfTwins(twins, kel::Namespace::NamespacesComposition));
        merged.addToModels(childIdsOfTwins(twins, kel::Namespace::ModelsComposition));
        merged.addToTypes(childIdsOfTwins(twins, kel::Namespace::TypesComposition));
        m_model.update(merged);
        mergeNamespaces(first.getNamespaces());
    }
}

bool Resolver::buildRootSymbolTable(kel::Root const& root) {
    RootScope& scope = getRootScope(root.getOid());
    bool ok = true;
    for (kel::Namespace const* space : root.getNamespaces()) {
        scope.namespaces.emplace(space->getName(), space->getOid());
        ok &= buildNamespaceSymbolTable(*space, scope);
    }
    return ok;
}

bool Resolver::buildNamespaceSymbolTable(kel::Namespace const& space, Scope const& parent) {
    NamespaceScope& scope = getNamespaceScope(space.getOid(), parent);
    bool ok = true;
    // A namespace and its emptied twin share a name without clashing.
    for (kel::Namespace const* nested : space.getNamespaces()) {
        scope.namespaces.emplace(nested->getName(), nested->getOid());
        ok &= buildNamespaceSymbolTable(*nested, scope);
    }
    for (kel::TypeDeclaration const* type : space.getTypes()) {
        ok &= buildNamespaceTypeSymbolTable(*type, scope);
    }
    for (kel::ModelDeclaration const* model : space.getModels()) {
        bool isInterface = dynamic_cast<kel::InterfaceDeclaration const*>(model) != nullptr;
        ok &= enter(*this, scope, isInterface ? scope.interfaces : scope.components, *model);
        ok &= buildModelSymbolTable(*model, scope);
    }
    return ok;
}

// A type declared twice at namespace level is only reported by checkNewName
// when both declarations agree; the result then stays true.
bool Resolver::buildNamespaceTypeSymbolTable(kel::TypeDeclaration const& type,
                                             NamespaceScope& scope) {
    if (checkNewName(scope, type)) {
        scope.types.emplace(type.getName(), type.getOid());
        auto const* enumType = dynamic_cast<kel::EnumTypeDeclaration const*>(&type);
        return enumType == nullptr || buildEnumTypeSymbolTable(*enumType, scope);
    }
    return reportConflictingType(type, scope.findName(type.getName()));
}

bool Resolver::reportConflictingType(kel::TypeDeclaration const& type, om::Oid previousId) {
    // The previous declaration is whatever holds the name in the scope: mostly a
    // type, a nested namespace if the name went to one.
    auto const& previous = om::AsType<kel::Named>(*m_model.find(previousId));
    std::string kind;
    if (auto const* enumType = dynamic_cast<kel::EnumTypeDeclaration const*>(&type)) {
        auto const* other = dynamic_cast<kel::EnumTypeDeclaration const*>(&previous);
        if (other != nullptr &&
            other->getComposition(kel::EnumTypeDeclaration::ValuesComposition) ==
                enumType->getComposition(kel::EnumTypeDeclaration::ValuesComposition)) {
            return true;
        }
        kind = "EnumType";
    } else if (auto const* dataType = dynamic_cast<kel::DataTypeDeclaration const*>(&type)) {
        auto const* other = dynamic_cast<kel::DataTypeDeclaration const*>(&previous);
        if (other != nullptr && other->getValue() == dataType->getValue()) {
            return true;
        }
        kind = "DataType";
    } else {
        return true;
    }
    errorAt(type, "conflicting " + kind + " declaration: " + q(type.getName()));
    errorAt(previous, "previous " + q(type.getName()) + " declared here");
    return FALSE();
}

bool Resolver::buildTypeSymbolTable(kel::TypeDeclaration const& type, Scope& scope,
                                    SymbolTable& types) {
    if (!enter(*this, scope, types, type)) {
        return FALSE();
    }
    auto const* enumType = dynamic_cast<kel::EnumTypeDeclaration const*>(&type);
    return enumType == nullptr || buildEnumTypeSymbolTable(*enumType, scope);
}

bool Resolver::buildModelSymbolTable(kel::ModelDeclaration const& model,
                                     NamespaceScope const& parent) {
    bool ok = true;
    if (auto const* interface = dynamic_cast<kel::InterfaceDeclaration const*>(&model)) {
        InterfaceScope& scope = getInterfaceScope(model.getOid(), parent);
        for (kel::TypeDeclaration const* type : interface->getTypes()) {
            ok &= buildTypeSymbolTable(*type, scope, scope.types);
        }
        for (kel::EventDeclaration const* event : interface->getEvents()) {
            ok &= enter(*this, scope, scope.internals, *event);
            ok &= checkDuplicateParameters(event->getParameters());
        }
        kel::Behaviour const* behaviour = model.tryGetBehaviour();
        return (behaviour == nullptr || buildBehaviourSymbolTable(*behaviour, scope)) && ok;
    }
    auto const& component = om::AsType<kel::ComponentDeclaration>(model);
    kel::System const* system = component.tryGetSystem();
    ComponentScope& scope = system != nullptr ? getSystemScope(model.getOid(), parent)
                                              : getComponentScope(model.getOid(), parent);
    for (kel::PortDeclaration const* port : component.getPorts()) {
        ok &= enter(*this, scope, scope.ports, *port);
    }
    if (system != nullptr) {
        auto& systemScope = static_cast<SystemScope&>(scope);
        for (kel::ComponentInstanceDeclaration const* instance : system->getInstances()) {
            ok &= enter(*this, systemScope, systemScope.instances, *instance);
        }
        return ok;
    }
    kel::Behaviour const* behaviour = model.tryGetBehaviour();
    return (behaviour == nullptr || buildBehaviourSymbolTable(*behaviour, scope)) && ok;
}

bool Resolver::buildBehaviourSymbolTable(kel::Behaviour const& behaviour,
                                         ModelScope const& parent) {
    BehaviourScope& scope = getBehaviourScope(behaviour.getOid(), parent);
    bool ok = true;
    for (kel::TypeDeclaration const* type : behaviour.getTypes()) {
        ok &= buildTypeSymbolTable(*type, scope, scope.types);
    }
    for (kel::InternalDeclaration const* internal : behaviour.getInternals()) {
        ok &= enter(*this, scope, scope.internals, *internal);
        ok &= checkDuplicateParameters(internal->getParameters());
    }
    for (kel::VariableDeclaration const* variable : behaviour.getVariables()) {
        ok &= enter(*this, scope, scope.variables, *variable);
    }
    for (kel::FunctionDeclaration const* function : behaviour.getFunctions()) {
        ok &= enter(*this, scope, scope.functions, *function) &&
              buildFunctionSymbolTable(*function, scope);
    }
    return ok;
}

bool Resolver::buildFunctionSymbolTable(kel::FunctionDeclaration const& function,
                                        BehaviourScope const& parent) {
    FunctionScope& scope = getFunctionScope(function.getOid(), parent);
    bool ok = true;
    for (kel::ParameterDeclaration const* parameter : function.getParameters()) {
        ok &= enter(*this, scope, scope.parameters, *parameter);
    }
    return ok;
}

bool Resolver::buildEnumTypeSymbolTable(kel::EnumTypeDeclaration const& type, Scope const& parent) {
    EnumTypeScope& scope = getEnumTypeScope(type.getOid(), parent);
    bool ok = true;
    for (kel::EnumValueDeclaration const* value : type.getValues()) {
        ok &= enter(*this, scope, scope.values, *value);
    }
    return ok;
}

bool Resolver::checkDuplicateParameters(kel::ConstParameterDeclarationVec const& parameters) {
    std::map<std::string, kel::ParameterDeclaration const*> seen;
    bool ok = true;
    for (kel::ParameterDeclaration const* parameter : parameters) {
        auto [first, isNew] = seen.emplace(parameter->getName(), parameter);
        if (!isNew) {
            std::string const name = q(parameter->getName());
            errorAt(*parameter, "duplicate identifiers in Parameter declaration: " + name);
            errorAt(*first->second, "previous " + name + " defined here");
            ok = FALSE();
        }
    }
    return ok;
}

} // namespace language
