// The cost of a fork: the copy of a state in the middle of a run, with a
// component's typical variables, a function frame and a long shared trace.
#include "AllocationCounter.h"
#include "BenchSource.h"

#include "interpreter/ModelState.h"

#include "metamodel/Behaviour.h"
#include "metamodel/FunctionDeclaration.h"

#include <benchmark/benchmark.h>

namespace {

char const* const Source = R"(
interface I {
    enum Mode { off, low, high };
    in void start();
    in Mode mode();
    out void done();
    behaviour { on start: {} on mode: reply(Mode.off); on optional: done; }
}
component C {
    provides I p;
    requires I r;
    requires I s;
    behaviour {
        subint Count { 0..100 };
        bool running = false;
        bool waiting = false;
        I.Mode mode = I.Mode.off;
        Count count = 0;
        Count limit = 10;
        void step(Count n) { Count next = n; }
        on p.start(): step(count);
        on r.done(): {}
        on s.done(): {}
    }
}
)";

// A state half-way through a trace of 100,000 entries, inside a function.
ModelState MidRun(bench::BenchSource const& source) {
    std::vector<std::string> trace(100'000, "p.start");
    auto const instance = source.run("C");
    ModelState state(instance, trace);
    state.namedEventIndex = 50'000;
    auto const& behaviour = instance->model->getBehaviour();
    auto const& function = *behaviour.getFunctions()[0];
    state.program.OpenScope(behaviour.getStatement());
    state.program.PushStatement(function.getStatement());
    state.stateVector.OpenContext(function.getStatement());
    state.stateVector.DeclareStateVariable(*function.getParameters()[0], IntStateVariableValue(3));
    state.stateVector.queue = {"r.done"};
    return state;
}

void BM_Fork(benchmark::State& state) {
    bench::BenchSource const loaded(Source);
    ModelState const source = MidRun(loaded);
    std::size_t const before = bench::allocationCount();
    for (auto _ : state) {
        ModelState copy(source);
        benchmark::DoNotOptimize(copy);
    }
    bench::reportAllocations(state, before);
}
BENCHMARK(BM_Fork);

// The copy of an eligibility test, whose trace is longer by one event.
void BM_ForkWithLongerTrace(benchmark::State& state) {
    bench::BenchSource const loaded(Source);
    ModelState const source = MidRun(loaded);
    std::string const name = "p.start";
    std::size_t const before = bench::allocationCount();
    for (auto _ : state) {
        ModelState copy(source, name);
        benchmark::DoNotOptimize(copy);
    }
    bench::reportAllocations(state, before);
}
BENCHMARK(BM_ForkWithLongerTrace);

} // namespace
