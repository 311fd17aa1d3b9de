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
