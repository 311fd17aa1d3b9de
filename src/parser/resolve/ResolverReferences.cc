// Resolving a single reference by its name.
#include "parser/resolve/Resolver.h"

namespace language {

bool Resolver::resolve(kel::PortReference const& reference, Scope const& scope) {
    std::string const& name = reference.getName();
    return resolveByName<kel::PortDeclaration>(reference, name, scope,
                                               "undefined Port reference: " + q(name));
}

bool Resolver::resolve(kel::VariableReference const& reference, Scope const& scope) {
    std::string const& name = reference.getName();
    return resolveByName<kel::VariableDeclaration>(reference, name, scope,
                                                   "undefined Variable reference: " + q(name));
}

bool Resolver::resolve(kel::EventReference const& reference, Scope const& scope) {
    std::string const& name = reference.getName();
    return resolveByName<kel::EventDeclaration>(reference, name, scope,
                                                "undefined Event reference: " + q(name));
}

bool Resolver::resolve(kel::FunctionReference const& reference, Scope const& scope) {
    std::string const& name = reference.getName();
    return resolveByName<kel::FunctionDeclaration>(reference, name, scope,
                                                   "undefined Function reference: " + q(name));
}

bool Resolver::resolve(kel::InterfaceReference const& reference, Scope const& scope) {
    std::string const& name = reference.getName();
    return resolveByName<kel::InterfaceDeclaration>(reference, name, scope,
                                                    "undefined Model reference: " + q(name));
}

bool Resolver::resolve(kel::ComponentReference const& reference, Scope const& scope) {
    std::string const& name = reference.getName();
    return resolveByName<kel::ComponentDeclaration>(reference, name, scope,
                                                    "undefined Model reference: " + q(name));
}

bool Resolver::resolve(kel::ComponentInstanceReference const& reference, Scope const& scope) {
    std::string const& name = reference.getName();
    return resolveByName<kel::ComponentInstanceDeclaration>(
        reference, name, scope, "undefined Component variable reference: " + q(name));
}

bool Resolver::resolve(kel::TypeReference const& reference, Scope const& scope) {
    std::string const& name = reference.getName();
    if (!reference.hasDeclaration() && name == "bool") {
        return resolveBoolType(reference);
    }
    return resolveByName<kel::TypeDeclaration>(reference, name, scope,
                                               "undefined Type reference: " + q(name));
}

// "bool" types variables, functions and event results, never event parameters.
bool Resolver::resolveBoolType(kel::TypeReference const& reference) {
    bool inBehaviour = reference.tryGetParentOfType(kel::Behaviour::ClassName) != nullptr;
    bool inEvent = reference.tryGetParentOfType(kel::EventDeclaration::ClassName) != nullptr;
    bool inParameter =
        reference.tryGetParentOfType(kel::ParameterDeclaration::ClassName) != nullptr;
    if (!inBehaviour && (!inEvent || inParameter)) {
        errorAt(reference, "bool is not allowed as type here");
        return FALSE();
    }
    setDeclaration(reference, getBoolType().getOid());
    return true;
}

bool Resolver::resolve(kel::EnumValueReference const& reference, Scope const& scope) {
    std::string const& name = reference.getName();
    std::string shortName = name.substr(name.rfind('.') + 1);
    return resolveByName<kel::EnumValueDeclaration>(
        reference, shortName, scope,
        "undefined Enum value reference: " + q(shortName) + " in " + q(name));
}

bool Resolver::resolve(kel::InterfaceInstance const& side, Scope const& scope) {
    kel::ComponentInstanceReference const* instance = side.tryGetComponent();
    if (instance == nullptr) {
        return side.getWildcard() || resolve(side.getPort(), scope);
    }
    if (!resolve(*instance, scope)) {
        return FALSE();
    }
    // An unresolved component was reported with the instance declaration.
    kel::ComponentDeclaration const* component =
        instance->getDeclaration().getComponent().tryGetDeclaration();
    if (component == nullptr) {
        return FALSE();
    }
    if (side.getWildcard()) {
        return true;
    }
    ComponentScope const* componentScope = getComponentScope(component->getOid());
    return componentScope != nullptr && resolve(side.getPort(), *componentScope);
}

} // namespace language
