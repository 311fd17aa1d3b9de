#include "metamodel/MemberAccess.h"

#include <unordered_set>

namespace kel {
namespace {

// Adds the ids not held yet, in order. One id is added in place: parsers add
// the members of a block one by one, and a copy of the list per member would
// make a block of thousands quadratic in bytes copied. Many are checked
// against one set, so adding thousands at once stays linear.
template <class Ids> void InsertAll(om::Object& parent, std::string const& key, Ids const& ids) {
    if (ids.empty()) {
        return;
    }
    if (ids.size() == 1) {
        auto& stored = parent.getCompositionRef(key);
        auto const id = *ids.begin();
        bool const inserted = stored.insert(id);
        try {
            parent.getDefinition().getCompositionDef(key).check(nullptr, stored);
        } catch (...) {
            if (inserted) {
                stored.erase(id);
            }
            throw;
        }
        return;
    }
    auto value = parent.getComposition(key);
    std::vector<om::Oid> all = value.asOidVec();
    std::unordered_set<om::Oid> held(all.begin(), all.end());
    for (auto id : ids) {
        if (held.insert(id).second) {
            all.push_back(id);
        }
    }
    value.assign(all);
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
