// Name resolution on generated sources: many small models, and one block with
// many statements whose names are all rewritten in place.
#include "metamodel/Factory.h"
#include "metamodel/Kel.h"
#include "om/ObjectModel.h"
#include "parser/grammar/Parser.h"

#include <benchmark/benchmark.h>

#include <sstream>

namespace {

// count interfaces, each used by a component that binds and uses its events.
std::string manyModels(int count) {
    std::string text = "subint S {0..10};\n";
    for (int i = 0; i < count; ++i) {
        auto n = std::to_string(i);
        text += "interface I" + n + " { in void e(S a); out void f();\n" +
                "  behaviour { bool b = false; on e: { b = !b; f; } } }\n" + "component C" + n +
                " { provides I" + n + " p; behaviour {\n" +
                "  S s = 0;\n  [s < 9] on p.e(x): { s = x; p.f(); }\n" +
                "  [otherwise] on p.e: illegal; } }\n";
    }
    return text;
}

// One on statement whose block holds count actions and assignments.
std::string longBlock(int count) {
    std::string text = "interface I { in void e(); out void f(); }\n"
                       "component C { provides I p; behaviour { bool b = false;\n"
                       "  on p.e(): {\n";
    for (int i = 0; i < count; ++i) {
        text += "    p.f(); b = !b;\n";
    }
    return text + "  } } }\n";
}

void parse(benchmark::State& state, std::string const& text, bool resolve) {
    for (auto _ : state) {
        kel::Factory factory;
        om::ObjectModel model(factory);
        model.createRecursive(kel::Root::ClassName);
        language::Parser parser(model);
        std::istringstream in(text);
        bool ok = parser.parseStream(in, "bench.kel", {}, false, false, resolve);
        if (!ok) {
            state.SkipWithError("the generated source does not resolve");
        }
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void BM_ParseManyModels(benchmark::State& state) {
    parse(state, manyModels(static_cast<int>(state.range(0))), false);
}
void BM_ParseAndResolveManyModels(benchmark::State& state) {
    parse(state, manyModels(static_cast<int>(state.range(0))), true);
}
void BM_ParseLongBlock(benchmark::State& state) {
    parse(state, longBlock(static_cast<int>(state.range(0))), false);
}
void BM_ParseAndResolveLongBlock(benchmark::State& state) {
    parse(state, longBlock(static_cast<int>(state.range(0))), true);
}
BENCHMARK(BM_ParseManyModels)->Arg(100)->Arg(1000);
BENCHMARK(BM_ParseAndResolveManyModels)->Arg(100)->Arg(1000);
BENCHMARK(BM_ParseLongBlock)->Arg(500)->Arg(2000)->Arg(8000)->Arg(32000);
BENCHMARK(BM_ParseAndResolveLongBlock)->Arg(500)->Arg(2000)->Arg(8000)->Arg(32000);

} // namespace
