// The zip of a component's history with its ports' and the compliance check,
// on histories of 10,000 to 1,000,000 steps: the time per step must stay flat.
#include "interpreter/MatchingStates.h"
#include "trace/MicroTrace.h"

#include "metamodel/BuiltinDeclarations.h"
#include "metamodel/ComponentDeclaration.h"
#include "metamodel/Factory.h"
#include "metamodel/Kel.h"
#include "om/ObjectModel.h"
#include "parser/grammar/Parser.h"

#include <benchmark/benchmark.h>

#include <sstream>
#include <stdexcept>

namespace {

// A provided port whose calls the component passes on to a required port.
char const* const Source = R"(
interface I {
    in void go();
    behaviour { on go: {} }
}
component Relay {
    provides I p;
    requires I r;
    behaviour { on p.go(): r.go(); }
}
)";

struct Runs {
    explicit Runs(std::size_t calls) {
        store.createRecursive(kel::Root::ClassName);
        std::istringstream in(Source);
        if (!parser.parseStream(in, "bench.kel", {}, false, true, true)) {
            throw std::runtime_error("the bench source does not load");
        }
        kel::ComponentDeclaration const* component = nullptr;
        for (auto const* model : kel::GetDefaultNamespace(store)->getModelsVec()) {
            component = model->asComponentDeclaration() ? model->asComponentDeclaration() : component;
        }
        std::vector<std::string> trace;
        for (std::size_t i = 0; i < calls; ++i) {
            trace.insert(trace.end(), {"p.go", "r.go", "r.return", "p.return"});
        }
        for (auto const* port : component->getPorts()) {
            std::vector<std::string> own;
            for (std::size_t i = 0; i < calls; ++i) {
                own.insert(own.end(), {"go", "return"});
            }
            auto states = MatchingStates(std::make_shared<ModelInstance const>(*port), own);
            portStates.emplace(port, std::move(states.front()));
        }
        state = std::move(MatchingStates(std::make_shared<ModelInstance const>(*component), trace)
                              .front());
        steps = state->programTrace->size();
        for (auto const& [port, portState] : portStates) {
            steps += portState->programTrace->size();
        }
    }

    kel::Factory factory;
    om::ObjectModel store{factory};
    language::Parser parser{store};
    PortStates portStates;
    ModelStatePtr state;
    std::size_t steps = 0;
};

// Each call makes about 17 steps over the three histories.
void BM_ZipAndComply(benchmark::State& state) {
    Runs const runs(static_cast<std::size_t>(state.range(0)) / 17);
    for (auto _ : state) {
        MicroTrace const trace(*runs.state, runs.portStates);
        if (trace.isProtocolViolation) {
            throw std::logic_error("the bench runs must comply");
        }
        benchmark::DoNotOptimize(trace.steps.data());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(runs.steps));
    state.counters["steps"] = static_cast<double>(runs.steps);
}
BENCHMARK(BM_ZipAndComply)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

} // namespace
