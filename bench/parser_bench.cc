// The front end's first steps on a generated source: scanning alone, and
// parsing into a fresh store with every construct call.
#include "metamodel/Factory.h"
#include "metamodel/Kel.h"
#include "om/ObjectModel.h"
#include "parser/grammar/Parser.h"
#include "parser/grammar/Scanner.h"

#include <benchmark/benchmark.h>

#include <sstream>

namespace {

// count interfaces, each with events, a guard, an if and arithmetic.
std::string source(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        auto n = std::to_string(i);
        text += "interface I" + n + " {\n  in void e(int a, out bool b);\n  out void f();\n" +
                "  behaviour {\n    subint S {0..10};\n    S s = 0;\n" +
                "    [s < 10] on e: { if (s + 1 == 3) f; else s = s + 1; }\n" +
                "    [otherwise] on e: illegal;\n  }\n}\n";
    }
    return text;
}

void BM_Scan(benchmark::State& state) {
    std::string const text = source(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        std::istringstream in(text);
        language::Scanner scanner(&in, nullptr);
        language::location loc;
        int tokens = 0;
        language::BisonParser::semantic_type value;
        while (scanner.lex(&value, &loc) != 0) {
            ++tokens;
        }
        benchmark::DoNotOptimize(tokens);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(BM_Scan)->Arg(100)->Arg(1000);

void BM_Parse(benchmark::State& state) {
    std::string const text = source(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        kel::Factory factory;
        om::ObjectModel model(factory);
        model.createRecursive(kel::Root::ClassName);
        language::Parser parser(model);
        std::istringstream in(text);
        benchmark::DoNotOptimize(parser.parseStream(in, "bench.kel", {}, false, false, false));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(BM_Parse)->Arg(100)->Arg(1000);

} // namespace
