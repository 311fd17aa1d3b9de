// A window on the search for a caller that shows how a long run is going.
// The interpreter knows nothing of clocks or terminals: it counts the states
// it explores and, every few thousand of them, tells the one observer that
// is installed, if any. The observer may throw to cut the search short.
#pragma once

#include "interpreter/ModelState.h"

#include <algorithm>
#include <cstddef>

class SearchObserver {
public:
    virtual ~SearchObserver() = default;
    // `states` more states were explored; the furthest way of the current
    // search has consumed `consumed` of the `traceLength` entries of its trace.
    virtual void Explored(std::size_t states, std::size_t consumed, std::size_t traceLength) = 0;
};

// Installs `observer` for every search while it lives, and then puts back
// the one it replaced.
class ObservedSearches {
public:
    explicit ObservedSearches(SearchObserver& observer);
    ~ObservedSearches();
    ObservedSearches(ObservedSearches const&) = delete;
    ObservedSearches& operator=(ObservedSearches const&) = delete;

private:
    SearchObserver* replaced;
};

// The count of one search, passed on to the observer in batches, so that an
// observer that reads a clock does so rarely.
class SearchTally {
public:
    static constexpr std::size_t batch = 4096;

    // After `state` has run to its next branch point.
    void Count(ModelState const& state) {
        furthest = std::max(furthest, state.namedEventIndex);
        traceLength = state.namedEventTrace.size();
        if (++unreported == batch) {
            Report();
        }
    }
    // Passes on what is not yet reported; at the end of the search.
    void Report();

private:
    std::size_t unreported = 0;
    std::size_t furthest = 0;
    std::size_t traceLength = 0;
};
