#include "parser/resolve/EnumTypeScope.h"

namespace language {

om::Oid EnumTypeScope::findName(std::string const& name) const {
    return findFirst({{"Value", values}}, name);
}

std::string EnumTypeScope::getType(std::string const& name) const {
    return kindOfFirst({{"Value", values}}, name);
}

void EnumTypeScope::print() const { printTables("EnumTypeScope: ", {{"  values: ", values}}); }

} // namespace language
