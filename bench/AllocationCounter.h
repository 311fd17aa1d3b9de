// Counts every heap allocation of the process and the bytes held, so that a
// benchmark can report how many allocations one operation makes and how much
// memory it needs at most. Linking AllocationCounter.cc
// replaces the global operator new.
#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>

namespace bench {

std::size_t allocationCount();

// Sets the counter "allocs/op" from the count at the start of the run.
void reportAllocations(benchmark::State& state, std::size_t before);

// Bytes held on the heap now, and the most held since the last resetPeak().
std::size_t liveBytes();
std::size_t peakBytes();
void resetPeak();

} // namespace bench
