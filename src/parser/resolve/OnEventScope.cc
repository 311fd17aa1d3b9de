#include "parser/resolve/OnEventScope.h"

namespace language {

void OnEventScope::print() const { printTables("OnEventScope: ", {{"  variables: ", variables}}); }

} // namespace language
