#include "parser/resolve/ModelScope.h"

namespace language {

om::Oid ModelScope::findName(std::string const&) const { return om::NULL_OID; }

std::string ModelScope::getType(std::string const&) const { return ""; }

void ModelScope::print() const { printTables("ModelScope: ", {}); }

} // namespace language
