#include "om/IdDelta.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <numeric>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace om {
namespace {

using ::testing::ElementsAreArray;
using Lists = std::map<std::string, std::vector<Oid>>;

Object::AssociationMap associationsOf(Lists const& lists) {
    Object::AssociationMap map;
    for (auto const& [name, ids] : lists) {
        for (Oid const id : ids) {
            map[name].push_back(id);
        }
    }
    return map;
}

std::set<Oid> idsOf(Lists const& lists) {
    std::set<Oid> ids;
    for (auto const& entry : lists) {
        ids.insert(entry.second.begin(), entry.second.end());
    }
    return ids;
}

std::vector<Oid> minus(std::set<Oid> const& from, std::set<Oid> const& without) {
    std::vector<Oid> result;
    std::ranges::set_difference(from, without, std::back_inserter(result));
    return result;
}

// The delta after dropStillHeld must be the plain set difference of all ids,
// less the added ids that were held before (which callers filter by index).
void expectSetDifference(Lists const& before, Lists const& after) {
    IdDelta delta = deltaOf(associationsOf(before), associationsOf(after));
    dropStillHeld(delta.removed, associationsOf(after));
    std::set<Oid> const oldIds = idsOf(before);
    std::erase_if(delta.added, [&](Oid id) { return oldIds.contains(id); });
    EXPECT_THAT(delta.removed, ElementsAreArray(minus(oldIds, idsOf(after))));
    EXPECT_THAT(delta.added, ElementsAreArray(minus(idsOf(after), oldIds)));
}

struct DeltaCase {
    char const* what;
    Lists before;
    Lists after;
};

TEST(IdDeltaTest, AgreesWithTheSetDifferenceOfAllIds) {
    std::vector<DeltaCase> const cases = {
        {"equal", {{"a", {1, 2, 3}}}, {{"a", {1, 2, 3}}}},
        {"one replaced in the middle", {{"a", {1, 2, 3}}}, {{"a", {1, 9, 3}}}},
        {"appended", {{"a", {1, 2}}}, {{"a", {1, 2, 3, 4}}}},
        {"prepended", {{"a", {1, 2}}}, {{"a", {9, 1, 2}}}},
        {"reordered", {{"a", {1, 2, 3}}}, {{"a", {3, 1, 2}}}},
        {"emptied", {{"a", {1, 2}}}, {{"a", {}}}},
        {"list gone", {{"a", {1}}, {"b", {2}}}, {{"b", {2}}}},
        {"list new", {{"b", {2}}}, {{"a", {1}}, {"b", {2}}}},
        {"moved between lists", {{"a", {1, 2}}, {"b", {3}}}, {{"a", {1}}, {"b", {3, 2}}}},
        {"duplicate dropped, one copy left", {{"a", {1, 2, 1}}}, {{"a", {1, 2}}}},
        {"removed here, held in another list",
         {{"a", {5, 6}}, {"b", {5}}},
         {{"a", {6}}, {"b", {5}}}},
        {"added here, held in another list", {{"a", {6}}, {"b", {5}}}, {{"a", {5, 6}}, {"b", {5}}}},
        {"overlapping head and tail", {{"a", {1, 1}}}, {{"a", {1, 1, 1}}}},
        {"many removed, some held elsewhere",
         {{"a", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}}, {"b", {3, 7}}},
         {{"a", {}}, {"b", {3, 7}}}},
    };
    for (DeltaCase const& testCase : cases) {
        SCOPED_TRACE(testCase.what);
        expectSetDifference(testCase.before, testCase.after);
    }
}

TEST(IdDeltaTest, AgreesWithTheSetDifferenceOnRandomEdits) {
    std::mt19937 random(7);
    auto idList = [&](std::size_t length) {
        std::vector<Oid> ids(length);
        for (Oid& id : ids) {
            id = static_cast<Oid>(random() % 20 + 1);
        }
        return ids;
    };
    for (int round = 0; round < 500; ++round) {
        Lists before = {{"a", idList(random() % 12)}, {"b", idList(random() % 4)}};
        Lists after = before;
        std::vector<Oid>& edited = after[random() % 2 ? "a" : "b"];
        std::size_t const at = edited.empty() ? 0 : random() % edited.size();
        switch (random() % 3) {
        case 0:
            edited.insert(edited.begin() + static_cast<std::ptrdiff_t>(at),
                          idList(random() % 3 + 1)[0]);
            break;
        case 1:
            edited.erase(edited.begin() + static_cast<std::ptrdiff_t>(at),
                         edited.begin() + static_cast<std::ptrdiff_t>(
                                              std::min(edited.size(), at + random() % 3)));
            break;
        default:
            after["c"] = idList(random() % 3);
        }
        SCOPED_TRACE(round);
        expectSetDifference(before, after);
    }
}

TEST(IdDeltaTest, ReportsOnlyTheEditedStretchOfALongList) {
    std::vector<Oid> ids(10000);
    std::iota(ids.begin(), ids.end(), 1);
    Lists before = {{"a", ids}};
    ids[5000] = 20000;
    IdDelta const delta = deltaOf(associationsOf(before), associationsOf({{"a", ids}}));
    EXPECT_THAT(delta.removed, ElementsAreArray({Oid{5001}}));
    EXPECT_THAT(delta.added, ElementsAreArray({Oid{20000}}));
}

} // namespace
} // namespace om
