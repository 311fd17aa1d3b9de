#include "LoadedSource.h"

#include "interpreter/ModelState.h"

#include "metamodel/Behaviour.h"
#include "metamodel/Kel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace interpreter::test {
namespace {

using testing::ElementsAre;

LoadedSource const& Source() {
    static LoadedSource const source(R"(
interface I {
    in void e();
    out void o();
    behaviour {
        on e: {}
        on optional: o;
    }
}
component C {
    provides I p;
    requires I r;
    requires I q;
    behaviour {
        requires kel.async t;
        on p.e(): {}
        on r.o(): {}
        on q.o(): {}
        on t.ack(): {}
    }
}
component Ranged {
    provides I p;
    behaviour {
        subint S { 0..3 };
        S low = 3;
        S high = 4;
        on p.e(): {}
    }
}
)");
    return source;
}

std::vector<ProgramStep::ProgramStepKind> Kinds(ModelState const& state) {
    std::vector<ProgramStep::ProgramStepKind> kinds;
    for (auto const& step : state.programTrace->ToVector()) {
        kinds.push_back(step->kind);
    }
    return kinds;
}

kel::EventInstance const& OnEvent(std::size_t i) {
    auto const& top = Source().model("C").getBehaviour().getStatement();
    return *top.getStatements()[i]->asOnEventStatement()->getEvents()[0];
}

TEST(ModelStateTest, AGlobalOutOfRangeFailsAfterTheInitialization) {
    ModelState const state(Source().run("Ranged"), {});
    EXPECT_TRUE(state.IsProgramError());
    EXPECT_EQ(state.message,
              "Global variable declaration failed. Range error for variable high");
    EXPECT_THAT(Kinds(state), ElementsAre(ProgramStep::PSK_Initialize, ProgramStep::PSK_Error));
    // The last bound is in range: the one before it stands.
    EXPECT_EQ(state.stateVector.ToVarValPairVec()[1].second, "3");
}

TEST(ModelStateTest, ACopyHasItsOwnTraceButSharesTheHistory) {
    ModelState const source(Source().run("C"), {"p.e"});
    ModelState const copy(source);
    ModelState const longer(source, std::string("p.return"));
    EXPECT_EQ(copy.programTrace, source.programTrace);
    EXPECT_EQ(longer.namedEventTrace.size(), 2u);
    EXPECT_EQ(longer.namedEventTrace[1], "p.return");
    EXPECT_EQ(source.namedEventTrace.size(), 1u);
}

// A search through more than 2^31 states takes ids past the largest one.
TEST(ModelStateTest, IdsWrapAroundAfterTheLargest) {
    auto const saved = ModelState::next_oid;
    ModelState::next_oid = std::numeric_limits<std::int32_t>::max();
    ModelState const last(Source().run("C"), {});
    ModelState const next(last);
    ModelState::next_oid = saved;
    EXPECT_EQ(last.oid, std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(next.oid, std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(next.parentOid, last.oid);
}

TEST(ModelStateTest, AnErrorOnTopOfAnErrorReplacesIt) {
    ModelState state(Source().run("C"), {});
    state.programError("first");
    state.programError("second");
    auto const steps = state.programTrace->ToVector();
    ASSERT_EQ(steps.size(), 2u);
    EXPECT_EQ(steps[1]->errorMessage(), "second");
    EXPECT_EQ(state.message, "second");
}

TEST(ModelStateTest, AStateWithContinuationsIsNoSolution) {
    ModelState state(Source().run("C"), {});
    EXPECT_TRUE(state.IsSolution());
    state.continuations.push_back(std::make_unique<ModelState>(state));
    EXPECT_TRUE(state.isProgramExecutionStopped());
    EXPECT_FALSE(state.IsSolution());
    EXPECT_EQ(state.GetContinuations().size(), 1u);
    EXPECT_TRUE(state.continuations.empty());
}

TEST(ModelStateTest, IdleModelsAwaitTheirInputs) {
    EXPECT_THAT(ModelState(Source().run("I"), {}).EnabledEventNames(), ElementsAre("e", "o"));
    ModelState component(Source().run("C"), {});
    EXPECT_THAT(component.EnabledEventNames(), ElementsAre("p.e", "r.o", "q.o"));
    // Armed, it may also show what it sends.
    component.armedPorts.push_back(&Source().port("C", "p"));
    EXPECT_TRUE(component.IsArmed());
    EXPECT_THAT(component.EnabledEventNames(),
                ElementsAre("p.e", "r.o", "q.o", "p.o", "r.e", "q.e"));
    EXPECT_THAT(component.GetOpenPorts(), ElementsAre(&Source().port("C", "p")));
}

TEST(ModelStateTest, AnActiveComponentAwaitsTheReturnAndEventsOnOtherPorts) {
    ModelState state(Source().run("C"), {"p.e"});
    state.singleStepActivate(kel::PortEvent(OnEvent(0)));
    EXPECT_TRUE(state.IsActing());
    EXPECT_EQ(state.claimedProvidedPort, &Source().port("C", "p"));
    EXPECT_THAT(Kinds(state), ElementsAre(ProgramStep::PSK_Initialize, ProgramStep::PSK_ThreadEnter));
    EXPECT_THAT(state.EnabledEventNames(), ElementsAre("p.o", "r.e", "q.e", "p.return"));
    EXPECT_THAT(state.GetOpenPorts(),
                ElementsAre(&Source().port("C", "r"), &Source().port("C", "q")));
    // A blocked port is not open either.
    state.blockedEvents.push_back(&OnEvent(1));
    EXPECT_TRUE(state.isBlocked(Source().port("C", "r")));
    EXPECT_THAT(state.GetOpenPorts(), ElementsAre(&Source().port("C", "q")));
}

TEST(ModelStateTest, AComponentThatCallsAwaitsItsReturnOrEventsOfThatPort) {
    ModelState state(Source().run("C"), {});
    state.isActive = true;
    state.activeActionEvent = &OnEvent(1);
    EXPECT_TRUE(state.IsAwaitingActionReturn());
    EXPECT_EQ(state.GetActionPort(), &Source().port("C", "r"));
    EXPECT_THAT(state.GetOpenPorts(), ElementsAre(&Source().port("C", "r")));
    EXPECT_THAT(state.EnabledEventNames(), ElementsAre("r.return", "r.o"));
}

TEST(ModelStateTest, AQueueKeepsAComponentRunningAfterTheTrace) {
    ModelState state(Source().run("C"), {});
    state.stateVector.queue = {"r.o"};
    EXPECT_TRUE(state.IsQueued());
    EXPECT_EQ(state.GetQueuePort(), &Source().port("C", "r"));
    EXPECT_FALSE(state.isProgramExecutionStopped());
    // A fired request is worked off too.
    state.stateVector.queue = {"t.ack"};
    EXPECT_FALSE(state.isProgramExecutionStopped());
    // The delay line of an external port holds what it sends: no input.
    ModelState external(Source().runOfPort("C", "r"), {});
    external.stateVector.queue = {"o"};
    EXPECT_TRUE(external.isProgramExecutionStopped());
}

TEST(ModelStateTest, ConsumingBeyondTheTraceIsAnError) {
    ModelState state(Source().run("C"), {"p.e"});
    state.namedEventConsumed();
    EXPECT_TRUE(state.isEventTraceEmpty());
    EXPECT_THROW(state.namedEventConsumed(), std::runtime_error);
}

} // namespace
} // namespace interpreter::test
