#include "metamodel/ConstEventDeclarationVec.h"

#include "metamodel/BuiltinDeclarations.h"
#include "metamodel/ConstFileVec.h"
#include "metamodel/ConstInterfaceDeclarationVec.h"
#include "metamodel/ConstModelDeclarationVec.h"
#include "metamodel/ConstNamespaceVec.h"
#include "metamodel/ConstRootVec.h"
#include "metamodel/ConstTypeDeclarationVec.h"
#include "metamodel/ConstructionSupport.h"
#include "metamodel/DeclarationConstructors.h"
#include "om/OMException.h"

namespace kel {
namespace {

template <class Vec> auto FirstNamed(Vec const& candidates, std::string const& name) {
    for (auto const* candidate : candidates) {
        if (candidate->getName() == name) {
            return candidate;
        }
    }
    return static_cast<typename Vec::value_type>(nullptr);
}

// Adds the stored object `childId` to `parent` through `add` and returns it.
template <class T, class Parent> T const* AddNew(om::ObjectModel& model, Parent const& parent,
                                                 om::Oid childId, void (Parent::*add)(om::Oid)) {
    Parent copy(parent);
    (copy.*add)(childId);
    Store(model, copy);
    return &Find<T>(model, childId);
}

// Walks the ids rather than getModels(): the default namespace can hold every
// model of a large source, and this is asked once per illegal action.
InterfaceDeclaration const* FirstDefaultInterface(Namespace const& space) {
    om::ObjectModel const& model = space.getOwner();
    for (om::Oid const id : space.getComposition(Namespace::ModelsComposition)) {
        auto const* interface = dynamic_cast<InterfaceDeclaration const*>(model.find(id));
        if (interface != nullptr && interface->getName().empty()) {
            return interface;
        }
    }
    return nullptr;
}

} // namespace

Root const& GetRoot(om::ObjectModel const& model) {
    om::Object const* root = model.findRoot(
        [](om::Object const& object) { return dynamic_cast<Root const*>(&object) != nullptr; });
    if (root != nullptr) {
        return static_cast<Root const&>(*root);
    }
    throw om::OMException("ObjectModel does not seem to contain a root object");
}

Namespace const* GetDefaultNamespace(om::ObjectModel const& model) {
    return FirstNamed(GetRoot(model).getNamespaces(), "");
}

Namespace const* GetDefaultNamespace(om::ObjectModel& model) {
    auto const& constModel = model;
    if (auto const* found = GetDefaultNamespace(constModel)) {
        return found;
    }
    return AddNew<Namespace>(model, GetRoot(model), NewNamed<Namespace>(model, ""),
                             &Root::addToNamespaces);
}

Namespace const* GetKelNamespace(om::ObjectModel const& model) {
    auto const* space = GetDefaultNamespace(model);
    return space == nullptr ? nullptr : FirstNamed(space->getNamespaces(), "kel");
}

Namespace const* GetKelNamespace(om::ObjectModel& model) {
    auto const& space = *GetDefaultNamespace(model);
    if (auto const* found = FirstNamed(space.getNamespaces(), "kel")) {
        return found;
    }
    return AddNew<Namespace>(model, space, NewNamed<Namespace>(model, "kel"),
                             &Namespace::addToNamespaces);
}

InterfaceDeclaration const* GetDefaultInterface(om::ObjectModel const& model) {
    auto const* space = GetDefaultNamespace(model);
    return space == nullptr ? nullptr : FirstDefaultInterface(*space);
}

InterfaceDeclaration const* GetDefaultInterface(om::ObjectModel& model) {
    auto const& space = *GetDefaultNamespace(model);
    if (auto const* found = FirstDefaultInterface(space)) {
        return found;
    }
    return AddNew<InterfaceDeclaration>(model, space,
                                        constructInterfaceDeclaration(model, "", om::NULL_OID),
                                        &Namespace::addToModels);
}

EventDeclaration const* GetIllegalEvent(om::ObjectModel const& model) {
    auto const* interface = GetDefaultInterface(model);
    return interface == nullptr ? nullptr : FirstNamed(interface->getEvents(), "illegal");
}

EventDeclaration const* GetIllegalEvent(om::ObjectModel& model) {
    auto const& interface = *GetDefaultInterface(model);
    if (auto const* found = FirstNamed(interface.getEvents(), "illegal")) {
        return found;
    }
    auto const eventId = constructEventDeclaration(model, edirOut, "void", "illegal", {});
    return AddNew<EventDeclaration>(model, interface, eventId, &InterfaceDeclaration::addToEvents);
}

TypeDeclaration const* GetBoolTypeDeclaration(om::ObjectModel& model) {
    auto const& space = *GetDefaultNamespace(model);
    if (auto const* found = FirstNamed(space.getTypes(), "bool")) {
        return found;
    }
    return AddNew<TypeDeclaration>(model, space, NewNamed<TypeDeclaration>(model, "bool"),
                                   &Namespace::addToTypes);
}

File const& GetFile(om::ObjectModel const& model, std::string const& name) {
    if (auto const* file = FirstNamed(GetRoot(model).getFiles(), name)) {
        return *file;
    }
    throw om::OMException("ObjectModel does not seem to contain File object with name " + name);
}

ConstModelDeclarationVec FindModelsByFileName(om::ObjectModel const& model,
                                              std::string const& name) {
    ConstModelDeclarationVec result;
    for (auto const* declaration : GetRoot(model).getNamespaces().getModels()) {
        auto const* file = declaration->tryGetFile();
        if (file != nullptr && file->getName() == name) {
            result.push_back(declaration);
        }
    }
    return result;
}

ModelDeclaration const* FindModelByFileName(om::ObjectModel const& model, std::string const& name) {
    auto const models = FindModelsByFileName(model, name);
    return models.empty() ? nullptr : models.back();
}

} // namespace kel
