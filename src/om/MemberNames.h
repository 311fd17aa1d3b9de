// The names of one kind of member of an object (its associations, or its
// compositions) in the order of their slots. Every object of a class holds
// the same names, so each distinct list exists once in the process and
// objects point to it instead of keeping names of their own.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace om {

class MemberNames {
public:
    using Slot = std::uint32_t;
    static constexpr Slot NoSlot = ~Slot(0);

    // The list without names.
    static MemberNames const& empty();
    // The one list of these names in this order; made on the first request
    // and kept until the process ends, as objects point to it.
    static MemberNames const& of(std::vector<std::string> const& names);

    // This list with `name` appended as the last slot.
    MemberNames const& with(std::string const& name) const;

    Slot size() const { return static_cast<Slot>(m_names.size()); }
    std::string const& name(Slot slot) const { return m_names[slot]; }
    // The slot of the name at position `rank` in name order: walks in name
    // order are what every caller sees.
    Slot slotByRank(Slot rank) const { return m_byName[rank]; }
    // The slot of `name`, or NoSlot.
    Slot find(std::string const& name) const;

    explicit MemberNames(std::vector<std::string> names);
    MemberNames(MemberNames const&) = delete;
    MemberNames& operator=(MemberNames const&) = delete;

private:
    std::vector<std::string> m_names;
    std::vector<Slot> m_byName;
};

} // namespace om
