// Lookup, clone-and-update and createRecursive over a store of about 100k
// objects, with the heap allocations per operation as a counter.
#include "AllocationCounter.h"
#include "om/AsType.h"
#include "om/ObjectModel.h"
#include "om/TestClasses.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <bit>
#include <random>
#include <unordered_map>

namespace {

constexpr int NodeCount = 50'000; // each with its required Leaf: 100k objects

// A root Node whose "Children" are NodeCount Nodes; each Node links to the
// Leaf of the Node before it.
struct Store {
    test::Factory factory;
    om::ObjectModel model{factory};
    std::vector<om::Oid> nodes;
    std::vector<om::Oid> leaves;

    Store() {
        om::ObjectModel::OwnedObjects objects;
        auto root = std::make_unique<test::Node>();
        root->getCompositionRef("Required").push_back(add(objects, std::make_unique<test::Leaf>()));
        for (int i = 0; i < NodeCount; ++i) {
            auto node = std::make_unique<test::Node>();
            om::Oid const leaf = add(objects, std::make_unique<test::Leaf>());
            node->getCompositionRef("Required").push_back(leaf);
            if (!leaves.empty()) {
                node->getAssociationRef("Link").push_back(leaves.back());
            }
            leaves.push_back(leaf);
            nodes.push_back(node->getOid());
            root->getCompositionRef("Children").push_back(node->getOid());
            objects.push_back(std::move(node));
        }
        objects.push_back(std::move(root));
        model.addObjects(objects);
    }

    static om::Oid add(om::ObjectModel::OwnedObjects& objects, std::unique_ptr<om::Object> object) {
        om::Oid const id = object->getOid();
        objects.push_back(std::move(object));
        return id;
    }
};

Store& store() {
    static Store* const instance = new Store(); // shared by all benchmarks
    return *instance;
}

std::vector<om::Oid> shuffledIds() {
    std::vector<om::Oid> ids = store().nodes;
    ids.insert(ids.end(), store().leaves.begin(), store().leaves.end());
    std::shuffle(ids.begin(), ids.end(), std::mt19937(42));
    return ids;
}


void BM_Find(benchmark::State& state) {
    om::ObjectModel const& model = store().model;
    std::vector<om::Oid> const ids = shuffledIds();
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(model.find(ids[i]));
        i = i + 1 == ids.size() ? 0 : i + 1;
    }
}
BENCHMARK(BM_Find);

// Each id depends on the object found before, as when code follows ids from
// object to object: this measures the latency of a lookup, not its throughput.
void BM_FindDependent(benchmark::State& state) {
    om::ObjectModel const& model = store().model;
    std::vector<om::Oid> ids = shuffledIds();
    ids.resize(std::bit_floor(ids.size()));
    std::size_t const mask = ids.size() - 1;
    std::size_t i = 0;
    for (auto _ : state) {
        om::Object const* found = model.find(ids[i]);
        i = (static_cast<std::size_t>(found->getOid()) * 40503u + i) & mask;
    }
}
BENCHMARK(BM_FindDependent);

// The same walk over a std::unordered_map of the same objects, as the baseline
// that the store's own index is measured against.
void BM_UnorderedMapFindDependent(benchmark::State& state) {
    std::unordered_map<om::Oid, om::Object const*> baseline;
    for (om::Oid const id : shuffledIds()) {
        baseline.emplace(id, store().model.find(id));
    }
    std::vector<om::Oid> ids = shuffledIds();
    ids.resize(std::bit_floor(ids.size()));
    std::size_t const mask = ids.size() - 1;
    std::size_t i = 0;
    for (auto _ : state) {
        om::Object const* found = baseline.find(ids[i])->second;
        i = (static_cast<std::size_t>(found->getOid()) * 40503u + i) & mask;
    }
}
BENCHMARK(BM_UnorderedMapFindDependent);

void BM_TryFindMiss(benchmark::State& state) {
    om::ObjectModel const& model = store().model;
    om::Oid id = store().leaves.back() + 1;
    for (auto _ : state) {
        benchmark::DoNotOptimize(model.tryFind(id));
        ++id;
    }
}
BENCHMARK(BM_TryFindMiss);

// The order of two children of a Node with a thousand children changes, as when
// the front end edits a long list: the ids stay, the maps differ.
void BM_CloneAndReorderThousandChildren(benchmark::State& state) {
    om::ObjectModel& model = store().model;
    om::Oid const parent = store().nodes.front();
    if (model.find(parent)->getComposition("Children").size() == 0) {
        for (int i = 0; i < 1000; ++i) {
            std::unique_ptr<om::Object> changed = model.find(parent)->clone();
            changed->getCompositionRef("Children")
                .push_back(model.createRecursive("test::Leaf")->getOid());
            model.update(*changed);
        }
    }
    std::size_t const before = bench::allocationCount();
    for (auto _ : state) {
        std::unique_ptr<om::Object> changed = model.find(parent)->clone();
        changed->getCompositionRef("Children").swap(0, 1);
        model.update(*changed);
    }
    bench::reportAllocations(state, before);
}
BENCHMARK(BM_CloneAndReorderThousandChildren);

// The usual change: copy a node by its class, change a property, update.
void BM_CopyAndUpdateProperty(benchmark::State& state) {
    om::ObjectModel& model = store().model;
    std::vector<om::Oid> const& nodes = store().nodes;
    std::size_t i = 0;
    std::size_t const before = bench::allocationCount();
    for (auto _ : state) {
        test::Node changed = om::AsType<test::Node>(*model.find(nodes[i]));
        changed.setSize(static_cast<int>(i));
        model.update(changed);
        i = i + 1 == nodes.size() ? 0 : i + 1;
    }
    bench::reportAllocations(state, before);
}
BENCHMARK(BM_CopyAndUpdateProperty);

// clone() and an association that moves to another target.
void BM_CloneAndMoveAssociation(benchmark::State& state) {
    om::ObjectModel& model = store().model;
    std::vector<om::Oid> const& nodes = store().nodes;
    std::vector<om::Oid> const& leaves = store().leaves;
    std::size_t i = 1;
    std::size_t const before = bench::allocationCount();
    for (auto _ : state) {
        std::unique_ptr<om::Object> changed = model.find(nodes[i])->clone();
        om::AssociationValue& link = changed->getAssociationRef("Link");
        link.set(link.get() == leaves[i - 1] ? leaves[i] : leaves[i - 1]);
        model.update(*changed);
        i = i + 1 == nodes.size() ? 1 : i + 1;
    }
    bench::reportAllocations(state, before);
}
BENCHMARK(BM_CloneAndMoveAssociation);

// A Tree with its two required Leaves; the store is emptied now and then, untimed.
void BM_CreateRecursive(benchmark::State& state) {
    test::Factory factory;
    om::ObjectModel model(factory);
    int made = 0;
    std::size_t const before = bench::allocationCount();
    for (auto _ : state) {
        benchmark::DoNotOptimize(model.createRecursive("test::Tree"));
        if (++made == 30'000) {
            state.PauseTiming();
            model.clear();
            made = 0;
            state.ResumeTiming();
        }
    }
    bench::reportAllocations(state, before);
}
BENCHMARK(BM_CreateRecursive);

} // namespace
