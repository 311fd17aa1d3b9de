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
    in void e(); in bool q(); out void o(); out void n();
    behaviour { on e: {} on q: reply(true); on optional: o; on optional: n; }
}
interface R {
    in bool q(); out void o();
    behaviour { on q: reply(true); on optional: { reply(true); o; } }
}
component Internal {
    provides I p;
    behaviour {
        requires kel.async t;
        requires kel.async u;
        on p.e(): { t.clr(); t.req(); u.req(); t.req(); t.clr(); }
        on t.ack(): {}
        on u.ack(): {}
    }
}
component Caller {
    provides I p;
    requires I r;
    requires I s;
    behaviour {
        bool v = false;
        on p.e(): r.e();
        on p.q(): { v = r.q(); bool w = r.q(); reply(v && w); }
        on r.o(): {}
        on s.o(): {}
    }
}
component Valued {
    provides I p;
    requires I r;
    behaviour {
        on p.q(): r.e();
        on p.e(): reply();
        on p.e(): reply(true);
        on r.o(): reply(false);
    }
}
component TwoProvides { provides I p; provides I j; behaviour { on j.e(): p.reply(); on p.e(): {} } }
component Blocker {
    provides I p;
    requires I r;
    behaviour {
        blocking on p.e(): {}
        blocking on p.q(): reply(true);
        on r.o(): p.reply();
    }
}
component SelfReply {
    provides I p;
    requires I r;
    behaviour {
        blocking on p.e(): {}
        blocking on p.q(): { r.e(); p.reply(); }
        on r.o(): {}
    }
}
)");
    return source;
}

// Initialize, ThreadEnter and the accepting on statement's two steps.
constexpr std::size_t AfterOn = 4;

using Step = ProgramStep;

TEST(ActionsTest, RequestsArmInternalPortsAndClearsTakeTheOldest) {
    auto const states = MatchingStates(Source().run("Internal"), {"p.e", "p.return"});
    ASSERT_EQ(states.size(), 1u);
    ModelState const& state = *states[0];
    EXPECT_TRUE(state.IsSolution());
    // The first clear finds nothing to take and is traced all the same.
    EXPECT_THAT(Labels(state, AfterOn),
                ElementsAre("ActionStatement", "ActionStatement", "ActionStatement",
                            "ActionStatement", "ActionStatement", "OnEventReturn", "ThreadExit"));
    std::vector<std::string> armed;
    for (auto const* port : state.armedPorts) {
        armed.push_back(port->getName());
    }
    EXPECT_THAT(armed, ElementsAre("u", "t"));
    EXPECT_TRUE(state.IsArmed());
}

TEST(ActionsTest, AnEventOfTheCalledPortIsQueuedWhileTheCallAwaitsItsReturn) {
    auto const states =
        MatchingStates(Source().run("Caller"), {"p.e", "r.e", "r.o", "r.return", "p.return"});
    ASSERT_EQ(states.size(), 1u);
    ModelState const& state = *states[0];
    EXPECT_TRUE(state.IsSolution());
    EXPECT_EQ(state.namedEventIndex, 5u);
    // The queue is served in the same activation, before the return of p.e.
    EXPECT_THAT(Kinds(state),
                ElementsAre(Step::PSK_Initialize, Step::PSK_ThreadEnter, Step::PSK_Statement,
                            Step::PSK_OnEvent, Step::PSK_Statement, Step::PSK_Enqueue,
                            Step::PSK_ActionReturn, Step::PSK_Dequeue, Step::PSK_Statement,
                            Step::PSK_OnEvent, Step::PSK_OnEventReturn, Step::PSK_ThreadExit));
}

TEST(ActionsTest, ActionExpressionsTakeTheCallThenTheReturn) {
    auto const states = MatchingStates(Source().run("Caller"),
                                       {"p.q", "r.q", "r.true", "r.q", "r.false", "p.false"});
    ASSERT_EQ(states.size(), 1u);
    ModelState const& state = *states[0];
    EXPECT_TRUE(state.IsSolution());
    EXPECT_EQ(state.namedEventIndex, 6u);
    EXPECT_THAT(Labels(state, AfterOn),
                ElementsAre("AssignmentStatement", "ActionReturn", "ReturnAssignement",
                            "VariableDeclarationStatement", "ActionReturn", "ReturnAssignement",
                            "ReplyStatement", "OnEventReturn", "ThreadExit"));
    auto const steps = state.programTrace->ToVector();
    ASSERT_TRUE(steps[AfterOn + 2]->value.has_value());
    EXPECT_EQ((*steps[AfterOn + 2]->value)->str(), "true");
    ASSERT_TRUE(steps[AfterOn + 5]->value.has_value());
    EXPECT_EQ((*steps[AfterOn + 5]->value)->str(), "false");
    EXPECT_EQ(ValueOf(state.stateVector, "v"), "true");
}

TEST(ActionsTest, AReplyOnTheBlockedPortReleasesItsCall) {
    auto const states = MatchingStates(Source().run("Blocker"), {"p.e", "r.o", "p.return"});
    ASSERT_EQ(states.size(), 1u);
    ModelState const& state = *states[0];
    EXPECT_TRUE(state.IsSolution());
    EXPECT_EQ(state.namedEventIndex, 3u);
    EXPECT_THAT(Kinds(state),
                ElementsAre(Step::PSK_Initialize, Step::PSK_ThreadEnter, Step::PSK_Statement,
                            Step::PSK_OnEvent, Step::PSK_Block, Step::PSK_Enqueue,
                            Step::PSK_ThreadEnter, Step::PSK_Dequeue, Step::PSK_Statement,
                            Step::PSK_OnEvent, Step::PSK_Statement, Step::PSK_Release,
                            Step::PSK_OnEventReturn, Step::PSK_ThreadExit, Step::PSK_ThreadExit));
    auto const steps = state.programTrace->ToVector();
    // The released thread leaves first, then the activation that released it.
    EXPECT_EQ(steps[13]->portEvent.str(), "p.e");
    EXPECT_EQ(steps[14]->portEvent.str(), "r.tau");
    EXPECT_FALSE(state.isBlocked(Source().port("Blocker", "p")));
    EXPECT_TRUE(state.pendingReturns.empty());
}

TEST(ActionsTest, AReplyInsideBlockingReturnsAtOnce) {
    auto const states = MatchingStates(Source().run("Blocker"), {"p.q", "p.true"});
    ASSERT_EQ(states.size(), 1u);
    ModelState const& state = *states[0];
    EXPECT_TRUE(state.IsSolution());
    EXPECT_THAT(Labels(state, AfterOn),
                ElementsAre("ReplyStatement", "OnEventReturn", "ThreadExit"));
    auto const steps = state.programTrace->ToVector();
    ASSERT_TRUE(steps[AfterOn + 1]->value.has_value());
    EXPECT_EQ((*steps[AfterOn + 1]->value)->str(), "true");
    EXPECT_TRUE(state.blockedEvents.empty());
}

struct MessageCase {
    char const* name;
    char const* model;
    std::vector<std::string> trace;
    std::size_t leaf; // in fork order; the others fail to match the head
    std::string message;
    bool error;
};

class ActionMessagesTest : public testing::TestWithParam<MessageCase> {};

TEST_P(ActionMessagesTest, TheWayThroughTheActionEndsWithItsMessage) {
    auto const leaves = Leaves(Source().run(GetParam().model), GetParam().trace);
    ASSERT_GT(leaves.size(), GetParam().leaf);
    ModelState const& leaf = *leaves[GetParam().leaf];
    EXPECT_TRUE(leaf.isStopped);
    EXPECT_EQ(leaf.message, GetParam().message);
    EXPECT_EQ(leaf.isProgramError, GetParam().error);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(
    ActionsTest, ActionMessagesTest,
    testing::Values(
        MessageCase{"NoReturnOfTheCall", "Caller", {"p.e", "r.e", "s.o"}, 0,
                    "No matching action return found in event trace.", false},
        MessageCase{"AnotherCall", "Caller", {"p.e", "r.q"}, 0,
                    "Action statement on line: 26 does not represent remaining event trace head (r.q)",
                    false},
        MessageCase{"AnotherValuedCall", "Caller", {"p.q", "r.e"}, 1,
                    "Action expression does not match remaining event trace head (r.e)", false},
        MessageCase{"AVoidReturnOfAValuedCall", "Caller", {"p.q", "r.q", "r.return"}, 1,
                    "Action return not found in event trace.", false},
        MessageCase{"AVoidReplyOutsideBlocking", "Valued", {"p.e"}, 1,
                    "Void reply not allowed in non-blocking action.", true},
        MessageCase{"AValuedReplyToAVoidCall", "Valued", {"p.e"}, 2,
                    "Reply statement does not match event return type.", true},
        MessageCase{"AReplyToANotification", "Valued", {"r.o"}, 3,
                    "Reply not allowed on requires-port: 'r'", true},
        MessageCase{"NoReplyBeforeServingTheQueue", "Valued", {"p.q", "r.e", "r.o", "r.return"}, 0,
                    "Completeness: p.q reply value not set", true},
        // Without a queue the missing reply shows as a mismatch of the return.
        MessageCase{"NoReply", "Valued", {"p.q", "r.e", "r.return", "p.true"}, 0,
                    "p.q return does not match remaining event trace head (p.true)", false},
        MessageCase{"AReplyOnAPortThatIsNotBlocked", "TwoProvides", {"j.e"}, 0,
                    "Reply not allowed: port 'p' not blocked.", true},
        MessageCase{"AReplyOfAModelingEvent", "R", {"o"}, 1,
                    "Reply not allowed for 'optional' or 'inevitable'", true},
        // On the way that blocked p.e and then served the queue.
        MessageCase{"AReleaseThatTheTraceDoesNotShow", "Blocker", {"p.e", "r.o", "p.e"}, 1,
                    "Thread release statement does not match remaining event trace head (p.e)",
                    false},
        // A void reply on the calling port fits only its blocked call, yet it
        // is taken as the reply to the call too, which so has no value.
        MessageCase{"AVoidReplyOnTheCallingPortThatHoldsABlockedCall", "SelfReply",
                    {"p.e", "p.q", "r.e", "r.o", "r.return", "p.return"}, 3,
                    "Completeness: p.q reply value not set", true}),
    [](auto const& info) { return info.param.name; });
// clang-format on

} // namespace
} // namespace interpreter::test
