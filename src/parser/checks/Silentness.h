// Whether running a statement or a function produces an observable event.
#pragma once

namespace language {

enum class Silentness {
    Silent = 0,           // no path produces an observable event
    Indeterminate = 1,    // some paths do and some do not, or a call cannot be followed
    NotSilent = 2,        // every path produces an observable event
    RecursionSeed = 3,    // nothing known yet: the start of a recursive function
    TowardsNotSilent = 4, // not silent so far, with a part that waits for recursion
    TowardsSilent = 5,    // silent so far, with a part that waits for recursion
};

} // namespace language
