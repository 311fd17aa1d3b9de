#include "parser/resolve/ComponentScope.h"

namespace language {

om::Oid ComponentScope::findName(std::string const& name) const {
    return findFirst({{"Port", ports}}, name);
}

std::string ComponentScope::getType(std::string const& name) const {
    return kindOfFirst({{"Port", ports}}, name);
}

void ComponentScope::print() const { printTables("ComponentScope: ", {{"  ports: ", ports}}); }

} // namespace language
