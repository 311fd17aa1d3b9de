#include "om/ObjectIndex.h"
#include "om/Object.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

namespace om {
namespace {

std::unique_ptr<Object> objectWithId(Oid id) {
    auto object = std::make_unique<Object>(true);
    object->setOid(id);
    return object;
}

TEST(ObjectIndexTest, EmptyIndexFindsNothing) {
    ObjectIndex index;
    EXPECT_EQ(index.find(1), nullptr);
    EXPECT_EQ(index.find(NULL_OID), nullptr);
    EXPECT_EQ(index.extract(1), nullptr);
    EXPECT_EQ(index.size(), 0u);
}

// Against an ordered map as reference: consecutive ids as the generator hands
// them out, then random ones, removed in random order, so that runs of
// colliding slots form and are closed again.
TEST(ObjectIndexTest, AgreesWithAReferenceMapThroughInsertsAndRemovals) {
    ObjectIndex index;
    std::map<Oid, Object*> reference;
    std::mt19937_64 random(7);
    std::vector<Oid> ids;
    for (Oid id = 1; id <= 3000; ++id) {
        ids.push_back(id);
    }
    for (int i = 0; i < 3000; ++i) {
        ids.push_back(static_cast<Oid>(random() % 1'000'000'000) + 5000);
    }
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    for (Oid const id : ids) {
        reference[id] = &index.insert(objectWithId(id));
    }
    std::shuffle(ids.begin(), ids.end(), random);
    for (std::size_t i = 0; i < ids.size(); i += 2) {
        std::unique_ptr<Object> extracted = index.extract(ids[i]);
        ASSERT_NE(extracted, nullptr);
        EXPECT_EQ(extracted.get(), reference.at(ids[i]));
        reference.erase(ids[i]);
        EXPECT_EQ(index.extract(ids[i]), nullptr);
    }
    EXPECT_EQ(index.size(), reference.size());
    for (Oid const id : ids) {
        auto const expected = reference.find(id);
        EXPECT_EQ(index.find(id), expected == reference.end() ? nullptr : expected->second) << id;
    }
    std::size_t visited = 0;
    index.forEach([&](Object const& object) {
        EXPECT_EQ(reference.at(object.getOid()), &object);
        ++visited;
    });
    EXPECT_EQ(visited, reference.size());
    index.clear();
    EXPECT_EQ(index.find(ids.front()), nullptr);
    index.insert(objectWithId(ids.front()));
    EXPECT_NE(index.find(ids.front()), nullptr);
}

// Many small tables, nearly half full, so that runs often wrap around the end.
TEST(ObjectIndexTest, RemovalKeepsWrappedRunsFindable) {
    std::mt19937_64 random(11);
    for (int round = 0; round < 2000; ++round) {
        ObjectIndex index;
        std::vector<Oid> ids;
        while (ids.size() < 30) {
            Oid const id = static_cast<Oid>(random() % 100'000) + 1;
            if (index.find(id) == nullptr) {
                index.insert(objectWithId(id));
                ids.push_back(id);
            }
        }
        std::shuffle(ids.begin(), ids.end(), random);
        for (std::size_t removed = 0; removed < ids.size(); ++removed) {
            ASSERT_NE(index.extract(ids[removed]), nullptr);
            for (std::size_t kept = removed + 1; kept < ids.size(); ++kept) {
                ASSERT_NE(index.find(ids[kept]), nullptr) << "round " << round;
            }
        }
    }
}

} // namespace
} // namespace om
