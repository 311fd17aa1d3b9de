#include "interpreter/LoadedSource.h"

#include "interpreter/MatchingStates.h"
#include "trace/MicroTrace.h"

#include "metamodel/ComponentDeclaration.h"
#include "metamodel/Kel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace interpreter::test {
namespace {

using testing::ElementsAre;

LoadedSource const& Source() {
    static LoadedSource const source(R"(
interface IP {
    in void go();
    in void stop();
    in bool ask();
    out void done();
    behaviour {
        bool running = false;
        [!running] {
            on go: running = true;
            on stop: illegal;
            on ask: reply(false);
        }
        [running] {
            on go: illegal;
            on stop: running = false;
            on ask: reply(true);
            on optional: { done; running = false; }
        }
    }
}
interface IR {
    in void start();
    out void ready();
    behaviour {
        bool running = false;
        [!running] on start: running = true;
        [running] on optional: { ready; running = false; }
    }
}
component Echo {
    provides IP p;
    behaviour {
        on p.go(): {}
        on p.stop(): {}
        on p.ask(): reply(true);
    }
}
component Mute {
    provides IP p;
    behaviour {
        on p.go(): {}
        on p.stop(): {}
        on p.ask(): {}
    }
}
component Relay {
    provides IP p;
    requires IR r;
    behaviour {
        bool busy = false;
        [!busy] {
            on p.go(): { r.start(); busy = true; }
            on p.ask(): reply(false);
        }
        [busy] {
            on p.ask(): reply(true);
            on r.ready(): { p.done(); busy = false; }
        }
    }
}
)");
    return source;
}

// The runs of the ports, each on its part of the trace, then the component's.
struct ComponentRun {
    ComponentRun(std::string const& component, std::vector<std::string> const& trace) {
        for (auto const* port : Source().model(component).asComponentDeclaration()->getPorts()) {
            std::vector<std::string> own;
            auto const prefix = port->getName() + ".";
            for (auto const& event : trace) {
                if (event.starts_with(prefix)) {
                    own.push_back(event.substr(prefix.size()));
                }
            }
            auto states = MatchingStates(std::make_shared<ModelInstance const>(*port), own);
            portStates.emplace(port, std::move(states.front()));
        }
        state = std::move(MatchingStates(Source().run(component), trace).front());
        microTrace = std::make_unique<MicroTrace>(*state, portStates);
    }

    // Each step as its lifeline and its kind.
    std::vector<std::string> steps() const {
        std::vector<std::string> texts;
        for (auto const& step : microTrace->steps) {
            texts.push_back(step->stateVector.modelInstance->getName() + ":" +
                            step->getStepKindName());
        }
        return texts;
    }

    PortStates portStates;
    ModelStatePtr state;
    std::unique_ptr<MicroTrace> microTrace;
};

TEST(MicroTraceTest, ACallThroughAProvidedPortStandsBesideTheComponentsAcceptance) {
    ComponentRun const run("Echo", {"p.go", "p.return"});
    EXPECT_FALSE(run.microTrace->isProtocolViolation);
    EXPECT_THAT(run.steps(),
                ElementsAre("Echo:Initialize", "p:Initialize", "p:ThreadEnter",
                            "p:GuardedStatement", "p:OnEventStatement", "p:OnEvent",
                            "Echo:ThreadEnter", "Echo:OnEventStatement", "Echo:OnEvent",
                            "Echo:OnEventReturn", "Echo:ThreadExit", "p:AssignmentStatement",
                            "p:OnEventReturn", "p:ThreadExit"));
    EXPECT_EQ(run.microTrace->MainModelLastStep()->get()->kind, ProgramStep::PSK_ThreadExit);
    EXPECT_EQ(run.microTrace->getErrorMsg(), "failed");
}

TEST(MicroTraceTest, ACallOnARequiredPortIsPairedWithThatPortsAcceptance) {
    ComponentRun const run("Relay", {"p.go", "r.start", "r.return", "p.return"});
    EXPECT_FALSE(run.microTrace->isProtocolViolation) << run.microTrace->getErrorMsg();
    // The next step that needs a partner behind the call is the port's acceptance.
    auto const& steps = run.microTrace->steps;
    auto call = std::find_if(steps.begin(), steps.end(), [](MicroStep const& step) {
        return step->kind == ProgramStep::PSK_Statement && step->hasPortEvent();
    });
    ASSERT_NE(call, steps.end());
    auto const partner = std::find_if(std::next(call), steps.end(),
                                      [](MicroStep const& step) { return is_match_required(*step); });
    ASSERT_NE(partner, steps.end());
    EXPECT_EQ((*partner)->stateVector.modelInstance->getName(), "r");
    EXPECT_EQ((*partner)->kind, ProgramStep::PSK_OnEvent);
}

TEST(MicroTraceTest, AnEventTheProvidedPortCallsIllegalIsBlamedOnTheComponentsAcceptance) {
    ComponentRun const run("Echo", {"p.stop", "p.return"});
    auto const& trace = *run.microTrace;
    EXPECT_TRUE(trace.isProtocolViolation);
    EXPECT_EQ(trace.violatingPort, &Source().port("Echo", "p"));
    ASSERT_NE(trace.violatingStep, nullptr);
    EXPECT_EQ(trace.violatingStep, &trace.steps.back());
    EXPECT_EQ(trace.getErrorMsg(), "p.stop not allowed by port p");
    EXPECT_EQ(run.steps().back(), "Echo:OnEvent");
}

TEST(MicroTraceTest, AReplyThePortWouldNotGiveIsAViolationAtTheReturn) {
    ComponentRun const run("Echo", {"p.ask", "p.true"});
    auto const& trace = *run.microTrace;
    EXPECT_TRUE(trace.isProtocolViolation);
    EXPECT_EQ(trace.getErrorMsg(), "p.true not allowed by port p");
    EXPECT_EQ(run.steps().back(), "Echo:OnEventReturn");
    // The provided port's own failure is no step of the trace.
    for (auto const& step : trace.steps) {
        EXPECT_NE(step->kind, ProgramStep::PSK_Error);
    }
}

TEST(MicroTraceTest, AMissingReplyIsAnErrorOfTheComponentItself) {
    // The component cannot return what the trace shows: no way fits.
    ComponentRun const run("Mute", {"p.ask", "p.false"});
    auto const& trace = *run.microTrace;
    EXPECT_FALSE(trace.isProtocolViolation);
    EXPECT_EQ(trace.steps.back()->kind, ProgramStep::PSK_Error);
    EXPECT_EQ(trace.error(), "Invalid event trace");
    EXPECT_EQ(trace.getErrorMsg(), "Invalid event trace");
}

TEST(MicroTraceTest, AnUnconstrainedTraceEndsAtTheFirstError) {
    ModelState state(Source().run("Echo"), {});
    state.programError("first");
    state.trace(ProgramStep::Initialize(state.stateVector, {}));
    state.programError("second");
    MicroTrace const trace(state);
    ASSERT_EQ(trace.steps.size(), 2u);
    EXPECT_EQ(trace.steps.back()->errorMessage, "first");
    EXPECT_EQ(trace.getErrorMsg(), "second");
    EXPECT_EQ(trace.model, &Source().model("Echo"));
}

TEST(MicroTraceTest, EveryPortNeedsARun) {
    auto const state = std::move(MatchingStates(Source().run("Echo"), {}).front());
    PortStates const none;
    EXPECT_THROW(
        {
            try {
                MicroTrace const trace(*state, none);
            } catch (std::runtime_error const& error) {
                EXPECT_STREQ(error.what(), "MicroTrace: port microtrace missing");
                throw;
            }
        },
        std::runtime_error);
}

} // namespace
} // namespace interpreter::test
