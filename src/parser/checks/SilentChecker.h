// The silence analysis: for each function of one behaviour, and for any
// statement of it, whether running it performs an action.
#pragma once

#include "metamodel/Kel.h"
#include "om/Oid.h"
#include "parser/checks/Silentness.h"

#include <map>

namespace language {

class SilentChecker {
public:
    // An empty map; getFixedPoint fills it.
    explicit SilentChecker(kel::Behaviour const& behaviour);

    // The value of every function of the behaviour, recursive ones iterated
    // until nothing changes.
    void getFixedPoint(kel::Behaviour const& behaviour);

    Silentness isSilent(kel::BehaviourStatement const& statement);
    Silentness isSilent(kel::Expression const& expression);
    // A function not in the map reads as Silent, and is entered so.
    Silentness isSilentFunction(kel::FunctionDeclaration const& function);

    // Two values in sequence.
    static Silentness isSilentSemicolon(Silentness first, Silentness second);
    // Two alternative values.
    static Silentness isSilentIf(Silentness first, Silentness second);

private:
    Silentness isSilentCall(kel::FunctionCallExpression const& call);
    Silentness isSilentCompound(kel::CompoundStatement const& compound);

    std::map<om::Oid, Silentness> m_functions;
};

} // namespace language
