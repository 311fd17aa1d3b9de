#include "interpreter/RunMemory.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <set>
#include <vector>

namespace {

TEST(StepPoolTest, ReusesAFreedBlockForAnySizeOfItsClass) {
    StepPool pool;
    void* first = pool.allocate(40);
    void* other = pool.allocate(40);
    pool.deallocate(first, 40);
    EXPECT_EQ(pool.allocate(33), first);
    EXPECT_NE(pool.allocate(40), other);
    void* larger = pool.allocate(48);
    pool.deallocate(larger, 48);
    EXPECT_NE(pool.allocate(49), larger);
}

TEST(StepPoolTest, BlocksDoNotOverlapAndKeepTheirContents) {
    StepPool pool;
    std::set<std::uintptr_t> seen;
    std::vector<unsigned char*> blocks;
    // More than one mapped block's worth of the largest pooled size.
    for (int i = 0; i < 80000; ++i) {
        auto* block = static_cast<unsigned char*>(pool.allocate(StepPool::LargestPooled));
        ASSERT_EQ(reinterpret_cast<std::uintptr_t>(block) % StepPool::Granule, 0u);
        std::memset(block, i & 0xff, StepPool::LargestPooled);
        EXPECT_TRUE(seen.insert(reinterpret_cast<std::uintptr_t>(block)).second);
        blocks.push_back(block);
    }
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        ASSERT_EQ(blocks[i][0], i & 0xff);
        ASSERT_EQ(blocks[i][StepPool::LargestPooled - 1], i & 0xff);
    }
}

TEST(StepPoolTest, LargeAndOveralignedRequestsAreServedWhole) {
    StepPool pool;
    std::size_t const size = StepPool::LargestPooled + 1;
    auto* large = static_cast<unsigned char*>(pool.allocate(size));
    std::memset(large, 0xab, size);
    auto* aligned = pool.allocate(64, 64);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(aligned) % 64, 0u);
    for (int i = 0; i < 100; ++i) {
        auto* small = static_cast<unsigned char*>(pool.allocate(StepPool::LargestPooled));
        EXPECT_TRUE(small + StepPool::LargestPooled <= large || large + size <= small);
    }
    pool.deallocate(aligned, 64, 64);
    pool.deallocate(large, size);
}

} // namespace
