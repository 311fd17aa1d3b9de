#include "parser/resolve/SystemScope.h"

namespace language {

om::Oid SystemScope::findName(std::string const& name) const {
    return findFirst({{"Instance", instances}, {"Port", ports}}, name);
}

std::string SystemScope::getType(std::string const& name) const {
    return kindOfFirst({{"Instance", instances}, {"Port", ports}}, name);
}

void SystemScope::print() const {
    printTables("SystemScope: ", {{"  ports: ", ports}, {"  instances: ", instances}});
}

} // namespace language
