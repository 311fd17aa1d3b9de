#include "parser/resolve/RootScope.h"

namespace language {

om::Oid RootScope::findName(std::string const& name) const {
    return findFirst({{"Namespace", namespaces}}, name);
}

std::string RootScope::getType(std::string const& name) const {
    return kindOfFirst({{"Namespace", namespaces}}, name);
}

void RootScope::print() const { printTables("RootScope: ", {{"  namespaces: ", namespaces}}); }

} // namespace language
