// The last pass of the front end: the rules of the language that neither the
// grammar nor the types state, on a resolved and type-correct tree. Every
// check reports and goes on, and returns true when it found nothing.
#pragma once

#include "metamodel/Kel.h"
#include "metamodel/TreePredicates.h"
#include "om/ObjectModel.h"
#include "parser/checks/BindingQueries.h"
#include "parser/checks/Recurser.h"
#include "parser/checks/SilentChecker.h"
#include "parser/grammar/ParserBase.h"

#include <map>
#include <set>
#include <string>

namespace language {

class WellformednessChecker : public ParserBase {
public:
    WellformednessChecker(om::ObjectModel& model, Files* files);

    // The default namespace, which holds every declaration of the user.
    bool checkWellformedness();

    // ---- Declarations.
    bool checkWellformednessNamespace(kel::Namespace const& space);
    bool checkWellformednessInterface(kel::InterfaceDeclaration const& interface);
    // A component without a system.
    bool checkWellformednessComponent(kel::ComponentDeclaration const& component);
    bool checkWellformednessInternal(kel::InternalDeclaration const& internal);
    bool checkInjectedPorts(kel::ComponentDeclaration const& component);
    bool checkModelNameclash(kel::Named const& named);
    // The label of a declaration or reference in messages.
    static std::string showClassName(kel::Named const& named);

    // ---- Systems.
    // A component with a system.
    bool checkWellformednessSystem(kel::ComponentDeclaration const& component);
    bool checkMissingBindings(kel::System const& system);
    bool checkDoubleBindings(kel::System const& system);
    bool checkBindingDirections(kel::System const& system);
    bool checkBindingExternals(kel::System const& system);
    bool checkCycles(kel::System const& system);
    bool checkRecursiveNesting(kel::ComponentDeclaration const& component);

    // ---- Behaviours and functions.
    bool checkWellformednessBehaviour(kel::Behaviour const& behaviour);
    bool checkWellformednessFunction(kel::FunctionDeclaration const& function);
    using StatementCheck = bool (WellformednessChecker::*)(kel::BehaviourStatement const&);
    // The check on the statement and on every statement below it.
    bool checkRecursive(kel::BehaviourStatement const& statement, StatementCheck check);

    // ---- Placement of statements.
    bool checkOnOrBlockingSeen(kel::BehaviourStatement const& statement, bool onSeen,
                               bool blockingSeen);
    bool checkBlocking(kel::BehaviourStatement const& statement);
    bool checkMixingRelaxedVec(kel::ConstBehaviourStatementVec const& statements);
    bool checkMixingRelaxed(kel::BehaviourStatement const& statement);
    bool checkMixingRelaxedDeclarative(kel::BehaviourStatement const& statement);
    bool checkMixingRelaxedDeclarative(kel::ConstBehaviourStatementVec const& statements);
    bool checkMixingRelaxedOtherwise(kel::ConstBehaviourStatementVec const& statements,
                                     kel::GuardedStatement const& otherwiseStatement);
    bool checkMixingImperative(kel::BehaviourStatement const& statement);
    bool checkMixingImperative(kel::ConstBehaviourStatementVec const& statements);
    bool checkMixingIllegal(kel::ConstBehaviourStatementVec const& statements);
    bool checkDirection(kel::BehaviourStatement const& statement);
    // The first statement that is no compound, looking into compounds in order.
    static kel::BehaviourStatement const*
    tryFindFirstStatement(kel::ConstBehaviourStatementVec const& statements);
    // The first guarded statement of the list itself with an otherwise guard.
    static kel::GuardedStatement const*
    tryFindOtherwise(kel::ConstBehaviourStatementVec const& statements);
    // The label of a statement in the placement messages.
    static std::string showClassName(kel::BehaviourStatement const& statement);

    // ---- Values, returns and subranges.
    bool checkValued(kel::BehaviourStatement const& statement);
    bool checkSimpleValued(kel::Expression const& expression);
    bool checkValuedExpr(kel::Expression const& expression);
    bool checkConstExpr(kel::Expression const& expression);
    bool checkNoReturn(kel::BehaviourStatement const& statement);
    bool checkSubInt(kel::IntTypeDeclaration const& type);
    // Whether all paths through the statement end in a return.
    static bool hasReturn(kel::BehaviourStatement const& statement);
    // Adds a return without value at the end of the compound.
    void addMissingReturn(kel::CompoundStatement const& compound);

    // ---- Replies.
    bool checkReply(kel::BehaviourStatement const& statement);

    // ---- Modeling events and tail recursion.
    bool checkModeling(kel::Behaviour const& behaviour);
    bool checkModelingStatement(kel::BehaviourStatement const& statement,
                                SilentChecker& silentChecker);
    bool checkRecursion(kel::Behaviour const& behaviour);
    bool checkTailRecursive(kel::CompoundStatement const& compound,
                            kel::FunctionDeclaration const& function, Recurser const& recurser);

private:
    // Reports "Well-formedness error: " and the text at the object; always false.
    bool report(kel::Location const& at, std::string const& message);

    // For each side named so far, the indexes of the bindings that name it.
    using EarlierBindings = std::map<SideIdentity, std::vector<std::size_t>>;
    bool checkBindingSides(kel::BindingStatement const& binding, EarlierBindings const& earlier);
    bool checkBindingDirection(kel::BindingStatement const& binding);
    bool checkBindingExternal(kel::InterfaceInstance const& side,
                              kel::InterfaceInstance const& peer);
    bool checkEventDeclaration(kel::EventDeclaration const& event);
    bool checkReplyPort(kel::ReplyStatement const& reply);
    bool checkReplyType(kel::ReplyStatement const& reply);
    bool checkTailRecursiveInside(kel::BehaviourStatement const& statement,
                                  kel::FunctionDeclaration const& function,
                                  Recurser const& recurser);

    // Made for the model under check and cleared after it.
    void takeTriggersOf(kel::ModelDeclaration const& model);
    void clearTriggers();
    bool isTrigger(kel::EventInstance const& event) const;

    // The triggers of the model under check; they exist only during its check.
    kel::ConstEventInstanceVec m_triggers;
    // Their identities: a model can have thousands of triggers and actions.
    std::set<kel::EventIdentity> m_triggerIdentities;
};

} // namespace language
