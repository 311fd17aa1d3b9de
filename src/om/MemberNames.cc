#include "om/MemberNames.h"

#include <algorithm>
#include <map>
#include <memory>
#include <numeric>

namespace om {
namespace {

using Registry = std::map<std::vector<std::string>, std::unique_ptr<MemberNames const>>;

Registry& registry() {
    // Never destroyed: objects that outlive static destruction still point here.
    static Registry* const lists = new Registry();
    return *lists;
}

} // namespace

MemberNames::MemberNames(std::vector<std::string> names)
    : m_names(std::move(names)), m_byName(m_names.size()) {
    std::iota(m_byName.begin(), m_byName.end(), Slot(0));
    std::ranges::sort(m_byName, [&](Slot a, Slot b) { return m_names[a] < m_names[b]; });
}

MemberNames const& MemberNames::empty() {
    static MemberNames const& none = of({});
    return none;
}

MemberNames const& MemberNames::of(std::vector<std::string> const& names) {
    auto [entry, added] = registry().try_emplace(names);
    if (added) {
        entry->second = std::make_unique<MemberNames const>(names);
    }
    return *entry->second;
}

MemberNames const& MemberNames::with(std::string const& name) const {
    std::vector<std::string> names = m_names;
    names.push_back(name);
    return of(names);
}

MemberNames::Slot MemberNames::find(std::string const& name) const {
    // Binary search over the name order; a class has a handful of members.
    auto const found = std::ranges::lower_bound(
        m_byName, name, std::less<>(), [&](Slot slot) -> std::string const& { return m_names[slot]; });
    return found != m_byName.end() && m_names[*found] == name ? *found : NoSlot;
}

} // namespace om
