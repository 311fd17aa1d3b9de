#include "parser/resolve/NamespaceScope.h"

namespace language {

om::Oid NamespaceScope::findName(std::string const& name) const {
    return findFirst({{"Namespace", namespaces},
                      {"Interface", interfaces},
                      {"Component", components},
                      {"Type", types}},
                     name);
}

std::string NamespaceScope::getType(std::string const& name) const {
    return kindOfFirst({{"Namespace", namespaces},
                        {"Interface", interfaces},
                        {"Component", components},
                        {"Type", types}},
                       name);
}

void NamespaceScope::print() const {
    printTables("NamespaceScope: ", {{"  namespaces: ", namespaces},
                                     {"  interfaces: ", interfaces},
                                     {"  components: ", components},
                                     {"  types: ", types}});
}

} // namespace language
