// How the interpreter classifies statements: which are actions, and of which kind.
#pragma once

#include "metamodel/BehaviourStatement.h"

class KelSemantics {
public:
    // An action statement, or an assignment or declaration whose value is one.
    static bool IsAction(kel::BehaviourStatement const& statement);
    // An out-event without return, other than "illegal".
    static bool IsEventSendAction(kel::BehaviourStatement const& statement);
    // Every other action: a call that must return.
    static bool IsEventCallAction(kel::BehaviourStatement const& statement);
    // A call on an internal port: `req` or `clr`.
    static bool IsInternalAction(kel::BehaviourStatement const& statement);
};
