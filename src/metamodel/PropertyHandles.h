// The generic interface hands out a property by name as a reference to an
// om::PropertyValueBase, while the generated classes keep their properties as
// plain fields. The handle lives here instead, one per object and property,
// holding the value of the latest request.
#pragma once

#include "metamodel/PropertyValue.h"
#include "om/Object.h"
#include "om/PropertyValueBase.h"

#include <string>

namespace kel {

// The handle of `object`'s property `key` (a key constant of its class), set to `value`.
om::PropertyValueBase const& PropertyHandle(om::Object const& object, std::string const& key,
                                            PropertyValue value);

} // namespace kel
