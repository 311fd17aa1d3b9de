#include "om/UserSet.h"

#include <algorithm>
#include <utility>

namespace om {

bool UserSet::insert(Oid id) {
    if (m_many != nullptr) {
        return insertIntoMany(id);
    }
    if (m_single == NULL_OID || m_single == id) {
        return std::exchange(m_single, id) != id;
    }
    m_many = std::make_unique<Many>();
    m_many->few = {std::min(m_single, id), std::max(m_single, id)};
    m_single = NULL_OID;
    return true;
}

bool UserSet::insertIntoMany(Oid id) {
    if (m_many->all != nullptr) {
        return m_many->all->tryEmplace(id).second;
    }
    std::vector<Oid>& few = m_many->few;
    auto const at = std::ranges::lower_bound(few, id);
    if (at != few.end() && *at == id) {
        return false;
    }
    few.insert(at, id);
    if (few.size() > FewUsers) {
        m_many->all = std::make_unique<DenseIdMap<Present>>();
        for (Oid const user : few) {
            m_many->all->tryEmplace(user);
        }
        std::vector<Oid>().swap(few);
    }
    return true;
}

bool UserSet::erase(Oid id) {
    if (m_many == nullptr) {
        if (id == NULL_OID || m_single != id) {
            return false;
        }
        m_single = NULL_OID;
        return true;
    }
    if (m_many->all != nullptr) {
        return m_many->all->erase(id);
    }
    std::vector<Oid>& few = m_many->few;
    auto const at = std::ranges::lower_bound(few, id);
    if (at == few.end() || *at != id) {
        return false;
    }
    few.erase(at);
    return true;
}

bool UserSet::contains(Oid id) const {
    if (m_many == nullptr) {
        return id != NULL_OID && m_single == id;
    }
    return m_many->all != nullptr ? m_many->all->contains(id)
                                  : std::ranges::binary_search(m_many->few, id);
}

std::size_t UserSet::size() const {
    if (m_many == nullptr) {
        return m_single != NULL_OID ? 1 : 0;
    }
    return m_many->all != nullptr ? m_many->all->size() : m_many->few.size();
}

std::vector<Oid> UserSet::sorted() const {
    if (m_many == nullptr) {
        return m_single == NULL_OID ? std::vector<Oid>{} : std::vector<Oid>{m_single};
    }
    if (m_many->all == nullptr) {
        return m_many->few;
    }
    std::vector<Oid> ids;
    m_many->all->forEach([&](Oid id, Present) { ids.push_back(id); });
    return ids;
}

} // namespace om
