#include "parser/resolve/CompoundScope.h"

namespace language {

void CompoundScope::print() const {
    printTables("CompoundScope: ", {{"  variables: ", variables}});
}

} // namespace language
