#include "om/UserSet.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <set>
#include <vector>

namespace om {
namespace {

// Against an ordered set, in sizes around the change from one id in place
// to a table and far beyond, with ids added and removed in random order.
TEST(UserSetTest, AgreesWithAnOrderedSet) {
    std::mt19937_64 random(5);
    for (std::uint64_t range : {2u, 3u, 40u, 5000u}) {
        UserSet users;
        std::set<Oid> reference;
        for (int step = 0; step < 20'000; ++step) {
            Oid const id = static_cast<Oid>(random() % range) + 1;
            if (random() % 3 == 0) {
                ASSERT_EQ(users.erase(id), reference.erase(id) == 1) << id;
            } else {
                ASSERT_EQ(users.insert(id), reference.insert(id).second) << id;
            }
            ASSERT_EQ(users.size(), reference.size());
            ASSERT_EQ(users.contains(id), reference.contains(id));
        }
        EXPECT_EQ(users.sorted(), std::vector<Oid>(reference.begin(), reference.end()));
    }
}

TEST(UserSetTest, EqualSetsCompareEqualWhateverTheirHistory) {
    UserSet grown;
    for (Oid id = 1; id <= 100; ++id) {
        grown.insert(id);
    }
    for (Oid id = 2; id <= 100; ++id) {
        grown.erase(id);
    }
    UserSet single;
    single.insert(1);
    EXPECT_TRUE(grown == single);
    single.erase(1);
    EXPECT_TRUE(single.empty());
    EXPECT_FALSE(grown == single);
    EXPECT_FALSE(single.erase(NULL_OID));
}

// The one user is held in a word that has a bit less than an id.
TEST(UserSetTest, KeepsIdsOfEveryMagnitude) {
    for (Oid const id : {std::numeric_limits<Oid>::max(), std::numeric_limits<Oid>::min(),
                         Oid(-1), Oid(1) << 62, -(Oid(1) << 62)}) {
        UserSet users;
        EXPECT_TRUE(users.insert(id));
        EXPECT_TRUE(users.contains(id));
        EXPECT_FALSE(users.insert(id));
        EXPECT_EQ(users.sorted(), std::vector<Oid>{id});
        EXPECT_TRUE(users.erase(id));
        EXPECT_TRUE(users.empty());
    }
}

} // namespace
} // namespace om
