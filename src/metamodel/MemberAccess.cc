#include "metamodel/MemberAccess.h"

#include <unordered_set>

namespace kel {
namespace {

// Adds the ids not held yet, in order. One id is searched for; many are
// checked against one set, so adding thousands stays linear.
template <class Ids> void InsertAll(om::Object& parent, std::string const& key, Ids const& ids) {
    if (ids.empty()) {
        return;
    }
    auto value = parent.getComposition(key);
    if (ids.size() == 1) {
        value.insert(*ids.begin());
    } else {
        std::vector<om::Oid> all = value.asOidVec();
        std::unordered_set<om::Oid> held(all.begin(), all.end());
        for (auto id : ids) {
            if (held.insert(id).second) {
                all.push_back(id);
            }
        }
        value.assign(all);
    }
    parent.setComposition(key, value);
}

} // namespace

std::vector<om::Object const*> ChildrenWhere(om::Object const& parent,
                                             bool (*accept)(om::Object const&)) {
    std::vector<om::Object const*> result;
    auto const& model = parent.getOwner();
    for (auto const& [key, ids] : parent.getCompositions()) {
        for (auto id : ids) {
            auto const* child = model.find(id);
            if (accept(*child)) {
                result.push_back(child);
            }
        }
    }
    return result;
}

void ReplaceChildren(om::Object& parent, std::string const& key, std::vector<om::Oid> const& ids) {
    auto value = parent.getComposition(key);
    value.assign(ids);
    parent.setComposition(key, value);
}

void AddChildren(om::Object& parent, std::string const& key, std::vector<om::Oid> const& ids) {
    InsertAll(parent, key, ids);
}

void AddChildren(om::Object& parent, std::string const& key, std::set<om::Oid> const& ids) {
    InsertAll(parent, key, ids);
}

void RemoveChildId(om::Object& parent, std::string const& key, om::Oid id) {
    auto value = parent.getComposition(key);
    value.erase(id);
    parent.setComposition(key, value);
}

} // namespace kel
