#include "interpreter/SearchObserver.h"

namespace {

// Process-wide, like the other counters of the interpreter: one run at a time.
SearchObserver* installed = nullptr;

} // namespace

ObservedSearches::ObservedSearches(SearchObserver& observer) : replaced(installed) {
    installed = &observer;
}

ObservedSearches::~ObservedSearches() { installed = replaced; }

void SearchTally::Report() {
    auto const states = unreported;
    unreported = 0;
    if (installed != nullptr && states > 0) {
        installed->Explored(states, furthest, traceLength);
    }
}
