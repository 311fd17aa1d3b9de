// The well-formedness pass alone on generated sources that are resolved
// beforehand: many components with recursive functions and modeling events,
// and systems that pair them.
#include "metamodel/Factory.h"
#include "metamodel/Kel.h"
#include "om/ObjectModel.h"
#include "parser/grammar/Parser.h"
#include "parser/checks/WellformednessChecker.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <sstream>

namespace {

// count components over one interface, and a system for every pair of them.
std::string manyComponents(int count) {
    std::string text =
        "interface I { in void e(); out void o(); behaviour { bool b = true;\n"
        "  [b] { on e: b = false; on optional: { o; b = true; } } [!b] on e: {} } }\n";
    for (int i = 0; i < count; ++i) {
        auto n = std::to_string(i);
        text += "component C" + n + " { provides I p; requires I r; behaviour { bool b = true;\n" +
                "  void f(bool x) { if (x) { r.e(); f(!x); } }\n" +
                "  bool g() { if (b) { return true; } else { return false; } }\n" +
                "  on p.e(): { f(b); b = g(); }\n  on r.o(): { b = false; } } }\n";
        if (i % 2 == 1) {
            text += "component S" + n + " { provides I p; requires I r; system { C" + n + " a; C" +
                    std::to_string(i - 1) + " c; p <=> a.p; a.r <=> c.p; c.r <=> r; } }\n";
        }
    }
    return text;
}

// A resolved store, made and dropped outside the timed part.
struct ResolvedStore {
    explicit ResolvedStore(std::string const& text) {
        model.createRecursive(kel::Root::ClassName);
        language::Parser parser(model);
        std::istringstream in(text);
        parser.parseStream(in, "bench.kel", {}, false, false, true);
    }
    kel::Factory factory;
    om::ObjectModel model{factory};
};

void BM_CheckManyComponents(benchmark::State& state) {
    std::string const text = manyComponents(static_cast<int>(state.range(0)));
    std::unique_ptr<ResolvedStore> store;
    for (auto _ : state) {
        state.PauseTiming();
        store.reset();
        store = std::make_unique<ResolvedStore>(text);
        language::WellformednessChecker checker(store->model, nullptr);
        state.ResumeTiming();
        if (!checker.checkWellformedness()) {
            state.SkipWithError("the generated source is not well-formed");
        }
    }
}
BENCHMARK(BM_CheckManyComponents)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

} // namespace
