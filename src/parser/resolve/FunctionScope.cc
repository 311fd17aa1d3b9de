#include "parser/resolve/FunctionScope.h"

namespace language {

om::Oid FunctionScope::findName(std::string const& name) const {
    return findFirst({{"Parameter", parameters}, {"Variable", variables}}, name);
}

std::string FunctionScope::getType(std::string const& name) const {
    return kindOfFirst({{"Parameter", parameters}, {"Variable", variables}}, name);
}

void FunctionScope::print() const {
    printTables("FunctionScope: ", {{"  variables: ", variables}, {"  parameters: ", parameters}});
}

} // namespace language
