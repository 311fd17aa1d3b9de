#include "om/DenseIdMap.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <vector>

namespace om {
namespace {

// The entries of the map in the order its walk gives them.
std::vector<std::pair<Oid, int>> entriesOf(DenseIdMap<int> const& map) {
    std::vector<std::pair<Oid, int>> entries;
    map.forEach([&](Oid id, int value) { entries.emplace_back(id, value); });
    return entries;
}

void expectSame(DenseIdMap<int> const& map, std::map<Oid, int> const& reference) {
    ASSERT_EQ(map.size(), reference.size());
    EXPECT_EQ(entriesOf(map), (std::vector<std::pair<Oid, int>>(reference.begin(), reference.end())));
}

// Against an ordered map: runs of consecutive ids as a store sees them,
// growing at both ends, mixed with ids far away and negative ones, and
// removals in between, so that entries cross between the window and the
// map of far ids.
TEST(DenseIdMapTest, AgreesWithAnOrderedMap) {
    std::mt19937_64 random(3);
    DenseIdMap<int> map;
    std::map<Oid, int> reference;
    Oid low = 50'000;
    Oid high = low;
    for (int step = 0; step < 40'000; ++step) {
        Oid id = 0;
        switch (random() % 6) {
        case 0:
            id = high++;
            break;
        case 1:
            id = --low;
            break;
        case 2:
            id = static_cast<Oid>(random() % 2'000'000) - 1'000'000;
            break;
        default:
            id = low + static_cast<Oid>(random() % static_cast<std::uint64_t>(high - low + 1));
        }
        if (random() % 4 == 0) {
            EXPECT_EQ(map.erase(id), reference.erase(id) == 1) << id;
        } else {
            bool const made = map.tryEmplace(id).second;
            EXPECT_EQ(made, !reference.contains(id)) << id;
            map[id] = step;
            reference[id] = step;
        }
        if (step % 5000 == 0) {
            expectSame(map, reference);
        }
    }
    expectSame(map, reference);
    for (Oid id = low - 10; id <= high + 10; ++id) {
        auto const expected = reference.find(id);
        int const* found = map.find(id);
        ASSERT_EQ(found == nullptr, expected == reference.end()) << id;
        if (found != nullptr) {
            EXPECT_EQ(*found, expected->second) << id;
        }
    }
}

TEST(DenseIdMapTest, FindIfStopsAtTheFirstIdInOrder) {
    DenseIdMap<int> map;
    for (Oid const id : {Oid(900'000), Oid(7), Oid(5), Oid(-900'000), Oid(6)}) {
        map[id] = static_cast<int>(id % 2);
    }
    std::vector<Oid> seen;
    EXPECT_TRUE(map.findIf([&](Oid id, int odd) {
        seen.push_back(id);
        return odd == 1 && id > 0;
    }));
    EXPECT_EQ(seen, (std::vector<Oid>{-900'000, 5}));
    EXPECT_FALSE(map.findIf([](Oid, int) { return false; }));
}

TEST(DenseIdMapTest, EqualityComparesIdsAndValuesWhereverTheyAreKept) {
    DenseIdMap<int> near;
    DenseIdMap<int> far;
    far[1'000'000] = 1; // makes the window start far from the ids below
    for (Oid id = 1; id <= 100; ++id) {
        near[id] = static_cast<int>(id);
        far[id] = static_cast<int>(id);
    }
    near[1'000'000] = 1;
    EXPECT_TRUE(near == far);
    far[50] = 0;
    EXPECT_FALSE(near == far);
    far[50] = 50;
    far.erase(1'000'000);
    EXPECT_FALSE(near == far);
    near.clear();
    EXPECT_EQ(near.size(), 0u);
    EXPECT_EQ(near.find(1), nullptr);
}

} // namespace
} // namespace om
