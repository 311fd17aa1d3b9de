#include "interpreter/EventQueue.h"

EventQueue::EventQueue(std::initializer_list<std::string> names) {
    if (names.size() != 0) {
        m_entries = std::make_shared<Entries const>(names);
    }
}

void EventQueue::push_back(std::string name) {
    auto entries = std::make_shared<Entries>();
    entries->reserve(size() + 1);
    entries->insert(entries->end(), begin(), end());
    entries->push_back(std::move(name));
    m_entries = std::move(entries);
}

void EventQueue::pop_front() {
    if (size() <= 1) {
        m_entries.reset();
        return;
    }
    m_entries = std::make_shared<Entries const>(begin() + 1, end());
}

bool EventQueue::operator==(EventQueue const& other) const {
    return m_entries == other.m_entries || entries() == other.entries();
}

EventQueue::Entries const& EventQueue::entries() const {
    static Entries const none;
    return m_entries ? *m_entries : none;
}
