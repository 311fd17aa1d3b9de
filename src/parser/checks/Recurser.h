// Whether functions of a behaviour can reach themselves through calls.
#pragma once

#include "metamodel/Kel.h"
#include "om/Oid.h"

#include <map>
#include <vector>

namespace language {

class Recurser {
public:
    // Groups the functions of the behaviour, and those they call, into
    // components of the call graph; the behaviour itself is not kept.
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
    // Whether `function` is reached from `callee`, called at `call`.
    bool reaches(om::Oid callee, kel::FunctionDeclaration const& function,
                 kel::Expression const& call) const;
    void findComponents(std::map<om::Oid, std::vector<om::Oid>> const& calls);

    // A function reaches every function of its component and, when it calls
    // another, is reached back exactly when both share a component: so a
    // call inside a function needs no walk. Made once, as a chain of calls
    // can be as long as the source.
    std::map<om::Oid, std::size_t> m_components;
};

// Whether the function reaches itself; OMException outside a behaviour.
bool isRecursive(kel::FunctionDeclaration const& function);

} // namespace language
