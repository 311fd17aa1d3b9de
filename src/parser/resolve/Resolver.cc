#include "parser/resolve/Resolver.h"

#include "metamodel/BuiltinDeclarations.h"

namespace language {

Resolver::Resolver(om::ObjectModel& model, std::vector<kel::File const*>* files)
    : ParserBase(model, files) {}

bool Resolver::resolveAllReferences() {
    kel::Root const& root = kel::GetRoot(m_model);
    mergeNamespaces(root.getNamespaces());
    bool built = buildRootSymbolTable(root);
    bool resolved = resolveReferencesRoot(root);
    return built && resolved;
}

RootScope& Resolver::getRootScope(om::Oid id) {
    std::unique_ptr<Scope>& slot = m_scopes[id];
    if (slot == nullptr) {
        slot = std::make_unique<RootScope>();
    }
    return dynamic_cast<RootScope&>(*slot);
}

NamespaceScope& Resolver::getNamespaceScope(om::Oid id, Scope const& parent) {
    return getScope<NamespaceScope>(id, parent);
}
InterfaceScope& Resolver::getInterfaceScope(om::Oid id, Scope const& parent) {
    return getScope<InterfaceScope>(id, parent);
}
ComponentScope& Resolver::getComponentScope(om::Oid id, Scope const& parent) {
    return getScope<ComponentScope>(id, parent);
}
SystemScope& Resolver::getSystemScope(om::Oid id, Scope const& parent) {
    return getScope<SystemScope>(id, parent);
}
EnumTypeScope& Resolver::getEnumTypeScope(om::Oid id, Scope const& parent) {
    return getScope<EnumTypeScope>(id, parent);
}
BehaviourScope& Resolver::getBehaviourScope(om::Oid id, Scope const& parent) {
    return getScope<BehaviourScope>(id, parent);
}
FunctionScope& Resolver::getFunctionScope(om::Oid id, Scope const& parent) {
    return getScope<FunctionScope>(id, parent);
}
CompoundScope& Resolver::getCompoundScope(om::Oid id, Scope const& parent) {
    return getScope<CompoundScope>(id, parent);
}
OnEventScope& Resolver::getOnEventScope(om::Oid id, Scope const& parent) {
    return getScope<OnEventScope>(id, parent);
}

om::Oid Resolver::lookupName(std::string const& name, Scope const& scope) {
    for (Scope const* current = &scope; current != nullptr; current = current->parent()) {
        if (om::Oid id = current->findName(name); id != om::NULL_OID) {
            return id;
        }
    }
    return om::NULL_OID;
}

std::string Resolver::lookupTypeName(std::string const& name, Scope const& scope) {
    for (Scope const* current = &scope; current != nullptr; current = current->parent()) {
        if (std::string kind = current->getType(name); !kind.empty()) {
            return kind;
        }
    }
    return "";
}

om::Oid Resolver::lookupCompoundName(std::string const& name, Scope const& scope,
                                     bool strict) const {
    std::size_t dot = name.find('.');
    std::string head = name.substr(0, dot);
    om::Oid id = strict ? scope.findName(head) : lookupName(head, scope);
    if (id == om::NULL_OID || dot == std::string::npos) {
        return id;
    }
    auto inner = m_scopes.find(id);
    if (inner == m_scopes.end()) {
        return om::NULL_OID;
    }
    return lookupCompoundName(name.substr(dot + 1), *inner->second, true);
}

bool Resolver::checkNewName(Scope const& scope, std::string const& name, location const& where) {
    om::Oid previous = scope.findName(name);
    if (previous == om::NULL_OID) {
        return true;
    }
    error(where, "identifier declared before: " + q(name));
    auto const* declared = dynamic_cast<kel::Location const*>(m_model.tryFind(previous));
    error(declared != nullptr ? getLocation(*declared) : location{},
          "previous " + q(name) + " defined here");
    return FALSE();
}

bool Resolver::checkNewName(Scope const& scope, kel::Named const& object) {
    return checkNewName(scope, object.getName(), getLocation(object));
}

} // namespace language
