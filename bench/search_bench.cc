// The search on long traces: MatchingStates over an interface and a component
// with a two-way fork at every activation, of which one way dies at once.
// Reports events and steps per second and the most heap the search held; the
// time per event must stay flat as the trace grows.
#include "AllocationCounter.h"
#include "BenchSource.h"

#include "interpreter/MatchingStates.h"

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace {

// Ahead of each call the interface's own activation, `on optional`, is tried
// first and fails on the call at once. The component's two `on` statements
// fork likewise: the one for the notification fails at once.
char const* const Source = R"(
interface Toggle {
    in void flip();
    out void flipped();
    behaviour {
        bool lit = false;
        on flip: lit = !lit;
        on optional: flipped;
    }
}
component Relay {
    provides Toggle p;
    requires Toggle r;
    behaviour {
        bool busy = false;
        on p.flip(): { busy = !busy; r.flip(); }
        on r.flipped(): {}
    }
}
)";

std::vector<std::string> Repeat(std::vector<std::string> const& round, std::size_t events) {
    std::vector<std::string> trace;
    trace.reserve(events);
    while (trace.size() < events) {
        trace.insert(trace.end(), round.begin(), round.end());
    }
    return trace;
}

void Search(benchmark::State& state, char const* model, std::vector<std::string> const& round) {
    bench::BenchSource const source(Source);
    auto const instance = source.run(model);
    auto const trace = Repeat(round, static_cast<std::size_t>(state.range(0)));
    std::size_t steps = 0;
    std::size_t peak = 0;
    for (auto _ : state) {
        bench::resetPeak();
        auto const before = bench::liveBytes();
        auto const states = MatchingStates(instance, trace);
        if (!states.front()->IsSolution()) {
            state.SkipWithError("the trace is not accepted");
            return;
        }
        steps = states.front()->programTrace->size();
        peak = bench::peakBytes() - before;
    }
    auto const runs = static_cast<double>(state.iterations());
    state.counters["events/s"] = benchmark::Counter(static_cast<double>(trace.size()) * runs,
                                                    benchmark::Counter::kIsRate);
    state.counters["steps/s"] =
        benchmark::Counter(static_cast<double>(steps) * runs, benchmark::Counter::kIsRate);
    state.counters["peak B/event"] =
        benchmark::Counter(static_cast<double>(peak) / static_cast<double>(trace.size()));
}

void BM_SearchInterface(benchmark::State& state) { Search(state, "Toggle", {"flip", "return"}); }
BENCHMARK(BM_SearchInterface)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void BM_SearchComponent(benchmark::State& state) {
    Search(state, "Relay", {"p.flip", "r.flip", "r.return", "p.return"});
}
BENCHMARK(BM_SearchComponent)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace
