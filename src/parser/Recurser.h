// Whether functions of a behaviour can reach themselves through calls.
#pragma once

#include "metamodel/Kel.h"
#include "om/Oid.h"

#include <vector>

namespace language {

class Recurser {
public:
    // The behaviour is not kept: the store of each function gives the rest.
    explicit Recurser(kel::Behaviour const& behaviour);

    // The functions called directly in the function's statement, each once, in
    // the order of their first call.
    std::vector<om::Oid> containingCalls(kel::FunctionDeclaration const& function) const;
    // Whether `target` is reached from `function`; `visited` is the path so far.
    bool containsRecursiveCallToFunction(om::Oid target, kel::FunctionDeclaration const& function,
                                         std::vector<om::Oid> const& visited) const;
    // Whether the statement holds a call from which `function` is reached.
    bool containsRecursiveCallTo(kel::FunctionDeclaration const& function,
                                 kel::BehaviourStatement const& statement) const;
    bool exprContainsRecursiveCallTo(kel::FunctionDeclaration const& function,
                                     kel::Expression const& expression) const;
    bool isRecursiveFunction(kel::FunctionDeclaration const& function) const;

private:
    void addContainingCalls(kel::BehaviourStatement const& statement,
                            std::vector<om::Oid>& calls) const;
    void addContainingCallsInExpr(kel::Expression const& expression,
                                  std::vector<om::Oid>& calls) const;
};

// Whether the function reaches itself; OMException outside a behaviour.
bool isRecursive(kel::FunctionDeclaration const& function);

} // namespace language
