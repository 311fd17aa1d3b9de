#include "AllocationCounter.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

std::size_t allocations = 0;
std::size_t live = 0;
std::size_t peak = 0;

void release(void* memory) {
    if (memory != nullptr) {
        live -= malloc_usable_size(memory);
        std::free(memory);
    }
}

} // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size == 0 ? 1 : size)) {
        live += malloc_usable_size(memory);
        peak = std::max(peak, live);
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept { release(memory); }
void operator delete(void* memory, std::size_t) noexcept { release(memory); }

namespace bench {

std::size_t allocationCount() { return allocations; }

void reportAllocations(benchmark::State& state, std::size_t before) {
    state.counters["allocs/op"] = benchmark::Counter(
        static_cast<double>(allocations - before) / static_cast<double>(state.iterations()));
}

std::size_t liveBytes() { return live; }
std::size_t peakBytes() { return peak; }
void resetPeak() { peak = live; }

} // namespace bench
