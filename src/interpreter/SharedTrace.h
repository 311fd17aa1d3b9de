// The trace a run must reproduce. Every state of a run shares the entries it
// was started with; only what a state appended (the one extra event of an
// eligibility test) is its own, so a fork copies no entry.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

class SharedTrace {
public:
    SharedTrace() : shared(std::make_shared<std::vector<std::string> const>()) {}
    explicit SharedTrace(std::vector<std::string> const& entries)
        : shared(std::make_shared<std::vector<std::string> const>(entries)) {}

    std::size_t size() const { return shared->size() + own.size(); }
    std::string const& operator[](std::size_t i) const {
        return i < shared->size() ? (*shared)[i] : own[i - shared->size()];
    }
    void push_back(std::string const& entry) { own.push_back(entry); }

private:
    std::shared_ptr<std::vector<std::string> const> shared;
    std::vector<std::string> own;
};
