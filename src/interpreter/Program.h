// The control stack of one state: scopes, each with the statements it still
// has to run. A plain value; a fork copies it.
#pragma once

#include "metamodel/BehaviourStatement.h"
#include "metamodel/ModelDeclaration.h"

#include <boost/container/small_vector.hpp>

struct ProgramScope {
    // The behaviour's top statement.
    bool IsMainProgram() const;
    // An imperative block; the main scope counts as one too.
    bool IsCompound() const;
    // A function body, owned by the statement that called it.
    bool IsFunction() const;

    // The next statement at the back. A scope rarely holds more than a few,
    // and every step and fork touches them: they live in place.
    boost::container::small_vector<kel::BehaviourStatement const*, 4> statements;
    kel::BehaviourStatement const* owner = nullptr;
};

class Program {
public:
    // One main scope holding the behaviour's statement; none without behaviour.
    explicit Program(kel::ModelDeclaration const& model);

    void OpenScope(kel::BehaviourStatement const& owner);
    // std::runtime_error without scope and for the main scope.
    void CloseScope();
    void PushStatement(kel::BehaviourStatement const& statement);
    // Null, with nothing removed, when the current scope is depleted.
    kel::BehaviourStatement const* PopNextStatement();
    kel::BehaviourStatement const* TopStatement() const;
    bool IsCurrentScopeDepleted() const;
    kel::BehaviourStatement const* GetScopeOwner() const;
    // Null without scope.
    ProgramScope const* CurrentScope() const;
    // Puts the scope's owner back on it: the main program starts over.
    void MainProgramReturn();

    // The current scope at the back; a fork copies them without allocating
    // while calls and blocks nest no deeper than this.
    boost::container::small_vector<ProgramScope, 4> scopes;
};
