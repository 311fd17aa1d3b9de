// Lookups of the root, the files and the declarations that every store holds
// without any source text saying so. The forms on a const store return null
// for what is not there; the forms on a changeable store make it first and
// never return null.
#pragma once

#include "metamodel/ConstModelDeclarationVec.h"
#include "metamodel/EventDeclaration.h"
#include "metamodel/File.h"
#include "metamodel/InterfaceDeclaration.h"
#include "metamodel/Namespace.h"
#include "metamodel/Root.h"
#include "metamodel/TypeDeclaration.h"
#include "om/ObjectModel.h"

#include <string>

namespace kel {

// The first root object that is a Root; OMException when there is none.
Root const& GetRoot(om::ObjectModel const& model);

// The namespace of Root with the empty name.
Namespace const* GetDefaultNamespace(om::ObjectModel const& model);
Namespace const* GetDefaultNamespace(om::ObjectModel& model);

// The namespace "kel" in the default namespace.
Namespace const* GetKelNamespace(om::ObjectModel const& model);
Namespace const* GetKelNamespace(om::ObjectModel& model);

// The interface with the empty name in the default namespace.
InterfaceDeclaration const* GetDefaultInterface(om::ObjectModel const& model);
InterfaceDeclaration const* GetDefaultInterface(om::ObjectModel& model);

// The event "illegal" of the default interface.
EventDeclaration const* GetIllegalEvent(om::ObjectModel const& model);
EventDeclaration const* GetIllegalEvent(om::ObjectModel& model);

// The type "bool" of the default namespace.
TypeDeclaration const* GetBoolTypeDeclaration(om::ObjectModel& model);

// The File of Root with that name; OMException when there is none.
File const& GetFile(om::ObjectModel const& model, std::string const& name);

// The last model of Root's top-level namespaces whose File has that name.
ModelDeclaration const* FindModelByFileName(om::ObjectModel const& model, std::string const& name);
// All of them, in order.
ConstModelDeclarationVec FindModelsByFileName(om::ObjectModel const& model,
                                              std::string const& name);

} // namespace kel
