// Construction from declarations that are already resolved: the references
// made here have their Declaration set at once.
#pragma once

#include "metamodel/ConstParameterDeclarationVec.h"
#include "metamodel/EnumValueDeclaration.h"
#include "metamodel/EventDeclaration.h"
#include "metamodel/EventInstance.h"
#include "metamodel/PortDeclaration.h"
#include "om/ObjectModel.h"

#include <vector>

namespace kel {

// An instance of `event` with no port, with the event's name and location.
om::Oid ConstructEventInstance(om::ObjectModel& model, EventDeclaration const& event);
// "port.event", at the location of the port.
om::Oid ConstructEventInstance(om::ObjectModel& model, EventDeclaration const& event,
                               PortDeclaration const& port);
om::Oid ConstructEnumConstantExpression(om::ObjectModel& model, EnumValueDeclaration const& value);
// A copy of the parameter with an unresolved reference to its type's name.
om::Oid copyParameterDeclaration(om::ObjectModel& model, ParameterDeclaration const& parameter);
std::vector<om::Oid> copyParameters(om::ObjectModel& model,
                                    ConstParameterDeclarationVec const& parameters);
void DestructEventInstance(om::ObjectModel& model, EventInstance const& instance);

} // namespace kel
