#include "parser/resolve/BehaviourScope.h"

namespace language {

om::Oid BehaviourScope::findName(std::string const& name) const {
    return findFirst(
        {{"Type", types}, {"Event", internals}, {"Function", functions}, {"Variable", variables}},
        name);
}

std::string BehaviourScope::getType(std::string const& name) const {
    return kindOfFirst(
        {{"Type", types}, {"Event", internals}, {"Function", functions}, {"Variable", variables}},
        name);
}

void BehaviourScope::print() const {
    printTables("BehaviourScope: ", {{"  variables: ", variables},
                                     {"  types: ", types},
                                     {"  internals: ", internals},
                                     {"  functions: ", functions}});
}

} // namespace language
