#include "metamodel/Locations.h"

#include "metamodel/BuiltinDeclarations.h"
#include "metamodel/ConstFileVec.h"
#include "metamodel/ConstLocationVec.h"
#include "metamodel/ConstNamedVec.h"
#include "om/AsType.h"
#include "om/ObjectModel.h"

namespace kel {

void CopyLocation(Location& target, Location const& source) {
    target.setBeginColumn(source.getBeginColumn());
    target.setBeginLine(source.getBeginLine());
    target.setEndColumn(source.getEndColumn());
    target.setEndLine(source.getEndLine());
    target.setColumn(source.getColumn());
    target.setLine(source.getLine());
    target.setFile(GetFile(target.getOwner(), source.getFile().getName()));
}

void CopyNameAndLocation(Named& target, Named const& source) {
    target.setName(source.getName());
    CopyLocation(target, source);
}

om::Oid UpdateLocation(om::Oid id, Location const& location) {
    // Objects point to their store as readers; the store itself is not
    // const, and update is the one way to change it.
    auto& model = const_cast<om::ObjectModel&>(location.getOwner());
    Location copy(om::AsType<Location>(*model.find(id)));
    CopyLocation(copy, location);
    model.update(copy);
    return id;
}

} // namespace kel
