// Where statements may stand: on and blocking nesting, declarative and
// imperative lists, illegal, triggers and actions.
#include "parser/checks/WellformednessChecker.h"

#include "metamodel/TreePredicates.h"
#include "om/OMException.h"
#include "parser/checks/ModelQueries.h"
#include "parser/checks/StatementQueries.h"

namespace language {

namespace {

bool isBehaviourRoot(kel::BehaviourStatement const& statement) {
    om::Object const* parent = statement.tryGetParent();
    return parent != nullptr && dynamic_cast<kel::Behaviour const*>(parent) != nullptr;
}

// Statements that run in order and are not looked into by the placement
// checks; an empty compound counts among them unless it is a whole behaviour.
bool isPlainStatement(kel::BehaviourStatement const& statement) {
    if (kel::CompoundStatement const* compound = statement.asCompoundStatement()) {
        return !compound->hasStatements() && !isBehaviourRoot(statement);
    }
    return kel::IsImperative(statement);
}

template <class T> bool hasAncestor(om::Object const& object) {
    return tryGetAncestor<T>(object) != nullptr;
}

} // namespace

bool WellformednessChecker::checkOnOrBlockingSeen(kel::BehaviourStatement const& statement,
                                                  bool onSeen, bool blockingSeen) {
    if (isPlainStatement(statement)) {
        return onSeen || report(statement,
                                showClassName(statement) + " only allowed within OnEventStatement");
    }
    bool ok = true;
    if (statement.asBlockingStatement() != nullptr) {
        if (blockingSeen) {
            ok = report(statement, "BlockingStatement not allowed within other BlockingStatement");
        }
        blockingSeen = true;
    } else if (statement.asOnEventStatement() != nullptr) {
        if (onSeen) {
            ok = report(statement, "OnEventStatement not allowed within other OnEventStatement");
        }
        onSeen = true;
    } else if (statement.asGuardedStatement() == nullptr &&
               statement.asCompoundStatement() == nullptr) {
        return true;
    }
    for (kel::BehaviourStatement const* inner : innerStatements(statement)) {
        ok = checkOnOrBlockingSeen(*inner, onSeen, blockingSeen) && ok;
    }
    return ok;
}

bool WellformednessChecker::checkBlocking(kel::BehaviourStatement const& statement) {
    if (isPlainStatement(statement)) {
        return true;
    }
    bool ok = true;
    if (statement.asBlockingStatement() != nullptr) {
        auto const* component = tryGetAncestor<kel::ComponentDeclaration>(statement);
        if (hasAncestor<kel::InterfaceDeclaration>(statement)) {
            ok = report(statement, "BlockingStatement not allowed in interface behaviour");
        } else if (component != nullptr && providedPorts(*component).size() >= 2) {
            ok = report(statement, "BlockingStatement not allowed with multiple provides ports");
        }
    }
    for (kel::BehaviourStatement const* inner : innerStatements(statement)) {
        ok = checkBlocking(*inner) && ok;
    }
    return ok;
}

bool WellformednessChecker::checkMixingRelaxedVec(
    kel::ConstBehaviourStatementVec const& statements) {
    kel::BehaviourStatement const* first = tryFindFirstStatement(statements);
    if (first == nullptr) {
        return true;
    }
    if (kel::GuardedStatement const* otherwise = tryFindOtherwise(statements)) {
        // Its errors stand; the list is judged by its first statement alone.
        checkMixingRelaxedOtherwise(statements, *otherwise);
    }
    if (first->asGuardedStatement() == nullptr && first->asOnEventStatement() == nullptr &&
        first->asBlockingStatement() == nullptr) {
        return checkMixingImperative(statements);
    }
    bool ok = true;
    for (kel::BehaviourStatement const* statement : statements) {
        ok = checkMixingRelaxedDeclarative(*statement) && ok;
    }
    return ok;
}

bool WellformednessChecker::checkMixingRelaxedOtherwise(
    kel::ConstBehaviourStatementVec const& statements,
    kel::GuardedStatement const& otherwiseStatement) {
    bool ok = true;
    for (kel::BehaviourStatement const* statement : statements) {
        kel::GuardedStatement const* guarded = statement->asGuardedStatement();
        if (statement->getOid() == otherwiseStatement.getOid() ||
            (guarded != nullptr && guarded->hasGuard() &&
             guarded->getGuard().asOtherwiseGuard() == nullptr)) {
            continue;
        }
        if (guarded != nullptr && guarded->hasGuard()) {
            report(otherwiseStatement,
                   "Otherwise guard combined with second otherwise is not allowed");
            ok = report(*statement, "Second otherwise defined here");
        } else {
            report(otherwiseStatement,
                   "Otherwise guard combined with non GuardedStatement is not allowed");
            ok = report(*statement, "non GuardedStatement defined here");
        }
    }
    return ok;
}

bool WellformednessChecker::checkMixingRelaxedDeclarative(
    kel::BehaviourStatement const& statement) {
    if (kel::CompoundStatement const* compound = statement.asCompoundStatement()) {
        return checkMixingRelaxedDeclarative(compound->getStatementsVec());
    }
    if (statement.asOnEventStatement() != nullptr || statement.asGuardedStatement() != nullptr ||
        statement.asBlockingStatement() != nullptr) {
        return checkMixingRelaxed(*innerStatements(statement).front());
    }
    return report(statement, "Only declarative Statement allowed here");
}

bool WellformednessChecker::checkMixingRelaxedDeclarative(
    kel::ConstBehaviourStatementVec const& statements) {
    bool ok = true;
    for (kel::BehaviourStatement const* statement : statements) {
        ok = checkMixingRelaxedDeclarative(*statement) && ok;
    }
    return ok;
}

bool WellformednessChecker::checkMixingRelaxed(kel::BehaviourStatement const& statement) {
    if (kel::CompoundStatement const* compound = statement.asCompoundStatement()) {
        return checkMixingRelaxedVec(compound->getStatementsVec());
    }
    if (statement.asOnEventStatement() == nullptr && statement.asGuardedStatement() == nullptr &&
        statement.asBlockingStatement() == nullptr && statement.asIfStatement() == nullptr) {
        return true;
    }
    bool ok = true;
    for (kel::BehaviourStatement const* inner : innerStatements(statement)) {
        ok = checkMixingRelaxed(*inner) && ok;
    }
    return ok;
}

bool WellformednessChecker::checkMixingImperative(
    kel::ConstBehaviourStatementVec const& statements) {
    bool ok = true;
    for (kel::BehaviourStatement const* statement : statements) {
        ok = checkMixingImperative(*statement) && ok;
    }
    return checkMixingIllegal(statements) && ok;
}

bool WellformednessChecker::checkMixingImperative(kel::BehaviourStatement const& statement) {
    if (kel::CompoundStatement const* compound = statement.asCompoundStatement()) {
        return checkMixingImperative(compound->getStatementsVec());
    }
    if (statement.asIfStatement() != nullptr) {
        bool ok = true;
        for (kel::BehaviourStatement const* branch : innerStatements(statement)) {
            ok = checkMixingImperative(*branch) && ok;
        }
        return ok;
    }
    if (!kel::IsImperative(statement)) {
        return report(statement, "Only imperative Statement allowed here");
    }
    if (statement.asActionStatement() == nullptr || !kel::IsIllegal(statement) ||
        !hasAncestor<kel::InterfaceDeclaration>(statement)) {
        return true;
    }
    if (hasAncestor<kel::FunctionDeclaration>(statement)) {
        return report(statement, "Illegal is not allowed in functions");
    }
    if (hasAncestor<kel::IfStatement>(statement)) {
        return report(statement, "Illegal is not allowed in if-then-else statements");
    }
    return true;
}

bool WellformednessChecker::checkMixingIllegal(kel::ConstBehaviourStatementVec const& statements) {
    if (getSize(statements) < 2) {
        return true;
    }
    kel::ActionStatement const* illegal = findIllegal(statements);
    return illegal == nullptr ||
           report(*illegal, "Illegal must be the only Statement in a compound");
}

void WellformednessChecker::takeTriggersOf(kel::ModelDeclaration const& model) {
    m_triggers = GetAllTriggers(model);
    for (kel::EventInstance const* trigger : m_triggers) {
        if (auto const identity = kel::IdentityOf(*trigger)) {
            m_triggerIdentities.insert(*identity);
        }
    }
}

void WellformednessChecker::clearTriggers() {
    ClearAllTriggers(m_triggers);
    m_triggerIdentities.clear();
}

// vecIsMember against the triggers, in log time.
bool WellformednessChecker::isTrigger(kel::EventInstance const& event) const {
    auto const identity = kel::IdentityOf(event);
    return identity.has_value() && m_triggerIdentities.contains(*identity);
}

bool WellformednessChecker::checkDirection(kel::BehaviourStatement const& statement) {
    if (kel::OnEventStatement const* on = statement.asOnEventStatement()) {
        bool ok = true;
        for (kel::EventInstance const* event : on->getEventsVec()) {
            if (!isTrigger(*event)) {
                ok = report(*event, "Event is not a valid trigger: " + q(event->getName()));
            }
        }
        return ok;
    }
    kel::EventInstance const* action = kel::tryGetActionEventInstance(statement);
    if (action != nullptr && isTrigger(*action)) {
        return report(*action, "Event is not an action: " + q(action->getName()));
    }
    return true;
}

kel::BehaviourStatement const*
WellformednessChecker::tryFindFirstStatement(kel::ConstBehaviourStatementVec const& statements) {
    for (kel::BehaviourStatement const* statement : statements) {
        kel::CompoundStatement const* compound = statement->asCompoundStatement();
        if (compound == nullptr) {
            return statement;
        }
        if (kel::BehaviourStatement const* found =
                tryFindFirstStatement(compound->getStatementsVec())) {
            return found;
        }
    }
    return nullptr;
}

kel::GuardedStatement const*
WellformednessChecker::tryFindOtherwise(kel::ConstBehaviourStatementVec const& statements) {
    for (kel::BehaviourStatement const* statement : statements) {
        kel::GuardedStatement const* guarded = statement->asGuardedStatement();
        if (guarded != nullptr && guarded->hasGuard() &&
            guarded->getGuard().asOtherwiseGuard() != nullptr) {
            return guarded;
        }
    }
    return nullptr;
}

std::string WellformednessChecker::showClassName(kel::BehaviourStatement const& statement) {
    static std::pair<std::string const*, char const*> const labels[] = {
        {&kel::ActionStatement::ClassName, "Action statement"},
        {&kel::AssignmentStatement::ClassName, "Assignment statement"},
        {&kel::VariableDeclarationStatement::ClassName, "Variable declaration"},
        {&kel::ReplyStatement::ClassName, "Reply statement"},
        {&kel::ReturnStatement::ClassName, "Return statement"},
        {&kel::FunctionCallStatement::ClassName, "Function call"},
        {&kel::CompoundStatement::ClassName, "Compound statement"},
        {&kel::GuardedStatement::ClassName, "Guarded statement"},
        {&kel::BlockingStatement::ClassName, "Blocking statement"},
        {&kel::OnEventStatement::ClassName, "On event statement"},
        {&kel::IfStatement::ClassName, "If statement"}};
    for (auto const& [name, label] : labels) {
        if (*name == statement.getClassName()) {
            return label;
        }
    }
    throw om::OMException("unexpected statement type in showClassName: " +
                          statement.getClassName());
}

} // namespace language
