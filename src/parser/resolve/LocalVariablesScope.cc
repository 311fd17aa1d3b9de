#include "parser/resolve/LocalVariablesScope.h"

namespace language {

om::Oid LocalVariablesScope::findName(std::string const& name) const {
    return findFirst({{"Variable", variables}}, name);
}

std::string LocalVariablesScope::getType(std::string const& name) const {
    return kindOfFirst({{"Variable", variables}}, name);
}

void LocalVariablesScope::print() const {
    printTables("LocalVariablesScope: ", {{"  variables: ", variables}});
}

} // namespace language
