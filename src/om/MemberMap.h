// A map from member name to value that keeps its names in a shared
// MemberNames list and only its values of its own: in place when there are
// few, as for most objects, else in one heap block, instead of a tree node
// and a name per member. It reads like an ordered map: walks go in name
// order and yield (name, value) pairs.
#pragma once

#include "om/MemberNames.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <string>
#include <utility>

namespace om {

template <class Value> class MemberMap {
public:
    using Slot = MemberNames::Slot;
    using key_type = std::string;
    using mapped_type = Value;
    using value_type = std::pair<std::string const&, Value const&>;
    using size_type = std::size_t;

    class const_iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = MemberMap::value_type;
        using difference_type = std::ptrdiff_t;
        using pointer = void;
        using reference = value_type;

        const_iterator() = default;
        const_iterator(MemberMap const* map, Slot rank) : m_map(map), m_rank(rank) {}
        value_type operator*() const {
            Slot const slot = m_map->m_names->slotByRank(m_rank);
            return {m_map->m_names->name(slot), m_map->values()[slot]};
        }
        // The pair lives in the proxy, as long as the full expression.
        struct Arrow {
            value_type pair;
            value_type const* operator->() const { return &pair; }
        };
        Arrow operator->() const { return {**this}; }
        const_iterator& operator++() {
            ++m_rank;
            return *this;
        }
        const_iterator operator++(int) {
            const_iterator old = *this;
            ++m_rank;
            return old;
        }
        bool operator==(const_iterator const& other) const { return m_rank == other.m_rank; }

    private:
        MemberMap const* m_map = nullptr;
        Slot m_rank = 0;
    };
    using iterator = const_iterator;

    MemberMap() noexcept : m_names(&MemberNames::empty()) { layOut(); }
    // One empty value per name.
    explicit MemberMap(MemberNames const& names) : m_names(&names) { layOut(); }
    MemberMap(MemberMap const& other) : MemberMap(*other.m_names) { copyValues(other); }
    MemberMap(MemberMap&& other) noexcept : m_names(other.m_names) { takeValues(other); }
    MemberMap& operator=(MemberMap const& other) {
        if (m_names != other.m_names) {
            return *this = MemberMap(other);
        }
        copyValues(other);
        return *this;
    }
    MemberMap& operator=(MemberMap&& other) noexcept {
        if (this != &other) {
            clear();
            m_names = other.m_names;
            takeValues(other);
        }
        return *this;
    }
    ~MemberMap() { clear(); }

    MemberNames const& names() const { return *m_names; }
    size_type size() const { return m_names->size(); }
    bool empty() const { return size() == 0; }
    const_iterator begin() const { return {this, 0}; }
    const_iterator end() const { return {this, m_names->size()}; }

    // Direct access by slot, which the caller knows to be in range.
    Value const& atSlot(Slot slot) const { return values()[slot]; }
    Value& atSlot(Slot slot) { return values()[slot]; }

    // The value of `name`, or null.
    Value const* find(std::string const& name) const {
        Slot const slot = m_names->find(name);
        return slot == MemberNames::NoSlot ? nullptr : &values()[slot];
    }
    Value* find(std::string const& name) {
        return const_cast<Value*>(static_cast<MemberMap const&>(*this).find(name));
    }
    bool contains(std::string const& name) const { return find(name) != nullptr; }

    // The value of `name`, added empty when the map lacks the name.
    Value& operator[](std::string const& name) {
        if (Value* found = find(name)) {
            return *found;
        }
        MemberMap grown(m_names->with(name));
        std::move(values(), values() + size(), grown.values());
        *this = std::move(grown);
        return values()[size() - 1];
    }

    // Equal names and equal values, walked in name order as an ordered map compares.
    bool operator==(MemberMap const& other) const {
        if (m_names == other.m_names) {
            return std::equal(values(), values() + size(), other.values());
        }
        return size() == other.size() && std::equal(begin(), end(), other.begin(),
                                                     [](value_type a, value_type b) {
                                                         return a.first == b.first &&
                                                                a.second == b.second;
                                                     });
    }

private:
    static constexpr Slot InPlace = 2;

    bool inPlace() const { return size() <= InPlace; }
    Value* values() { return inPlace() ? m_inPlace : m_onHeap; }
    Value const* values() const { return inPlace() ? m_inPlace : m_onHeap; }
    // Empty values for the names, where their number says.
    void layOut() {
        if (inPlace()) {
            std::uninitialized_value_construct_n(m_inPlace, InPlace);
        } else {
            m_onHeap = new Value[size()]();
        }
    }
    // Ends the values and leaves the map without names.
    void clear() noexcept {
        if (inPlace()) {
            std::destroy_n(m_inPlace, InPlace);
        } else {
            delete[] m_onHeap;
        }
        m_names = &MemberNames::empty();
    }
    void copyValues(MemberMap const& other) {
        std::copy(other.values(), other.values() + size(), values());
    }
    // Takes the values of `other`, which the names of this map describe, and
    // leaves `other` without names.
    void takeValues(MemberMap& other) noexcept {
        if (inPlace()) {
            std::uninitialized_move_n(other.m_inPlace, InPlace, m_inPlace);
            std::destroy_n(other.m_inPlace, InPlace);
        } else {
            m_onHeap = other.m_onHeap;
        }
        other.m_names = &MemberNames::empty();
        other.layOut();
    }

    MemberNames const* m_names;
    // The values live here while they fit, else on the heap.
    union {
        Value m_inPlace[InPlace];
        Value* m_onHeap;
    };
};

} // namespace om
