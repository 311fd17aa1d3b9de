#include "interpreter/LoadedSource.h"

#include "ErrorText.h"

#include "interpreter/MatchingStates.h"
#include "trace/MicroTrace.h"

#include "metamodel/ComponentDeclaration.h"
#include "metamodel/Kel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace interpreter::test {
namespace {

using ::test::errorOf;

LoadedSource const& Source() {
    static LoadedSource const source(R"(
interface IP { in bool ask(); behaviour { on ask: reply(false); } }
component Echo { provides IP p; behaviour { on p.ask(): reply(true); } }
component Mute { provides IP p; behaviour { on p.ask(): {} } }
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
            texts.push_back(step->stateVector->modelInstance->getName() + ":" +
                            step->getStepKindName());
        }
        return texts;
    }

    PortStates portStates;
    ModelStatePtr state;
    std::unique_ptr<MicroTrace> microTrace;
};

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
    state.trace(ProgramStep::Initialize(state.snapshot(), {}));
    state.programError("second");
    MicroTrace const trace(state);
    ASSERT_EQ(trace.steps.size(), 2u);
    EXPECT_EQ(trace.steps.back()->errorMessage(), "first");
    EXPECT_EQ(trace.getErrorMsg(), "second");
    EXPECT_EQ(trace.model, &Source().model("Echo"));
}

TEST(MicroTraceTest, EveryPortNeedsARun) {
    auto const state = std::move(MatchingStates(Source().run("Echo"), {}).front());
    EXPECT_EQ(errorOf<std::runtime_error>([&] { MicroTrace const trace(*state, PortStates()); }),
              "MicroTrace: port microtrace missing");
}

} // namespace
} // namespace interpreter::test
