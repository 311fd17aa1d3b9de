#include "parser/resolve/InterfaceScope.h"

namespace language {

om::Oid InterfaceScope::findName(std::string const& name) const {
    return findFirst({{"Type", types}, {"Event", internals}}, name);
}

std::string InterfaceScope::getType(std::string const& name) const {
    return kindOfFirst({{"Type", types}, {"Event", internals}}, name);
}

void InterfaceScope::print() const {
    printTables("InterfaceScope: ", {{"  types: ", types}, {"  internals: ", internals}});
}

} // namespace language
