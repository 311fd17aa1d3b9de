// The objects of an id list as a range that finds each object in the store
// when a walk reaches it: a walk over a composition without building a vector.
// It reads the list in place, so a change of the list ends its use.
#pragma once

#include "om/AsType.h"
#include "om/ObjectModel.h"
#include "om/Oid.h"

#include <compare>
#include <cstddef>
#include <iterator>
#include <utility>

namespace om {

template <class T> class ObjectView {
public:
    class iterator {
    public:
        using iterator_category = std::random_access_iterator_tag;
        using value_type = T const*;
        using difference_type = std::ptrdiff_t;
        using pointer = void;
        using reference = T const*;

        iterator() = default;
        iterator(ObjectModel const* model, Oid const* id) : m_model(model), m_id(id) {}

        // The same checked lookup and cast as the getters that build a vector.
        T const* operator*() const { return &AsType<T>(*m_model->find(*m_id)); }
        T const* operator[](difference_type offset) const { return *(*this + offset); }
        iterator& operator++() { return *this += 1; }
        iterator operator++(int) { return std::exchange(*this, *this + 1); }
        iterator& operator--() { return *this -= 1; }
        iterator operator--(int) { return std::exchange(*this, *this - 1); }
        iterator& operator+=(difference_type offset) {
            m_id += offset;
            return *this;
        }
        iterator& operator-=(difference_type offset) { return *this += -offset; }
        friend iterator operator+(iterator at, difference_type offset) { return at += offset; }
        friend iterator operator+(difference_type offset, iterator at) { return at += offset; }
        friend iterator operator-(iterator at, difference_type offset) { return at -= offset; }
        friend difference_type operator-(iterator const& a, iterator const& b) {
            return a.m_id - b.m_id;
        }
        friend bool operator==(iterator const& a, iterator const& b) { return a.m_id == b.m_id; }
        friend auto operator<=>(iterator const& a, iterator const& b) { return a.m_id <=> b.m_id; }

    private:
        ObjectModel const* m_model = nullptr;
        Oid const* m_id = nullptr;
    };
    using const_iterator = iterator;

    // `ids` is any list of ids held in one array, such as a composition value.
    template <class Ids>
    ObjectView(ObjectModel const& model, Ids const& ids)
        : m_begin(&model, ids.begin()), m_end(&model, ids.end()) {}

    iterator begin() const { return m_begin; }
    iterator end() const { return m_end; }
    std::size_t size() const { return static_cast<std::size_t>(m_end - m_begin); }
    bool empty() const { return m_begin == m_end; }
    T const* operator[](std::size_t index) const { return m_begin[static_cast<std::ptrdiff_t>(index)]; }

private:
    iterator m_begin;
    iterator m_end;
};

} // namespace om
