// Counts every heap allocation of the process, so that a benchmark can report
// how many allocations one operation makes. Linking AllocationCounter.cc
// replaces the global operator new.
#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>

namespace bench {

std::size_t allocationCount();

// Sets the counter "allocs/op" from the count at the start of the run.
void reportAllocations(benchmark::State& state, std::size_t before);

} // namespace bench
