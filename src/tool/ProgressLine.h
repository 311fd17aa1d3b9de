// A one-line account on a terminal of a run that takes long, so that a model
// whose search explodes does not hang a shell silently: how far into its
// trace the furthest way of the current search got, how many states all
// searches explored, and for how long. It shows after the first second only,
// is redrawn in place, and is erased before anything else is written.
#pragma once

#include "interpreter/SearchObserver.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <ostream>

class ProgressLine : public SearchObserver {
public:
    using Clock = std::chrono::steady_clock;

    // Watches every search while it lives if `isTerminal`; else it is silent.
    ProgressLine(std::ostream& terminal, bool isTerminal);
    ~ProgressLine() override;
    ProgressLine(ProgressLine const&) = delete;
    ProgressLine& operator=(ProgressLine const&) = delete;

    void Explored(std::size_t states, std::size_t consumed, std::size_t traceLength) override;
    // Takes the line off the terminal; the next report draws it again.
    void Erase();

private:
    std::ostream& terminal;
    Clock::time_point const start = Clock::now();
    Clock::time_point drawn = start;
    std::size_t explored = 0;
    bool shown = false;
    std::optional<ObservedSearches> observing;
};
