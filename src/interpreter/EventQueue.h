// The names of the events a model has yet to handle, oldest first. A copy
// shares the entries until one side changes them: every step's snapshot and
// every fork copies the queue, few steps change it, and a queue stays short.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

class EventQueue {
public:
    using Entries = std::vector<std::string>;
    using value_type = std::string;
    using const_iterator = Entries::const_iterator;

    EventQueue() = default;
    EventQueue(std::initializer_list<std::string> names);

    bool empty() const { return size() == 0; }
    std::size_t size() const { return m_entries ? m_entries->size() : 0; }
    // The oldest entry; the queue must not be empty.
    std::string const& front() const { return m_entries->front(); }
    std::string const& operator[](std::size_t i) const { return (*m_entries)[i]; }
    const_iterator begin() const { return entries().begin(); }
    const_iterator end() const { return entries().end(); }

    void push_back(std::string name);
    // Removes the oldest entry; the queue must not be empty.
    void pop_front();

    bool operator==(EventQueue const& other) const;

private:
    Entries const& entries() const;

    // Null for an empty queue.
    std::shared_ptr<Entries const> m_entries;
};
