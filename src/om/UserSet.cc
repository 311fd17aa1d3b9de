#include "om/UserSet.h"

#include "om/DenseIdMap.h"

#include <algorithm>
#include <memory>

namespace om {

// More than one user: sorted in `few` up to FewUsers, then all in `all`.
struct UserSet::Many {
    struct Present {
        bool operator==(Present const&) const = default;
    };
    static constexpr std::size_t FewUsers = 64;

    std::vector<Oid> few;
    std::unique_ptr<DenseIdMap<Present>> all;
};

void UserSet::deleteMany() noexcept {
    delete &many();
    m_word = 0;
}

bool UserSet::holdSingle(Oid id) {
    std::uintptr_t const word = (static_cast<std::uintptr_t>(id) << 1) | 1;
    if (id == NULL_OID || static_cast<Oid>(static_cast<std::int64_t>(word) >> 1) != id) {
        return false; // an id of the highest magnitudes loses its top bit
    }
    m_word = word;
    return true;
}

bool UserSet::insert(Oid id) {
    if (holdsMany()) {
        return insertIntoMany(id);
    }
    Oid const one = single();
    if (one == id) {
        return false;
    }
    if (one == NULL_OID && holdSingle(id)) {
        return true;
    }
    auto users = std::make_unique<Many>();
    if (one != NULL_OID) {
        users->few.push_back(one);
    }
    m_word = reinterpret_cast<std::uintptr_t>(users.release());
    return insertIntoMany(id);
}

bool UserSet::insertIntoMany(Oid id) {
    Many& users = many();
    if (users.all != nullptr) {
        return users.all->tryEmplace(id).second;
    }
    auto const at = std::ranges::lower_bound(users.few, id);
    if (at != users.few.end() && *at == id) {
        return false;
    }
    users.few.insert(at, id);
    if (users.few.size() > Many::FewUsers) {
        users.all = std::make_unique<DenseIdMap<Many::Present>>();
        for (Oid const user : users.few) {
            users.all->tryEmplace(user);
        }
        std::vector<Oid>().swap(users.few);
    }
    return true;
}

bool UserSet::erase(Oid id) {
    if (!holdsMany()) {
        if (id == NULL_OID || single() != id) {
            return false;
        }
        m_word = 0;
        return true;
    }
    Many& users = many();
    if (users.all != nullptr) {
        return users.all->erase(id);
    }
    auto const at = std::ranges::lower_bound(users.few, id);
    if (at == users.few.end() || *at != id) {
        return false;
    }
    users.few.erase(at);
    return true;
}

bool UserSet::contains(Oid id) const {
    if (!holdsMany()) {
        return id != NULL_OID && single() == id;
    }
    Many const& users = many();
    return users.all != nullptr ? users.all->contains(id)
                                : std::ranges::binary_search(users.few, id);
}

std::size_t UserSet::size() const {
    if (!holdsMany()) {
        return m_word != 0 ? 1 : 0;
    }
    Many const& users = many();
    return users.all != nullptr ? users.all->size() : users.few.size();
}

std::vector<Oid> UserSet::sorted() const {
    if (!holdsMany()) {
        return m_word == 0 ? std::vector<Oid>{} : std::vector<Oid>{single()};
    }
    Many const& users = many();
    if (users.all == nullptr) {
        return users.few;
    }
    std::vector<Oid> ids;
    users.all->forEach([&](Oid id, Many::Present) { ids.push_back(id); });
    return ids;
}

} // namespace om
