// The metamodel accessors that the interpreter calls most: properties,
// single and list compositions, clone-and-update, and event texts.
#include "metamodel/DeclarationConstructors.h"
#include "metamodel/Factory.h"
#include "metamodel/Kel.h"
#include "metamodel/PortEvent.h"
#include "metamodel/StatementConstructors.h"
#include "om/AsType.h"
#include "om/ObjectModel.h"

#include <benchmark/benchmark.h>

namespace {

struct Store {
    kel::Factory factory;
    om::ObjectModel model{factory};

    template <class T> T const& find(om::Oid id) { return om::AsType<T>(*model.find(id)); }
};

void BM_PropertyGetter(benchmark::State& state) {
    Store store;
    auto const& event = store.find<kel::EventDeclaration>(
        kel::constructEventDeclaration(store.model, kel::edirIn, "void", "request", {}));
    for (auto _ : state) {
        benchmark::DoNotOptimize(event.getName().size() + event.getDirection());
    }
}
BENCHMARK(BM_PropertyGetter);

void BM_SingleCompositionGetter(benchmark::State& state) {
    Store store;
    auto const then = kel::constructReturnStatement(store.model, 0);
    auto const& ifStatement =
        store.find<kel::IfStatement>(kel::constructIfStatement(store.model, 0, then, 0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(&ifStatement.getThenStatement());
    }
}
BENCHMARK(BM_SingleCompositionGetter);

// A block of `count` return statements.
kel::CompoundStatement const& BlockOf(Store& store, std::int64_t count) {
    std::vector<om::Oid> ids;
    for (std::int64_t i = 0; i < count; ++i) {
        ids.push_back(kel::constructReturnStatement(store.model, 0));
    }
    return store.find<kel::CompoundStatement>(
        kel::constructCompoundBehaviourStatement(store.model, ids));
}

void BM_ListCompositionGetter(benchmark::State& state) {
    Store store;
    auto const& compound = BlockOf(store, state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(compound.getStatements());
    }
}
BENCHMARK(BM_ListCompositionGetter)->Arg(1)->Arg(10);

// The same list walked through its view, which builds no vector.
void BM_ListCompositionView(benchmark::State& state) {
    Store store;
    auto const& compound = BlockOf(store, state.range(0));
    for (auto _ : state) {
        for (auto const* statement : compound.getStatementsView()) {
            benchmark::DoNotOptimize(statement);
        }
    }
}
BENCHMARK(BM_ListCompositionView)->Arg(1)->Arg(10);

void BM_CloneAndUpdate(benchmark::State& state) {
    Store store;
    auto const& port = store.find<kel::PortDeclaration>(
        kel::constructPortDeclaration(store.model, "I", "p", kel::idirProvided, false, false));
    int line = 0;
    for (auto _ : state) {
        kel::PortDeclaration copy(port);
        copy.setLine(++line);
        store.model.update(copy);
    }
}
BENCHMARK(BM_CloneAndUpdate);

void BM_PortEventText(benchmark::State& state) {
    Store store;
    auto const& event = store.find<kel::EventDeclaration>(
        kel::constructEventDeclaration(store.model, kel::edirIn, "void", "request", {}));
    auto const& port = store.find<kel::PortDeclaration>(
        kel::constructPortDeclaration(store.model, "I", "port", kel::idirProvided, false, false));
    kel::PortEvent const portEvent(&port, &event);
    for (auto _ : state) {
        benchmark::DoNotOptimize(portEvent.str());
    }
}
BENCHMARK(BM_PortEventText);

} // namespace
