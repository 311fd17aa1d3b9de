// Small helpers that the generated accessors share: following ids into the
// owner model, collecting from typed vectors, and changing a composition on a
// copy of its value.
#pragma once

#include "om/AsType.h"
#include "om/CompositionValue.h"
#include "om/OMException.h"
#include "om/Object.h"
#include "om/ObjectModel.h"

#include <set>
#include <string>
#include <type_traits>
#include <vector>

namespace kel {

// The object under `id` in the owner of `holder`, as a T.
template <class T> T const& ResolveId(om::Object const& holder, om::Oid id) {
    return om::AsType<T>(*holder.getOwner().find(id));
}

// The objects of an id list, in order, as a typed vector.
template <class Vec, class Ids> Vec ResolveIds(om::Object const& holder, Ids const& ids) {
    using T = std::remove_cv_t<std::remove_pointer_t<typename Vec::value_type>>;
    Vec result;
    result.reserve(ids.size());
    for (auto id : ids) {
        result.push_back(&ResolveId<T>(holder, id));
    }
    return result;
}

// The children of `parent`, compositions in key order, that `accept` lets through.
std::vector<om::Object const*> ChildrenWhere(om::Object const& parent,
                                             bool (*accept)(om::Object const&));

// The children of `parent` of the vector's class, compositions in key order.
template <class Vec> Vec ChildrenOfClass(om::Object const& parent) {
    using T = std::remove_cv_t<std::remove_pointer_t<typename Vec::value_type>>;
    auto const children = ChildrenWhere(
        parent, [](om::Object const& child) { return om::IsA<T>(child); });
    Vec result;
    result.reserve(children.size());
    for (auto const* child : children) {
        result.push_back(static_cast<T const*>(child));
    }
    return result;
}

// Lets `add` append what each element contributes.
template <class Result, class Vec, class Add> Result CollectFrom(Vec const& vec, Add add) {
    Result result;
    for (auto const* element : vec) {
        add(*element, result);
    }
    return result;
}

template <class To, class From> To Upcast(From const& from) { return To(from.begin(), from.end()); }

// Keeps the elements that are of the target's class.
template <class To, class From> To Downcast(From const& from) {
    using T = std::remove_cv_t<std::remove_pointer_t<typename To::value_type>>;
    To result;
    for (auto const* element : from) {
        if (auto const* typed = om::TryAs<T>(element)) {
            result.push_back(typed);
        }
    }
    return result;
}

// Null for an empty vector, the element for one; more is an error that names the vector.
template <class Vec> typename Vec::value_type SingleElement(Vec const& vec, char const* vecName) {
    if (vec.size() > 1) {
        throw om::OMException(std::string("toPtr(): More than one object in ") + vecName + ".");
    }
    return vec.empty() ? nullptr : vec.front();
}

void ReplaceChildren(om::Object& parent, std::string const& key, std::vector<om::Oid> const& ids);
void AddChildren(om::Object& parent, std::string const& key, std::vector<om::Oid> const& ids);
void AddChildren(om::Object& parent, std::string const& key, std::set<om::Oid> const& ids);
void RemoveChildId(om::Object& parent, std::string const& key, om::Oid id);

} // namespace kel
