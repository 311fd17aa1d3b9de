// A map from object id to value for the ids of one store. The process-wide
// generator hands out ids one after the other, so the ids of a store lie
// close together: their values sit in a vector indexed by the distance from
// the lowest id, and a lookup is one index. An id far outside that window,
// which only an object made for another store or given an id by hand
// brings, goes to an ordered map instead.
#pragma once

#include "om/Oid.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <map>
#include <utility>
#include <vector>

namespace om {

template <class V> class DenseIdMap {
public:
    V const* find(Oid id) const noexcept {
        if (std::uint64_t const at = offsetOf(id); at < m_values.size()) {
            return m_present[at] ? &m_values[at] : nullptr;
        }
        return findFar(id);
    }
    V* find(Oid id) noexcept { return const_cast<V*>(std::as_const(*this).find(id)); }
    bool contains(Oid id) const noexcept { return find(id) != nullptr; }
    std::size_t size() const { return m_windowCount + m_far.size(); }

    // The value of `id`, made with V{} when missing.
    V& operator[](Oid id) { return *tryEmplace(id).first; }
    // The value of `id`, and whether it was made with V{} because it was missing.
    std::pair<V*, bool> tryEmplace(Oid id) {
        if (V* found = find(id)) {
            return {found, false};
        }
        if (offsetOf(id) >= m_values.size() && !coverInWindow(id)) {
            return {&m_far[id], true};
        }
        std::size_t const at = offsetOf(id);
        m_present[at] = true;
        m_values[at] = V{};
        ++m_windowCount;
        ++m_entered;
        return {&m_values[at], true};
    }
    // Whether there was a value to remove.
    bool erase(Oid id) {
        if (std::uint64_t const at = offsetOf(id); at < m_values.size()) {
            if (!m_present[at]) {
                return false;
            }
            m_present[at] = false;
            m_values[at] = V{};
            --m_windowCount;
            return true;
        }
        return m_far.erase(id) != 0;
    }
    void clear() { *this = DenseIdMap(); }

    // Calls stop(id, value) for the entries in ascending id order until it
    // returns true; returns whether it did.
    template <class Stop> bool findIf(Stop stop) const {
        auto far = m_far.begin();
        for (; far != m_far.end() && far->first < m_base; ++far) {
            if (stop(far->first, far->second)) {
                return true;
            }
        }
        for (std::size_t at = 0; at < m_values.size(); ++at) {
            if (m_present[at] && stop(m_base + static_cast<Oid>(at), m_values[at])) {
                return true;
            }
        }
        for (; far != m_far.end(); ++far) {
            if (stop(far->first, far->second)) {
                return true;
            }
        }
        return false;
    }
    // Calls visit(id, value) for every entry in ascending id order.
    template <class Visit> void forEach(Visit visit) const {
        findIf([&](Oid id, V const& value) {
            visit(id, value);
            return false;
        });
    }

    // The same ids with equal values.
    bool operator==(DenseIdMap const& other) const {
        std::vector<std::pair<Oid, V const*>> mine;
        forEach([&](Oid id, V const& value) { mine.emplace_back(id, &value); });
        auto next = mine.begin();
        bool same = size() == other.size();
        other.forEach([&](Oid id, V const& value) {
            same = same && next != mine.end() && next->first == id && *next->second == value;
            ++next;
        });
        return same;
    }

private:
    // Wraps for ids below the window, so that one comparison rules them out too.
    std::uint64_t offsetOf(Oid id) const noexcept {
        return static_cast<std::uint64_t>(id) - static_cast<std::uint64_t>(m_base);
    }
    V const* findFar(Oid id) const noexcept {
        if (m_far.empty()) {
            return nullptr;
        }
        auto const found = m_far.find(id);
        return found == m_far.end() ? nullptr : &found->second;
    }

    // Widens the window to hold `id`, which lies outside it, unless that would
    // leave it mostly empty; the window at least doubles when it grows, so
    // that growing at either end costs constant time per id.
    bool coverInWindow(Oid id) {
        Oid const low = m_values.empty() ? id : std::min(id, m_base);
        Oid const high = m_values.empty() ? id : std::max(id, m_base + windowSize() - 1);
        std::uint64_t const span = static_cast<std::uint64_t>(high - low) + 1;
        if (span > 2 * m_entered + MinimumWindow) {
            return false;
        }
        if (low < m_base || m_values.empty()) {
            growFront(low);
        }
        if (offsetOf(id) >= m_values.size()) {
            growBack(id);
        }
        return true;
    }
    void growFront(Oid low) {
        if (m_values.empty()) {
            m_base = low;
            return;
        }
        std::uint64_t const missing = static_cast<std::uint64_t>(m_base - low);
        std::uint64_t const headroom =
            static_cast<std::uint64_t>(low) - static_cast<std::uint64_t>(LowestId);
        std::size_t const added =
            missing + std::min<std::uint64_t>(std::max<std::uint64_t>(missing, m_values.size()),
                                              headroom);
        std::vector<V> values(added + m_values.size());
        std::move(m_values.begin(), m_values.end(), values.begin() + static_cast<std::ptrdiff_t>(added));
        m_values = std::move(values);
        m_present.insert(m_present.begin(), added, false);
        Oid const oldBase = m_base;
        m_base -= static_cast<Oid>(added);
        adoptFar(m_base, oldBase);
    }
    void growBack(Oid id) {
        Oid const oldEnd = m_base + windowSize();
        std::size_t const needed = offsetOf(id) + 1;
        m_values.resize(std::max(needed, 2 * m_values.size()));
        m_present.resize(m_values.size(), false);
        adoptFar(oldEnd, m_base + windowSize());
    }
    // Moves the far entries with ids in [from, to) into the window.
    void adoptFar(Oid from, Oid to) {
        if (m_far.empty()) {
            return;
        }
        auto first = m_far.lower_bound(from);
        auto const last = m_far.lower_bound(to);
        for (auto entry = first; entry != last; ++entry) {
            std::size_t const at = offsetOf(entry->first);
            m_values[at] = std::move(entry->second);
            m_present[at] = true;
            ++m_windowCount;
        }
        m_far.erase(first, last);
    }
    Oid windowSize() const { return static_cast<Oid>(m_values.size()); }

    // Up to this many ids the window may be empty but for one entry.
    static constexpr std::uint64_t MinimumWindow = 1024;
    static constexpr Oid LowestId = std::numeric_limits<Oid>::min();

    std::vector<V> m_values;
    std::vector<bool> m_present;
    Oid m_base = 0;
    std::size_t m_windowCount = 0;
    std::size_t m_entered = 0;
    std::map<Oid, V> m_far;
};

} // namespace om
