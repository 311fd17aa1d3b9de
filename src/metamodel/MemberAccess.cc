#include "metamodel/MemberAccess.h"

namespace kel {
namespace {

template <class Ids>
void InsertAll(om::Object& parent, std::string const& key, Ids const& ids, bool replace) {
    auto value = parent.getComposition(key);
    if (replace) {
        value.clear();
    }
    for (auto id : ids) {
        if (replace) {
            value.push_back(id);
        } else {
            value.insert(id);
        }
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
    InsertAll(parent, key, ids, true);
}

void AddChildren(om::Object& parent, std::string const& key, std::vector<om::Oid> const& ids) {
    InsertAll(parent, key, ids, false);
}

void AddChildren(om::Object& parent, std::string const& key, std::set<om::Oid> const& ids) {
    InsertAll(parent, key, ids, false);
}

void RemoveChildId(om::Object& parent, std::string const& key, om::Oid id) {
    auto value = parent.getComposition(key);
    value.erase(id);
    parent.setComposition(key, value);
}

} // namespace kel
