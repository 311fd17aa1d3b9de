#include "LoadedSource.h"
#include "Runs.h"

#include "interpreter/MatchingStates.h"
#include "interpreter/ModelState.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <pthread.h>

#include <functional>
#include <set>
#include <utility>

namespace interpreter::test {
namespace {

using testing::ElementsAre;

// Line numbers in the expected messages count from the empty first line.
LoadedSource const& Source() {
    static LoadedSource const source(R"(
interface I {
    in void e(); in bool q(); out void o(); out void n();
    behaviour { on e: {} on q: reply(true); on optional: o; on optional: n; }
}
component CallsOut { provides I p; requires I r; behaviour { on p.e(): { r.e(); } } }
component Notified { provides I p; requires I r; behaviour { on r.n(): p.o(); } }
interface Fork {
    in void e(); out void o();
    behaviour {
        on e: o;
        on optional: o;
    }
}
component Twice {
    provides I p;
    behaviour { bool b = true; on p.e(): {} [b] on p.e(): b = false; }
}
interface Strict { in void e(); behaviour { on e: {} on e: illegal; } }
component UsesStrict { provides Strict p; behaviour { on p.e(): {} on p.e(): illegal; } }
component Errors {
    provides I p;
    requires I r;
    behaviour { bool b = true; on p.e(): illegal; on p.e(): { r.e(); if (b) illegal; } }
}
interface Partial {
    in void e(); out void o(); out void n();
    behaviour {
        on e: n;
        on e: { o; n; }
        on e: { o; o; }
    }
}
interface J {
    in void e(); out void o();
    behaviour {
        bool b = false;
        bool d = false;
        [!b] on e: b = true;
        [b] on e: illegal;
        [b && !d] on optional: { o; d = true; }
    }
}
component UsesJ { provides J p; behaviour { on p.e(): {} } }
component CallsJ { provides I p; requires J r; behaviour { on p.e(): r.e(); } }
interface Looping { in void e(); out void o(); behaviour { on e: {} on optional: {} } }
interface Long {
    in void e(); out void o();
    behaviour { bool b = false; bool flip(bool x) { return !x; } on e: b = flip(b); on optional: o; }
}
)");
    return source;
}

using Step = ProgramStep;

// Runs `work` on a thread with a stack of 1 MB.
void OnSmallStack(std::function<void()> work) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, std::size_t{1} << 20);
    pthread_t thread;
    auto const run = [](void* argument) -> void* {
        (*static_cast<std::function<void()>*>(argument))();
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, run, &work), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

struct Expected {
    std::vector<Kind> added;
    std::size_t index;
};

// Steps one at a time and checks what each step adds and consumes.
void StepThrough(ModelState& state, std::vector<Expected> const& rows) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        auto const before = state.programTrace->size();
        state.singleStep();
        EXPECT_THAT(KindsSince(state, before), testing::ElementsAreArray(rows[i].added))
            << "step " << i + 1;
        EXPECT_EQ(state.namedEventIndex, rows[i].index) << "step " << i + 1;
        EXPECT_TRUE(state.continuations.empty()) << "step " << i + 1;
        EXPECT_FALSE(state.isStopped) << "step " << i + 1 << ": " << state.message;
    }
}

TEST(MatchingStatesTest, ACallThatMakesACall) {
    ModelState state(Source().run("CallsOut"), {"p.e", "r.e", "r.return", "p.return"});
    StepThrough(state, {{{Step::PSK_ThreadEnter}, 0}});
    EXPECT_EQ(state.claimedProvidedPort, &Source().port("CallsOut", "p"));
    StepThrough(state, {{{}, 0},
                        {{Step::PSK_Statement, Step::PSK_OnEvent}, 1},
                        {{}, 1},
                        {{Step::PSK_Statement}, 2},
                        {{Step::PSK_ActionReturn}, 3},
                        {{}, 3},
                        {{Step::PSK_OnEventReturn, Step::PSK_ThreadExit}, 4}});
    EXPECT_TRUE(state.IsIdle());
    EXPECT_TRUE(state.isProgramExecutionStopped());
    EXPECT_TRUE(state.IsSolution());
    EXPECT_EQ(Kinds(state).front(), Step::PSK_Initialize);
}

TEST(MatchingStatesTest, ACallThatStopsAheadOfTheCallItMakes) {
    auto const trace = std::vector<std::string>{"p.e"};
    auto const states = MatchingStates(Source().run("CallsOut"), trace);
    ASSERT_EQ(states.size(), 1u);
    EXPECT_TRUE(states[0]->IsSolution());
    EXPECT_TRUE(states[0]->isActive);
    EXPECT_THAT(Kinds(*states[0]), ElementsAre(Step::PSK_Initialize, Step::PSK_ThreadEnter,
                                               Step::PSK_Statement, Step::PSK_OnEvent));
    EXPECT_TRUE(IsModelOccupied(Source().run("CallsOut"), trace));
    EXPECT_FALSE(IsModelOccupied(Source().run("CallsOut"), {"p.e", "r.e", "r.return", "p.return"}));
    // An error is no occupation.
    EXPECT_FALSE(IsModelOccupied(Source().run("Errors"), trace));
}

TEST(MatchingStatesTest, ANotification) {
    ModelState state(Source().run("Notified"), {"r.n", "p.o"});
    StepThrough(state, {{{Step::PSK_Enqueue}, 1}, {{Step::PSK_ThreadEnter}, 1}});
    EXPECT_EQ(state.GetActivationPort(), &Source().port("Notified", "r"));
    StepThrough(state, {{{}, 1},
                        {{Step::PSK_Dequeue, Step::PSK_Statement, Step::PSK_OnEvent}, 1},
                        {{Step::PSK_Statement, Step::PSK_Receive}, 2}});
    EXPECT_EQ(state.claimedProvidedPort, &Source().port("Notified", "p"));
    StepThrough(state, {{{Step::PSK_ThreadExit}, 2}});
    EXPECT_TRUE(state.IsIdle());
    EXPECT_TRUE(state.IsSolution());
}

TEST(MatchingStatesTest, AFork) {
    std::vector<std::string> const trace{"e", "o", "return"};
    auto const first = First(Source().run("Fork"), trace);
    first->singleStep();
    ASSERT_EQ(first->continuations.size(), 2u);
    EXPECT_EQ(first->continuations[0]->activationEvent.str(), "tau");
    EXPECT_EQ(first->continuations[1]->activationEvent.str(), "e");

    auto const leaves = Leaves(Source().run("Fork"), trace);
    EXPECT_THAT(
        Messages(leaves),
        ElementsAre(
            OnLine(11, "activation event tau"),
            "Action statement on line: 12 does not represent remaining event trace head (e)", "",
            OnLine(12, "current call context.")));
    std::vector<std::size_t> indices;
    for (auto const& leaf : leaves) {
        indices.push_back(leaf->namedEventIndex);
    }
    EXPECT_THAT(indices, ElementsAre(0u, 0u, 3u, 0u));

    auto const states = MatchingStates(Source().run("Fork"), trace);
    ASSERT_EQ(states.size(), 1u);
    EXPECT_TRUE(states[0]->IsSolution());
    EXPECT_EQ(states[0]->namedEventIndex, 3u);
}

TEST(MatchingStatesTest, SolutionsComeInTheOrderOfTheForks) {
    auto const states = MatchingStates(Source().run("Twice"), {"p.e", "p.return"});
    ASSERT_EQ(states.size(), 2u);
    // The guarded statement is a candidate before the plain one.
    EXPECT_EQ(ValueOf(states[0]->stateVector, "b"), "false");
    EXPECT_EQ(ValueOf(states[1]->stateVector, "b"), "true");
}

struct OrderCase {
    char const* name;
    char const* model;
    char const* port;
    std::vector<std::string> trace;
    // For each state of the result: how far it got, and whether it is an error.
    std::vector<std::pair<std::size_t, bool>> states;
};

class ResultOrderTest : public testing::TestWithParam<OrderCase> {};

TEST_P(ResultOrderTest, ErrorsFirstThenTheFurthest) {
    auto const& run = *GetParam().port ? Source().runOfPort(GetParam().model, GetParam().port)
                                       : Source().run(GetParam().model);
    std::vector<std::pair<std::size_t, bool>> found;
    for (auto const& state : MatchingStates(run, GetParam().trace)) {
        found.emplace_back(state->namedEventIndex, state->isProgramError);
        EXPECT_TRUE(state->isProgramError ? state->message == "illegal" : state->IsSolution());
    }
    EXPECT_EQ(found, GetParam().states);
}

INSTANTIATE_TEST_SUITE_P(
    MatchingStatesTest, ResultOrderTest,
    testing::Values(
        OrderCase{"AnEmptyTrace", "CallsOut", "", {}, {{0, false}}},
        // An error on any way wins over every solution, however far it got.
        OrderCase{
            "AnErrorAndASolution", "UsesStrict", "", {"p.e", "p.return"}, {{1, true}, {2, false}}},
        // The illegal way of a provided port is a dead end, dropped.
        OrderCase{"TheRunOfAProvidedPort", "UsesStrict", "p", {"e", "return"}, {{2, false}}},
        OrderCase{"TwoErrors", "Errors", "", {"p.e", "r.e", "r.return"}, {{3, true}, {1, true}}}),
    [](auto const& info) { return info.param.name; });

TEST(MatchingStatesTest, TheFirstOfTheFurthestDeadEndsIsPromoted) {
    auto const states = MatchingStates(Source().run("Partial"), {"e", "o", "x"});
    ASSERT_EQ(states.size(), 1u);
    ModelState const& state = *states[0];
    EXPECT_TRUE(state.isProgramError);
    EXPECT_EQ(state.message, "Invalid event trace");
    EXPECT_EQ(state.namedEventIndex, 2u);
    // Two ways got as far; the one on line 30 was found first.
    auto const steps = state.programTrace->ToVector();
    ASSERT_GT(steps.size(), 2u);
    ASSERT_EQ(steps[2]->kind, Step::PSK_Statement);
    EXPECT_EQ(steps[2]->statement->getBeginLine(), 30);
    EXPECT_EQ(LastStep(state).kind, Step::PSK_Error);
}

struct EligibleCase {
    char const* name;
    char const* model;
    std::vector<std::string> trace;
    std::set<std::string> eligible;
};

class EligibleEventsTest : public testing::TestWithParam<EligibleCase> {};

TEST_P(EligibleEventsTest, WhatMayComeNext) {
    auto const run = Source().run(GetParam().model);
    // The states of a search made before give the same answer.
    EXPECT_EQ(EligibleEvents(run, GetParam().trace, MatchingStates(run, GetParam().trace)),
              GetParam().eligible);
    EXPECT_EQ(EligibleEvents(Source().run(GetParam().model), GetParam().trace),
              GetParam().eligible);
}

INSTANTIATE_TEST_SUITE_P(
    MatchingStatesTest, EligibleEventsTest,
    testing::Values(
        // An event whose only other way is a dead end is eligible; one whose
        // ways are all dead ends is not.
        EligibleCase{"AtTheStart", "J", {}, {"e"}},
        // An event that leads to the illegal action is not eligible.
        EligibleCase{"AfterTheCall", "J", {"e", "return"}, {"o"}},
        EligibleCase{"Deadlock", "J", {"e", "return", "o"}, {}},
        EligibleCase{"AfterAnError", "J", {"e", "return", "e"}, {}},
        EligibleCase{"AComponentAsksItsPorts", "UsesJ", {}, {"p.e"}},
        // The behaviour would take p.e; the protocol of p no longer allows it.
        EligibleCase{"AComponentThatItsPortForbids", "UsesJ", {"p.e", "p.return"}, {}},
        EligibleCase{"AComponentAwaitingAReturn", "CallsJ", {"p.e", "r.e"}, {"r.return"}},
        // The way that sends o on its own loops without showing anything.
        EligibleCase{"AHiddenLoopRulesOutItsEvent", "Looping", {"e", "return"}, {"e"}}),
    [](auto const& info) { return info.param.name; });

// At each call the autonomous way and the other on statement die at once, so
// the search goes two hundred thousand entries deep through forks, and every
// call runs a function.
TEST(MatchingStatesTest, ALongTraceDoesNotExhaustTheStack) {
    constexpr std::size_t calls = 100'000;
    std::vector<std::string> trace;
    trace.reserve(2 * calls);
    for (std::size_t i = 0; i < calls; ++i) {
        trace.emplace_back("e");
        trace.emplace_back("return");
    }
    // A stack that a frame per fork would overflow many times over.
    ModelStates states;
    OnSmallStack([&] { states = MatchingStates(Source().run("Long"), trace); });
    ASSERT_EQ(states.size(), 1u);
    EXPECT_TRUE(states[0]->IsSolution());
    EXPECT_EQ(states[0]->namedEventIndex, 2 * calls);
    // Initialize, then for each call ThreadEnter, the on's Statement and
    // OnEvent, the function's FunctionCall, ReturnStatement and assignment,
    // the return and ThreadExit.
    EXPECT_EQ(states[0]->programTrace->size(), 1 + 8 * calls);
    EXPECT_EQ(ValueOf(states[0]->stateVector, "b"), "false");
}

} // namespace
} // namespace interpreter::test
