#include "tool/ProgressLine.h"

namespace {

using std::chrono::duration_cast;
using std::chrono::milliseconds;
using std::chrono::seconds;

// Quick runs never show the line; a shown line changes a few times a second.
constexpr milliseconds quiet{1000};
constexpr milliseconds redraw{200};

// Back to the start of the line, and clear it to its end.
char const* const clearLine = "\r\033[K";

} // namespace

ProgressLine::ProgressLine(std::ostream& terminal, bool isTerminal) : terminal(terminal) {
    if (isTerminal) {
        observing.emplace(*this);
    }
}

ProgressLine::~ProgressLine() { Erase(); }

void ProgressLine::Explored(std::size_t states, std::size_t consumed, std::size_t traceLength) {
    explored += states;
    auto const now = Clock::now();
    if (now - start < quiet || (shown && now - drawn < redraw)) {
        return;
    }
    drawn = now;
    shown = true;
    terminal << clearLine << "searching: " << consumed << " of " << traceLength << " events, "
             << explored << " states, " << duration_cast<seconds>(now - start).count() << " s"
             << std::flush;
}

void ProgressLine::Erase() {
    if (shown) {
        terminal << clearLine << std::flush;
        shown = false;
    }
}
