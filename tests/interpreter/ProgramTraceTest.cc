#include "LoadedSource.h"

#include "interpreter/ProgramTrace.h"

#include <gtest/gtest.h>

namespace interpreter::test {
namespace {

LoadedSource const& Source() {
    static LoadedSource const source("interface I { in void e(); behaviour { on e: {} } }");
    return source;
}

ProgramStepPtr Initialize() {
    return ProgramStep::Initialize(std::make_shared<StateVector const>(Source().run("I")),
                                   kel::PortEvent());
}

TEST(ProgramTraceTest, ForksShareTheirOlderPartAndListItOldestFirst) {
    auto const first = Initialize();
    auto const second = Initialize();
    auto const shared = std::make_shared<ProgramTrace>(
        std::make_shared<ProgramTrace>(std::make_shared<ProgramTrace>(), first), second);
    auto const left = std::make_shared<ProgramTrace>(shared, Initialize());
    auto const right = std::make_shared<ProgramTrace>(shared, Initialize());
    EXPECT_EQ(left->size(), 3u);
    EXPECT_TRUE(ProgramTrace().ToVector().empty());
    auto const steps = right->ToVector();
    ASSERT_EQ(steps.size(), 3u);
    EXPECT_EQ(steps[0], first);
    EXPECT_EQ(steps[1], second);
    EXPECT_EQ(steps[2], right->step);
    std::vector<ProgramStepPtr> appended{first};
    left->traceVector(appended);
    EXPECT_EQ(appended.size(), 4u);
    EXPECT_EQ(appended[3], left->step);
}

TEST(ProgramTraceTest, AHistoryOfAMillionStepsIsCountedListedAndFreedWithoutRecursion) {
    std::size_t const length = 1'000'000;
    auto const step = Initialize();
    auto head = std::make_shared<ProgramTrace>();
    for (std::size_t i = 0; i < length; ++i) {
        head = std::make_shared<ProgramTrace>(std::move(head), step);
    }
    EXPECT_EQ(head->size(), length);
    EXPECT_EQ(head->ToVector().size(), length);
    // A fork keeps the shared part alive when the other branch goes.
    auto const fork = std::make_shared<ProgramTrace>(head->parent, step);
    head.reset();
    EXPECT_EQ(fork->size(), length);
}

} // namespace
} // namespace interpreter::test
