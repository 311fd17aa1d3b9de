// The syntax tree's direction enumerations that the grammar's values carry.
#pragma once

// Stands in for the generated metamodel header until that exists; the names
// and values are the metamodel's own.
namespace kel {

enum EventDirection { edirUnknown = 0, edirIn = 1, edirOut = 2 };

enum PortDirection { idirUnknown = 0, idirProvided = 1, idirRequired = 2 };

enum ParameterDirection { pdirUnknown = 0, pdirIn = 1, pdirOut = 2, pdirInOut = 3 };

} // namespace kel
