#include "om/IdDelta.h"

#include <algorithm>
#include <iterator>

namespace om {
namespace {

void sortUnique(std::vector<Oid>& ids) {
    std::ranges::sort(ids);
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
}

std::vector<Oid> difference(std::vector<Oid> const& from, std::vector<Oid> const& minus) {
    std::vector<Oid> result;
    std::ranges::set_difference(from, minus, std::back_inserter(result));
    return result;
}

template <class List> void appendAll(std::vector<Oid>& to, List const& list) {
    to.insert(to.end(), list.begin(), list.end());
}

// Appends what lies between the common head and tail of the two lists.
template <class List> void appendMiddles(List const& before, List const& after, IdDelta& delta) {
    auto [oldFirst, newFirst] =
        std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    auto oldLast = before.end();
    auto newLast = after.end();
    while (oldLast != oldFirst && newLast != newFirst && oldLast[-1] == newLast[-1]) {
        --oldLast;
        --newLast;
    }
    delta.removed.insert(delta.removed.end(), oldFirst, oldLast);
    delta.added.insert(delta.added.end(), newFirst, newLast);
}

// Pairs the lists of equal names: slot by slot when both maps hold the same
// names, as the two states of one object mostly do, else by a merge by name.
template <class Map> void pairLists(Map const& before, Map const& after, IdDelta& delta) {
    if (&before.names() == &after.names()) {
        for (MemberNames::Slot slot = 0; slot < before.size(); ++slot) {
            appendMiddles(before.atSlot(slot), after.atSlot(slot), delta);
        }
        return;
    }
    auto old = before.begin();
    auto now = after.begin();
    while (old != before.end() || now != after.end()) {
        if (now == after.end() || (old != before.end() && old->first < now->first)) {
            appendAll(delta.removed, (old++)->second);
        } else if (old == before.end() || now->first < old->first) {
            appendAll(delta.added, (now++)->second);
        } else {
            appendMiddles((old++)->second, (now++)->second, delta);
        }
    }
}

template <class Map> IdDelta deltaOfMaps(Map const& before, Map const& after) {
    IdDelta delta;
    pairLists(before, after, delta);
    if (delta.removed.empty() && delta.added.empty()) {
        return delta;
    }
    sortUnique(delta.removed);
    sortUnique(delta.added);
    if (delta.removed.empty() || delta.added.empty()) {
        return delta;
    }
    // An id on both sides only moved: it is held before and after.
    return {difference(delta.removed, delta.added), difference(delta.added, delta.removed)};
}

template <class Map> bool holds(Map const& map, Oid id) {
    return std::ranges::any_of(map, [id](auto const& entry) { return entry.second.contains(id); });
}

template <class Map> void dropStillHeldIn(std::vector<Oid>& removed, Map const& after) {
    // A few ids are looked for list by list; many against one sorted copy of all.
    constexpr std::size_t fewIds = 8;
    if (removed.size() <= fewIds) {
        std::erase_if(removed, [&](Oid id) { return holds(after, id); });
        return;
    }
    std::vector<Oid> held;
    for (auto const& entry : after) {
        appendAll(held, entry.second);
    }
    std::ranges::sort(held);
    std::erase_if(removed, [&](Oid id) { return std::ranges::binary_search(held, id); });
}

} // namespace

IdDelta deltaOf(Object::AssociationMap const& before, Object::AssociationMap const& after) {
    return deltaOfMaps(before, after);
}

IdDelta deltaOf(Object::CompositionMap const& before, Object::CompositionMap const& after) {
    return deltaOfMaps(before, after);
}

void dropStillHeld(std::vector<Oid>& removed, Object::AssociationMap const& after) {
    dropStillHeldIn(removed, after);
}

void dropStillHeld(std::vector<Oid>& removed, Object::CompositionMap const& after) {
    dropStillHeldIn(removed, after);
}

} // namespace om
