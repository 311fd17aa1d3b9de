#include "LoadedSource.h"
#include "Runs.h"

#include "interpreter/MatchingStates.h"
#include "interpreter/ModelState.h"

#include "metamodel/InternalDeclaration.h"

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
    in void e(); in bool q(); out void o(); out void n();
    behaviour { on e: {} on q: reply(true); on optional: o; on optional: n; }
}
interface D { in void e(); out void o(); behaviour { on e: o; } }
interface Looping { in void e(); out void o(); behaviour { on e: {} on optional: {} } }
interface Bad { in void e(); behaviour { on e: illegal; } }
component Queue {
    provides I p;
    requires I r;
    requires I s;
    requires external D x;
    behaviour {
        requires kel.async t;
        on p.e(): t.req();
        on r.o(): {}
        on s.o(): {}
        on t.ack(): t.req();
        on x.o(): {}
    }
}
component Claims { provides I p; provides I j; behaviour { on p.e(): j.o(); } }
component Illegal { provides Bad p; requires Bad r; behaviour { on p.e(): illegal; } }
component Actor { provides I p; requires I r; behaviour { on p.e(): r.e(); } }
)");
    return source;
}

using Step = ProgramStep;

ModelInstancePtr RunOf(std::string const& model, std::string const& port) {
    return port.empty() ? Source().run(model) : Source().runOfPort(model, port);
}

kel::PortDeclaration const* Timer() {
    return Source().model("Queue").getBehaviour().getInternalsVec()[0];
}

// Also where no on statement could take the autonomous activation.
TEST(ActivationTest, ACallToAnInterfaceForksTheAutonomousActivationFirst) {
    auto const state = First(Source().run("D"), {"e"});
    state->singleStep();
    ASSERT_EQ(state->continuations.size(), 2u);
    ModelState const& autonomous = *state->continuations[0];
    ModelState const& called = *state->continuations[1];
    EXPECT_TRUE(autonomous.isActive);
    EXPECT_EQ(autonomous.activationEvent.str(), "tau");
    EXPECT_THAT(KindsSince(autonomous, 1), ElementsAre(Step::PSK_ThreadEnter));
    EXPECT_NE(LastStep(autonomous).model, nullptr);
    EXPECT_TRUE(called.isActive);
    EXPECT_EQ(called.activationEvent.str(), "e");
    EXPECT_EQ(LastStep(called).portEvent.str(), "e");
    EXPECT_EQ(called.namedEventIndex, 0u);
    EXPECT_THAT(Messages(Leaves(Source().run("D"), {"e"})),
                ElementsAre(OnLine(6, "activation event tau"), ""));
}

TEST(ActivationTest, ADelayedEventOfAnExternalPortIsShownFromTheDelayLine) {
    auto const states = MatchingStates(Source().runOfPort("Queue", "x"), {"e", "return", "o"});
    ASSERT_EQ(states.size(), 1u);
    ModelState const& state = *states[0];
    EXPECT_TRUE(state.IsSolution());
    EXPECT_EQ(state.namedEventIndex, 3u);
    EXPECT_TRUE(state.stateVector.queue.empty());
    EXPECT_THAT(Kinds(state),
                ElementsAre(Step::PSK_Initialize, Step::PSK_ThreadEnter, Step::PSK_Statement,
                            Step::PSK_OnEvent, Step::PSK_Statement, Step::PSK_OnEventReturn,
                            Step::PSK_ThreadExit, Step::PSK_ThreadEnter, Step::PSK_Receive,
                            Step::PSK_ThreadExit));
}

struct ComponentCase {
    char const* name;
    std::vector<std::string> trace; // one step for each entry
    std::vector<Kind> added;
    std::size_t index;
    std::string activation; // empty for an idle state
    std::string message;
};

class ComponentActivationTest : public testing::TestWithParam<ComponentCase> {};

TEST_P(ComponentActivationTest, TheHeadDecidesWhatStartsTheComponent) {
    ModelState state(Source().run("Queue"), GetParam().trace);
    for (std::size_t i = 0; i < GetParam().trace.size(); ++i) {
        state.singleStep();
    }
    EXPECT_THAT(KindsSince(state, 1), ElementsAreArray(GetParam().added));
    EXPECT_EQ(state.namedEventIndex, GetParam().index);
    EXPECT_EQ(state.isActive, !GetParam().activation.empty());
    if (state.isActive) {
        EXPECT_EQ(state.activationEvent.str(), GetParam().activation);
    }
    EXPECT_EQ(state.message, GetParam().message);
    EXPECT_EQ(state.isStopped, !GetParam().message.empty());
    EXPECT_FALSE(state.isProgramError);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(
    ActivationTest, ComponentActivationTest,
    testing::Values(
        ComponentCase{"ANotificationIsQueued", {"r.o"}, {Step::PSK_Enqueue}, 1, "", ""},
        ComponentCase{"ANotificationOfTheQueuedPortQueuesBehind", {"r.o", "r.o"},
                      {Step::PSK_Enqueue, Step::PSK_Enqueue}, 2, "", ""},
        ComponentCase{"AnEventOfAnotherPortServesTheQueueFirst", {"r.o", "s.o"},
                      {Step::PSK_Enqueue, Step::PSK_ThreadEnter}, 1, "r.tau", ""},
        ComponentCase{"AFlushOfTheQueuedPortIsConsumed", {"r.o", "r.<<flush_queue>>"},
                      {Step::PSK_Enqueue, Step::PSK_ThreadEnter}, 2, "r.tau", ""},
        ComponentCase{"AFlushOfAnotherPortStaysAtTheHead", {"r.o", "s.<<flush_queue>>"},
                      {Step::PSK_Enqueue, Step::PSK_ThreadEnter}, 1, "r.tau", ""},
        ComponentCase{"ACallStaysAtTheHead", {"p.e"}, {Step::PSK_ThreadEnter}, 0, "p.e", ""},
        ComponentCase{"AnInEventOfARequiredPort", {"r.e"}, {}, 0, "",
                      "Component activation by event r.e not possible."},
        ComponentCase{"AnOutEventOfAProvidedPort", {"p.o"}, {}, 0, "",
                      "Component activation by event p.o not possible."}),
    [](auto const& info) { return info.param.name; });
// clang-format on

TEST(ActivationTest, ACallAndAnOutstandingRequestFork) {
    ModelState state(Source().run("Queue"), {"p.e"});
    state.armedPorts.push_back(Timer());
    state.singleStep();
    ASSERT_EQ(state.continuations.size(), 2u);

    ModelState const& call = *state.continuations[0];
    EXPECT_EQ(call.activationEvent.str(), "p.e");
    EXPECT_THAT(call.armedPorts, ElementsAre(Timer()));
    EXPECT_TRUE(call.stateVector.queue.empty());
    EXPECT_THAT(KindsSince(call, 1), ElementsAre(Step::PSK_ThreadEnter));

    ModelState const& request = *state.continuations[1];
    EXPECT_EQ(request.GetActivationPort(), Timer());
    EXPECT_TRUE(request.IsAutoActive());
    EXPECT_TRUE(request.armedPorts.empty());
    EXPECT_THAT(request.stateVector.queue, ElementsAre("t.ack"));
    EXPECT_THAT(KindsSince(request, 1), ElementsAre(Step::PSK_Enqueue, Step::PSK_ThreadEnter));
    EXPECT_EQ(request.namedEventIndex, 0u);
}

struct FiringCase {
    char const* name;
    std::string head;
    bool autoActive;
};

class FiringTest : public testing::TestWithParam<FiringCase> {};

TEST_P(FiringTest, ARequestFiresWithoutAFork) {
    ModelState state(Source().run("Queue"), {GetParam().head});
    state.armedPorts.push_back(Timer());
    state.isAutoActive = GetParam().autoActive;
    state.singleStep();
    EXPECT_TRUE(state.continuations.empty());
    EXPECT_TRUE(state.IsIdle());
    EXPECT_TRUE(state.armedPorts.empty());
    EXPECT_THAT(state.stateVector.queue, ElementsAre("t.ack"));
    EXPECT_THAT(KindsSince(state, 1), ElementsAre(Step::PSK_Enqueue));
    EXPECT_EQ(state.namedEventIndex, 0u);
}

INSTANTIATE_TEST_SUITE_P(ActivationTest, FiringTest,
                         testing::Values(FiringCase{"ACallWhileWorkingOffRequests", "p.e", true},
                                         FiringCase{"ANotification", "r.o", false}),
                         [](auto const& info) { return info.param.name; });

TEST(ActivationTest, OutEventsOnASecondProvidesPortAreAnError) {
    auto const states = MatchingStates(Source().run("Claims"), {"p.e", "j.o"});
    ASSERT_EQ(states.size(), 1u);
    ModelState const& state = *states[0];
    EXPECT_TRUE(state.isProgramError);
    EXPECT_EQ(state.message,
              "Out-events on provides port j not allowed. Only out-events on provides "
              "port p allowed in current call context.");
    EXPECT_THAT(Labels(state, 4), ElementsAre("ActionStatement", "Receive", "Error"));
    EXPECT_EQ(state.namedEventIndex, 2u);
    EXPECT_EQ(state.claimedProvidedPort, &Source().port("Claims", "p"));
}

TEST(ActivationTest, ARequestThatRenewsItselfIsALivelockOfTheComponent) {
    auto const states = MatchingStates(Source().run("Queue"), {"p.e", "p.return", "r.o"});
    ASSERT_EQ(states.size(), 1u);
    ModelState const& state = *states[0];
    EXPECT_TRUE(state.isProgramError);
    EXPECT_EQ(state.message, "livelock in model Queue");
    // The second firing repeats the first with nothing shown in between.
    auto const size = state.programTrace->size();
    EXPECT_THAT(KindsSince(state, size - 3),
                ElementsAre(Step::PSK_ThreadExit, Step::PSK_Enqueue, Step::PSK_Error));
}

TEST(ActivationTest, AHiddenLoopOfAnInterfaceIsADeadEnd) {
    auto const leaves = Leaves(Source().run("Looping"), {"o"});
    EXPECT_THAT(Messages(leaves), ElementsAre(OnLine(7, "activation event tau"),
                                              "hidden loop found in program execution"));
    for (auto const& leaf : leaves) {
        EXPECT_TRUE(leaf->isStopped);
        EXPECT_FALSE(leaf->isProgramError);
    }
}

struct IllegalCase {
    char const* name;
    char const* model;
    char const* port;
    std::vector<std::string> trace;
    bool error;
};

class IllegalTest : public testing::TestWithParam<IllegalCase> {};

TEST_P(IllegalTest, TheIllegalActionStopsTheRun) {
    auto const leaves = Leaves(RunOf(GetParam().model, GetParam().port), GetParam().trace);
    ModelState const* illegal = nullptr;
    for (auto const& leaf : leaves) {
        if (leaf->message == "illegal") {
            ASSERT_EQ(illegal, nullptr);
            illegal = leaf.get();
        }
    }
    ASSERT_NE(illegal, nullptr);
    EXPECT_TRUE(illegal->IsIllegal());
    EXPECT_TRUE(illegal->isStopped);
    EXPECT_EQ(illegal->isProgramError, GetParam().error);
    EXPECT_EQ(LastStep(*illegal).kind, GetParam().error ? Step::PSK_Error : Step::PSK_Statement);
    ASSERT_NE(illegal->program.TopStatement(), nullptr);
    EXPECT_NE(illegal->program.TopStatement()->asActionStatement(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    ActivationTest, IllegalTest,
    testing::Values(IllegalCase{"InAComponent", "Illegal", "", {"p.e"}, true},
                    // The environment of a provided port must avoid it.
                    IllegalCase{"InTheRunOfAProvidedPort", "Illegal", "p", {"e"}, false},
                    IllegalCase{"InTheRunOfARequiredPort", "Illegal", "r", {"e"}, true}),
    [](auto const& info) { return info.param.name; });

struct PromotionCase {
    char const* name;
    char const* model;
    char const* port;
    std::vector<std::string> trace;
    std::string message;
};

class PromotionTest : public testing::TestWithParam<PromotionCase> {};

TEST_P(PromotionTest, TheBestDeadEndBecomesTheErrorOfTheRun) {
    auto const states = MatchingStates(RunOf(GetParam().model, GetParam().port), GetParam().trace);
    ASSERT_EQ(states.size(), 1u);
    EXPECT_TRUE(states[0]->isProgramError);
    EXPECT_EQ(states[0]->message, GetParam().message);
    EXPECT_EQ(LastStep(*states[0]).kind, Step::PSK_Error);
}

INSTANTIATE_TEST_SUITE_P(
    ActivationTest, PromotionTest,
    testing::Values(
        PromotionCase{"NoOnStatementFits", "Queue", "", {"p.q"}, "p.q (implicitly) illegal"},
        PromotionCase{
            "NoOnStatementTakesTheQueueHead", "Actor", "", {"r.o"}, "r.o (implicitly) illegal"},
        PromotionCase{
            "NoOnStatementTakesAnAutonomousActivation", "D", "", {"o"}, " (implicitly) illegal"},
        PromotionCase{"AnActionDoesNotFit", "Actor", "", {"p.e", "r.q"}, "Invalid event trace"},
        PromotionCase{"IllegalInTheRunOfAProvidedPort", "Illegal", "p", {"e"}, "illegal"}),
    [](auto const& info) { return info.param.name; });

} // namespace
} // namespace interpreter::test
