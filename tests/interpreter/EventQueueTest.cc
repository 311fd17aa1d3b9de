#include "interpreter/EventQueue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(EventQueueTest, ServesOldestFirst) {
    EventQueue queue;
    EXPECT_TRUE(queue.empty());
    queue.push_back("p.a");
    queue.push_back("r.b");
    EXPECT_EQ(queue.front(), "p.a");
    EXPECT_EQ(queue[1], "r.b");
    queue.pop_front();
    EXPECT_THAT(queue, ElementsAre("r.b"));
    queue.pop_front();
    EXPECT_TRUE(queue.empty());
    EXPECT_THAT(queue, IsEmpty());
}

TEST(EventQueueTest, ACopyIsUnchangedByChangesOfTheOriginal) {
    EventQueue original{"p.a", "r.b"};
    EventQueue const copy = original;
    original.pop_front();
    original.push_back("q.c");
    EXPECT_THAT(copy, ElementsAre("p.a", "r.b"));
    EXPECT_THAT(original, ElementsAre("r.b", "q.c"));
}

TEST(EventQueueTest, QueuesOfTheSameEntriesAreEqual) {
    EventQueue built;
    built.push_back("p.a");
    EXPECT_TRUE(built == EventQueue{"p.a"});
    EXPECT_FALSE(built == EventQueue{"p.b"});
    EXPECT_FALSE(built == EventQueue{});
    built.pop_front();
    EXPECT_TRUE(built == EventQueue{});
}

} // namespace
