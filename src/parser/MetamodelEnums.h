// The syntax tree's direction enumerations that the grammar's values carry.
#pragma once

#include <cstdint>

// Stands in for the generated metamodel header until that exists; the names
// and values are the metamodel's own.
namespace kel {

enum EventDirection : std::int32_t { edirUnknown = 0, edirIn = 1, edirOut = 2 };

enum PortDirection : std::int32_t { idirUnknown = 0, idirProvided = 1, idirRequired = 2 };

enum ParameterDirection : std::int32_t { pdirUnknown = 0, pdirIn = 1, pdirOut = 2, pdirInOut = 3 };

} // namespace kel
