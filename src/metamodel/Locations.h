// Copying source positions between syntax-tree objects.
#pragma once

#include "metamodel/Location.h"
#include "metamodel/Named.h"
#include "om/Oid.h"

namespace kel {

// Copies the six positions and sets target's File to the File of the same
// name in target's store; `source` must have a File.
void CopyLocation(Location& target, Location const& source);
// The name, then CopyLocation.
void CopyNameAndLocation(Named& target, Named const& source);
// Gives the stored object `id` the location of `location`, in the store
// that holds `location`; returns `id`.
om::Oid UpdateLocation(om::Oid id, Location const& location);

} // namespace kel
