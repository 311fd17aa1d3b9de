// Where an object stands in the tree, and the provided ports of a component.
#pragma once

#include "metamodel/Kel.h"
#include "om/AsType.h"
#include "om/Object.h"

#include <vector>

namespace language {

// The nearest ancestor of class T, or null.
template <class T> T const* tryGetAncestor(om::Object const& object) {
    om::Object const* found = object.tryGetParentOfType(T::ClassName);
    return found != nullptr ? &om::AsType<T>(*found) : nullptr;
}

// The ports of direction provided, in declaration order.
std::vector<kel::PortDeclaration const*> providedPorts(kel::ComponentDeclaration const& component);

} // namespace language
