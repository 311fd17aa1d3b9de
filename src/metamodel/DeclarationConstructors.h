// Construction helpers for declarations, models and systems. Each makes one
// node with its children in the store and returns its id; an id of 0 leaves
// an optional member empty, and the type name "void" means no type.
// References keep their names unresolved.
#pragma once

#include "metamodel/Enumerations.h"
#include "om/ObjectModel.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kel {

using OidVec = std::vector<om::Oid>;

om::Oid constructInterfaceDeclaration(om::ObjectModel& model, std::string const& name,
                                      om::Oid behaviourId);
om::Oid constructEventDeclaration(om::ObjectModel& model, EventDirection direction,
                                  std::string const& returnTypeName, std::string const& name,
                                  OidVec const& parameterIds);
om::Oid constructBehaviour(om::ObjectModel& model, std::string const& name);
om::Oid constructEnumTypeDeclaration(om::ObjectModel& model, std::string const& name,
                                     OidVec const& valueIds);
om::Oid constructEnumValueDeclaration(om::ObjectModel& model, std::string const& name);
om::Oid constructIntTypeDeclaration(om::ObjectModel& model, std::string const& name,
                                    std::int32_t minValue, std::int32_t maxValue);
om::Oid constructDataTypeDeclaration(om::ObjectModel& model, std::string const& name,
                                     std::string const& value);
om::Oid constructVariableDeclaration(om::ObjectModel& model, std::string const& typeName,
                                     std::string const& name, om::Oid initialValueId);
om::Oid constructVariableDeclarationStatement(om::ObjectModel& model, om::Oid variableId);
// A required port of the named interface.
om::Oid constructInternalDeclaration(om::ObjectModel& model, std::string const& interfaceName,
                                     std::string const& name, OidVec const& parameterIds);
om::Oid constructFunctionDeclaration(om::ObjectModel& model, std::string const& returnTypeName,
                                     std::string const& name, OidVec const& parameterIds);
om::Oid constructFormalParameter(om::ObjectModel& model, ParameterDirection direction,
                                 std::string const& typeName, std::string const& name);
om::Oid constructComponentDeclaration(om::ObjectModel& model, std::string const& name,
                                      OidVec const& portIds, om::Oid behaviourId, om::Oid systemId);
om::Oid constructPortDeclaration(om::ObjectModel& model, std::string const& interfaceName,
                                 std::string const& name, PortDirection direction, bool injected,
                                 bool external);
// Instance declarations go to Instances, everything else to Statements.
om::Oid constructSystem(om::ObjectModel& model, OidVec const& ids);
om::Oid constructInstantiationStatement(om::ObjectModel& model, std::string const& componentName,
                                        std::string const& name);
// The port "*" is a wildcard; an empty instance name leaves Component unset.
om::Oid constructBindingStatement(om::ObjectModel& model, std::string const& leftInstance,
                                  std::string const& leftPort, std::string const& rightInstance,
                                  std::string const& rightPort);

} // namespace kel
