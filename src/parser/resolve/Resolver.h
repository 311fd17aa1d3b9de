// The pass that merges namespaces, fills the scopes with every declaration and
// resolves every reference of the tree, rewriting names into what they denote.
#pragma once

#include "metamodel/ConstructionSupport.h"
#include "metamodel/Kel.h"
#include "om/AsType.h"
#include "om/ObjectModel.h"
#include "parser/grammar/ParserBase.h"
#include "parser/resolve/BehaviourScope.h"
#include "parser/resolve/ComponentScope.h"
#include "parser/resolve/CompoundScope.h"
#include "parser/resolve/EnumTypeScope.h"
#include "parser/resolve/FunctionScope.h"
#include "parser/resolve/InterfaceScope.h"
#include "parser/resolve/NamespaceScope.h"
#include "parser/resolve/OnEventScope.h"
#include "parser/resolve/RootScope.h"
#include "parser/resolve/SystemScope.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace language {

class Resolver : public ParserBase {
public:
    Resolver(om::ObjectModel& model, std::vector<kel::File const*>* files);

    // Merges, builds the symbol tables and resolves; true without errors.
    bool resolveAllReferences();

    // ---- Namespaces and symbol tables.
    void mergeNamespaces(kel::ConstNamespaceVec namespaces);
    bool buildRootSymbolTable(kel::Root const& root);
    bool buildNamespaceSymbolTable(kel::Namespace const& space, Scope const& parent);
    bool buildModelSymbolTable(kel::ModelDeclaration const& model, NamespaceScope const& parent);
    bool buildBehaviourSymbolTable(kel::Behaviour const& behaviour, ModelScope const& parent);
    bool buildFunctionSymbolTable(kel::FunctionDeclaration const& function,
                                  BehaviourScope const& parent);
    bool buildEnumTypeSymbolTable(kel::EnumTypeDeclaration const& type, Scope const& parent);
    // Whether `name` is new in `scope` alone; reports the clash otherwise.
    bool checkNewName(Scope const& scope, std::string const& name, location const& where);
    bool checkNewName(Scope const& scope, kel::Named const& object);

    // ---- Lookups.
    // The first hit from `scope` up through its parents, 0 for none.
    static om::Oid lookupName(std::string const& name, Scope const& scope);
    static std::string lookupTypeName(std::string const& name, Scope const& scope);
    // A dotted name: only its first part looks outward.
    om::Oid lookupCompoundName(std::string const& name, Scope const& scope, bool strict) const;
    // lookupCompoundName, if what it finds is a T; 0 otherwise.
    template <class T> om::Oid lookupReference(std::string const& name, Scope const& scope) const {
        om::Oid id = lookupCompoundName(name, scope, false);
        return dynamic_cast<T const*>(m_model.tryFind(id)) != nullptr ? id : om::NULL_OID;
    }

    // ---- Scopes: the first access of an id fixes the parent of its scope.
    RootScope& getRootScope(om::Oid id);
    NamespaceScope& getNamespaceScope(om::Oid id, Scope const& parent);
    InterfaceScope& getInterfaceScope(om::Oid id, Scope const& parent);
    ComponentScope& getComponentScope(om::Oid id, Scope const& parent);
    SystemScope& getSystemScope(om::Oid id, Scope const& parent);
    EnumTypeScope& getEnumTypeScope(om::Oid id, Scope const& parent);
    BehaviourScope& getBehaviourScope(om::Oid id, Scope const& parent);
    FunctionScope& getFunctionScope(om::Oid id, Scope const& parent);
    CompoundScope& getCompoundScope(om::Oid id, Scope const& parent);
    OnEventScope& getOnEventScope(om::Oid id, Scope const& parent);
    // Reading forms: null without a scope of that class.
    NamespaceScope* getNamespaceScope(om::Oid id) const { return tryGetScope<NamespaceScope>(id); }
    InterfaceScope* getInterfaceScope(om::Oid id) const { return tryGetScope<InterfaceScope>(id); }
    ComponentScope* getComponentScope(om::Oid id) const { return tryGetScope<ComponentScope>(id); }
    EnumTypeScope* getEnumTypeScope(om::Oid id) const { return tryGetScope<EnumTypeScope>(id); }

    // ---- The walk over declarations.
    bool resolveReferencesRoot(kel::Root const& root);
    bool resolveReferencesNamespaceInterfaces(kel::Namespace const& space, Scope const& parent);
    bool resolveReferencesNamespaceComponents(kel::Namespace const& space, Scope const& parent);
    bool resolveReferencesInterface(kel::InterfaceDeclaration const& interface,
                                    NamespaceScope const& parent);
    bool resolveReferencesComponent(kel::ComponentDeclaration const& component,
                                    NamespaceScope const& parent);
    bool resolveReferencesSystem(kel::ComponentDeclaration const& component,
                                 NamespaceScope const& parent);
    bool resolveReferencesBehaviour(kel::Behaviour const& behaviour, ModelScope const& parent);
    bool resolveReferencesFunction(kel::FunctionDeclaration const& function,
                                   BehaviourScope const& parent);

    // ---- Single references: a resolved one stays as it is.
    bool resolve(kel::PortReference const& reference, Scope const& scope);
    bool resolve(kel::VariableReference const& reference, Scope const& scope);
    bool resolve(kel::EventReference const& reference, Scope const& scope);
    bool resolve(kel::FunctionReference const& reference, Scope const& scope);
    bool resolve(kel::InterfaceReference const& reference, Scope const& scope);
    bool resolve(kel::ComponentReference const& reference, Scope const& scope);
    bool resolve(kel::ComponentInstanceReference const& reference, Scope const& scope);
    bool resolve(kel::TypeReference const& reference, Scope const& scope);
    bool resolve(kel::EnumValueReference const& reference, Scope const& scope);
    bool resolve(kel::InterfaceInstance const& side, Scope const& scope);
    bool resolve(kel::EventInstance const& instance, LocalVariablesScope const& scope,
                 bool resolveArguments);

    // ---- Statements and expressions.
    bool resolveReferencesBehaviourStatement(kel::BehaviourStatement const& statement,
                                             LocalVariablesScope& scope);
    bool resolveReferencesOnEventStatement(kel::OnEventStatement const& statement,
                                           LocalVariablesScope& scope);
    bool resolveReferencesExpression(kel::Expression const& expression,
                                     LocalVariablesScope const& scope);
    bool resolveReferencesNameExpression(kel::NameExpression const& expression,
                                         std::string const& name, Scope const& scope);

    // ---- Rewriting: each returns the stored new object, which took the old one's place.
    void replaceInParent(om::Object const& old, om::Object const& replacement);
    kel::VariableExpression const& replaceByVariableExpression(kel::NameExpression const& old);
    kel::EnumConstantExpression const&
    replaceByEnumConstantExpression(kel::NameExpression const& old);
    kel::EnumVariableValueExpression const&
    replaceByEnumVariableValueExpression(kel::NameExpression const& old);
    kel::ActionExpression const& replaceByActionExpression(kel::NameExpression const& old);
    kel::FunctionCallExpression const&
    replaceByFunctionCallExpression(kel::NameExpression const& old);
    kel::ActionStatement const& replaceByActionStatement(kel::NameStatement const& old);
    kel::FunctionCallStatement const& replaceByFunctionCallStatement(kel::NameStatement const& old);

private:
    template <class S> S& getScope(om::Oid id, Scope const& parent);
    template <class S> S* tryGetScope(om::Oid id) const;
    template <class Declaration, class Reference>
    bool resolveByName(Reference const& reference, std::string const& name, Scope const& scope,
                       std::string const& message);
    template <class Reference> void setDeclaration(Reference const& reference, om::Oid id);
    bool resolveBoolType(kel::TypeReference const& reference);

    bool buildTypeSymbolTable(kel::TypeDeclaration const& type, Scope& scope, SymbolTable& types);
    bool buildNamespaceTypeSymbolTable(kel::TypeDeclaration const& type, NamespaceScope& scope);
    bool reportConflictingType(kel::TypeDeclaration const& type, om::Oid previousId);
    bool checkDuplicateParameters(kel::ConstParameterDeclarationVec const& parameters);
    bool resolveVariable(kel::VariableDeclaration const& variable, LocalVariablesScope& scope,
                         kel::Location const& at);
    bool resolvePorts(kel::ComponentDeclaration const& component, NamespaceScope const& parent);

    bool resolveActionExpression(kel::ActionExpression const& action,
                                 LocalVariablesScope const& scope);
    bool resolveOperands(kel::ConstExpressionVec const& operands, LocalVariablesScope const& scope);
    bool resolveDottedNameExpression(kel::NameExpression const& expression, std::string const& name,
                                     Scope const& scope);
    bool resolveSimpleNameExpression(kel::NameExpression const& expression, std::string const& name,
                                     Scope const& scope);
    bool resolveInFreshScope(kel::Expression const& expression, Scope const& scope);
    bool reportKind(kel::Location const& at, std::string const& name, Scope const& scope);
    bool resolveNameStatement(kel::NameStatement const& statement, LocalVariablesScope& scope);
    bool resolveReplyStatement(kel::ReplyStatement const& statement, LocalVariablesScope& scope);
    bool resolveGuardedStatement(kel::GuardedStatement const& statement,
                                 LocalVariablesScope& scope);
    bool resolveVariableDeclarationStatement(kel::VariableDeclarationStatement const& statement,
                                             LocalVariablesScope& scope);
    bool resolveEventPort(kel::EventInstance const& instance, bool inComponent,
                          LocalVariablesScope const& scope, Scope const*& eventScope);
    bool checkEventArguments(kel::EventInstance const& instance);
    bool bindTrigger(kel::EventInstance const& trigger, LocalVariablesScope const& scope,
                     OnEventScope& bound);
    bool bindTriggerArgument(kel::Expression const& argument,
                             kel::ParameterDeclaration const& parameter,
                             LocalVariablesScope const& scope, OnEventScope& triggerScope,
                             OnEventScope& bound);
    bool bindVariable(kel::VariableReference const& reference,
                      kel::ParameterDeclaration const& parameter, OnEventScope& bound);

    void errorAt(kel::Location const& object, std::string const& message) {
        error(getLocation(object), message);
    }
    // A new object of class T placed at `at`, not in the store yet: to be
    // filled in, required children first, and inserted whole.
    template <class T> T newAt(kel::Location const& at);
    // Inserts a new object; the stored object.
    template <class T> T const& insert(T object);
    // A new object of class T named `name`, placed at `at` and stored.
    template <class T> T const& namedAt(std::string const& name, kel::Location const& at);
    // Inserts a new object and puts it where `old` stood.
    template <class T> T const& replaceBy(om::Object const& old, T object);

    std::map<om::Oid, std::unique_ptr<Scope>> m_scopes;
};

template <class S> S& Resolver::getScope(om::Oid id, Scope const& parent) {
    std::unique_ptr<Scope>& slot = m_scopes[id];
    if (slot == nullptr) {
        slot = std::make_unique<S>(parent);
    }
    return dynamic_cast<S&>(*slot);
}

template <class S> S* Resolver::tryGetScope(om::Oid id) const {
    auto found = m_scopes.find(id);
    return found == m_scopes.end() ? nullptr : dynamic_cast<S*>(found->second.get());
}

template <class Reference> void Resolver::setDeclaration(Reference const& reference, om::Oid id) {
    Reference copy(reference);
    copy.setDeclaration(id);
    m_model.update(copy);
}

template <class Declaration, class Reference>
bool Resolver::resolveByName(Reference const& reference, std::string const& name,
                             Scope const& scope, std::string const& message) {
    if (reference.hasDeclaration()) {
        return true;
    }
    om::Oid id = lookupCompoundName(name, scope, false);
    if (dynamic_cast<Declaration const*>(m_model.tryFind(id)) == nullptr) {
        errorAt(reference, message);
        return FALSE();
    }
    setDeclaration(reference, id);
    return true;
}

template <class T> T Resolver::newAt(kel::Location const& at) {
    auto created = kel::NewObject<T>(m_model);
    setLocation(created, at);
    return created;
}

template <class T> T const& Resolver::insert(T object) {
    return kel::Find<T>(m_model, kel::Insert(m_model, std::move(object)));
}

template <class T> T const& Resolver::namedAt(std::string const& name, kel::Location const& at) {
    auto created = newAt<T>(at);
    created.setName(name);
    return insert(std::move(created));
}

template <class T> T const& Resolver::replaceBy(om::Object const& old, T object) {
    T const& stored = insert(std::move(object));
    replaceInParent(old, stored);
    return stored;
}

} // namespace language
