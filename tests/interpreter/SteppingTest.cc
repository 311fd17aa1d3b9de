#include "LoadedSource.h"
#include "Runs.h"

#include "interpreter/MatchingStates.h"
#include "interpreter/ModelState.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace interpreter::test {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

// Line numbers in the expected messages count from the empty first line.
LoadedSource const& Source() {
    static LoadedSource const source(R"(
interface I {
    in void e(); in void f(); in bool q(); out void o(); out void n();
    behaviour { on e: {} on f: {} on q: reply(true); on optional: o; on optional: n; }
}
component Order {
    provides I p;
    requires I r;
    behaviour {
        bool b = true;
        blocking on p.e(): {}
        { on r.o(): {} }
        on p.f(): {}
        [b] on p.e(): {}
        on r.o(): {}
        [!b] on p.f(): {}
    }
}
component Closed { provides I p; behaviour { bool b = false; [b] on p.e(): {} } }
component Single { provides I p; behaviour { on p.f(): {} } }
component OtherwiseFalse {
    provides I p;
    behaviour { bool b = false; [b] on p.e(): {} [otherwise] on p.e(): {} }
}
component Calc {
    provides I p;
    behaviour {
        subint S { 0..3 };
        S n = 0;
        bool b = true;
        S inc(S x) { return x + 1; }
        S one() { S k = 1; { { return k; } } }
        on p.e(): { if (!b) n = 1; else n = 2; if (b) n = n + 1; if (!b) n = 0; }
        on p.f(): { n = 0; { n = one(); } }
        on p.q(): { S m = inc(n); reply(true); }
    }
}
component Overflow {
    provides I p;
    behaviour {
        subint S { 0..3 };
        S n = 3;
        S inc(S x) { return x + 1; }
        on p.e(): n = n + 1;
        on p.f(): n = inc(n);
        on p.q(): { n = inc(n + 1); reply(true); }
    }
}
component Unset { provides I p; behaviour { on p.e(): { bool c = !c; } } }
component Blocks {
    provides I p;
    requires I r;
    behaviour { blocking on p.e(): {} blocking on r.o(): {} }
}
)");
    return source;
}

TEST(SteppingTest, ADeclarativeCompoundForksGuardedThenOnThenCompoundsThenBlocking) {
    auto const state = First(Source().run("Order"), {"p.e"});
    state->runToNextBranchPoint();
    EXPECT_FALSE(state->isStopped);
    // Entering a compound leaves no step of its own.
    EXPECT_THAT(Kinds(*state),
                ElementsAre(ProgramStep::PSK_Initialize, ProgramStep::PSK_ThreadEnter));
    std::vector<kel::BehaviourStatement const*> tops;
    for (auto const& continuation : state->continuations) {
        tops.push_back(continuation->program.TopStatement());
    }
    auto const& order = Source().model("Order");
    // The false guard is no candidate.
    EXPECT_THAT(tops, ElementsAre(&TopLevel(order, 3), &TopLevel(order, 2), &TopLevel(order, 4),
                                  &TopLevel(order, 1), &TopLevel(order, 0)));
}

class LeafMessagesTest : public testing::TestWithParam<LeavesCase> {};

TEST_P(LeafMessagesTest, EveryWayEndsWithItsOwnMessage) {
    ExpectLeaves(Leaves(Source().run(GetParam().model), GetParam().trace), GetParam());
}

std::string const Head =
    "Action statement on line: 4 does not represent remaining event trace head (e)";

// clang-format off
INSTANTIATE_TEST_SUITE_P(
    SteppingTest, LeafMessagesTest,
    testing::Values(
        LeavesCase{"ACall", "Order", {"p.e"},
                   {"", OnLine(13, "activation event p.e"), OnLine(15, "activation event p.e"),
                    OnLine(12, "activation event p.e"), ""}, {}},
        LeavesCase{"TheQueueHead", "Order", {"r.o"},
                   {OnLine(14, "receive queue head."), OnLine(13, "receive queue head."), "", "",
                    OnLine(11, "receive queue head.")}, {}},
        LeavesCase{"AnInterface", "I", {"e"},
                   {OnLine(4, "activation event tau"), OnLine(4, "activation event tau"),
                    OnLine(4, "activation event tau"), Head, Head, "",
                    OnLine(4, "activation event e"), OnLine(4, "activation event e"),
                    OnLine(4, "current call context."), OnLine(4, "current call context.")}, {}},
        LeavesCase{"NoGuardHolds", "Closed", {"p.e"}, {"No reachable statements found."}, {}},
        // One candidate is pushed without a fork, and its mismatch ends the run.
        LeavesCase{"OneCandidate", "Single", {"p.e"}, {OnLine(20, "activation event p.e")}, {}}),
    [](auto const& info) { return info.param.name; });
// clang-format on

TEST(SteppingTest, AGuardIsCheckedAgainWhenItsStatementIsStepped) {
    auto const& model = Source().model("OtherwiseFalse");
    ModelState active(Source().run("OtherwiseFalse"), {"p.e"});
    active.singleStep();
    ASSERT_TRUE(active.isActive);
    auto const before = active.programTrace->size();

    ModelState closed(active, TopLevel(model, 0));
    closed.singleStep();
    EXPECT_TRUE(closed.isStopped);
    EXPECT_FALSE(closed.isProgramError);
    EXPECT_EQ(closed.message, "Guard condition not met.");
    EXPECT_EQ(closed.programTrace->size(), before);

    ModelState open(active, TopLevel(model, 1));
    open.singleStep();
    EXPECT_FALSE(open.isStopped);
    EXPECT_THAT(Labels(open, before), ElementsAre("GuardedStatement"));
    EXPECT_EQ(open.program.TopStatement(),
              &TopLevel(model, 1).asGuardedStatement()->getStatement());
}

// Initialize, ThreadEnter and the accepting on statement's two steps.
constexpr std::size_t AfterOn = 4;

TEST(SteppingTest, AnIfPushesTheBranchThatHolds) {
    auto const states = MatchingStates(Source().run("Calc"), {"p.e", "p.return"});
    ASSERT_EQ(states.size(), 1u);
    EXPECT_TRUE(states[0]->IsSolution());
    EXPECT_THAT(Labels(*states[0], AfterOn),
                ElementsAre("IfStatement", "AssignmentStatement", "IfStatement",
                            "AssignmentStatement", "IfStatement", "OnEventReturn", "ThreadExit"));
    EXPECT_EQ(ValueOf(states[0]->stateVector, "n"), "3");
}

TEST(SteppingTest, AReturnClosesTheBlocksOfItsFunctionAndNoOthers) {
    auto const leaves = Leaves(Source().run("Calc"), {"p.f"});
    ASSERT_EQ(leaves.size(), 3u);
    ModelState const& state = *leaves[1];
    ASSERT_FALSE(state.isStopped) << state.message;
    EXPECT_THAT(Labels(state, AfterOn),
                ElementsAre("AssignmentStatement", "FunctionCall", "VariableDeclarationStatement",
                            "ReturnStatement", "AssignmentStatement"));
    // Behaviour, handler and inner block; the call adds the function's frame,
    // its body one more and each nested block one, all gone at the return.
    std::vector<std::size_t> frames;
    auto const steps = state.programTrace->ToVector();
    for (std::size_t i = AfterOn; i < steps.size(); ++i) {
        frames.push_back(steps[i]->stateVector->frameCount());
    }
    EXPECT_THAT(frames, ElementsAre(2u, 4u, 5u, 3u, 3u));
    EXPECT_EQ(ValueOf(*steps.back()->stateVector, "k"), "");
    EXPECT_EQ(ValueOf(state.stateVector, "n"), "1");
    EXPECT_EQ(state.stateVector.frameCount(), 1u);
    EXPECT_EQ(state.program.scopes.size(), 1u);
}

TEST(SteppingTest, AVariableHasNoValueWhileItsInitialCallRuns) {
    auto const leaves = Leaves(Source().run("Calc"), {"p.q"});
    ASSERT_EQ(leaves.size(), 3u);
    ModelState const& state = *leaves[2];
    ASSERT_FALSE(state.isStopped) << state.message;
    EXPECT_THAT(Labels(state, AfterOn),
                ElementsAre("FunctionCall", "ReturnStatement", "VariableDeclarationStatement",
                            "ReplyStatement"));
    auto const steps = state.programTrace->ToVector();
    EXPECT_EQ(ValueOf(*steps[AfterOn]->stateVector, "m"), "undefined");
    EXPECT_EQ(ValueOf(*steps[AfterOn]->stateVector, "x"), "0");
    EXPECT_EQ(ValueOf(*steps[AfterOn + 2]->stateVector, "m"), "1");
}

struct OverflowCase {
    char const* name;
    std::string event;
    std::string message;
    std::vector<std::string> tail;
    char const* model = "Overflow";
};

class OverflowTest : public testing::TestWithParam<OverflowCase> {};

TEST_P(OverflowTest, AValueOutOfRangeOrMissingIsAProgramError) {
    auto const states = MatchingStates(Source().run(GetParam().model), {GetParam().event});
    ASSERT_EQ(states.size(), 1u);
    ModelState const& state = *states[0];
    EXPECT_TRUE(state.isStopped);
    EXPECT_TRUE(state.isProgramError);
    EXPECT_EQ(state.message, GetParam().message);
    auto const& tail = GetParam().tail;
    if (!tail.empty()) {
        EXPECT_THAT(Labels(state, state.programTrace->size() - tail.size()),
                    ElementsAreArray(tail));
    }
}

std::string const Assignment = "Illegal value in assignment: Range error for variable n";

// clang-format off
INSTANTIATE_TEST_SUITE_P(
    SteppingTest, OverflowTest,
    testing::Values(
        OverflowCase{"Assignment", "p.e", Assignment, {"OnEvent", "AssignmentStatement", "Error"}},
        OverflowCase{"FunctionResult", "p.f", Assignment,
                     {"FunctionCall", "ReturnStatement", "AssignmentStatement", "Error"}},
        OverflowCase{"Parameter", "p.q",
                     "Function actual parameter declaration failed. Range error for variable x", {}},
        // A variable read in its own initial value has none yet.
        OverflowCase{"UnsetVariable", "p.e",
                     "expression could not be evaluated due to uninitialized variable",
                     {"OnEvent", "Error"}, "Unset"}),
    [](auto const& info) { return info.param.name; });
// clang-format on

// The run of Blocks to its fork, and the chosen continuation stepped once,
// into its blocking statement.
ModelStatePtr IntoBlocking(std::string const& head, std::size_t branch) {
    auto state = First(Source().run("Blocks"), {head});
    state->runToNextBranchPoint();
    auto continuations = state->GetContinuations();
    EXPECT_EQ(continuations.size(), 2u);
    ModelStatePtr chosen = std::move(continuations.at(branch));
    chosen->singleStep();
    return chosen;
}

TEST(SteppingTest, BlockingHoldsOnlyACall) {
    auto const& blocks = Source().model("Blocks");
    auto const notification = IntoBlocking("r.o", 1);
    EXPECT_FALSE(notification->isBlocking);
    EXPECT_EQ(notification->program.TopStatement(),
              &TopLevel(blocks, 1).asBlockingStatement()->getStatement());

    auto const call = IntoBlocking("p.e", 0);
    EXPECT_TRUE(call->isBlocking);
    EXPECT_EQ(call->program.TopStatement(),
              &TopLevel(blocks, 0).asBlockingStatement()->getStatement());
}

} // namespace
} // namespace interpreter::test
