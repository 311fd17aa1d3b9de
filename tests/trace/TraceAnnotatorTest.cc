#include "trace/TraceAnnotator.h"

#include "interpreter/LoadedSource.h"
#include "interpreter/ProgramStep.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using interpreter::test::LoadedSource;
using Trace = std::vector<std::string>;

LoadedSource const& Source() {
    static LoadedSource const source(R"(
interface N {
    in void a();
    in void b();
    in void c();
    out void n();
    behaviour {
        on a, b, c: {}
        on optional: n;
    }
}
component K {
    provides N p;
    requires N r;
    requires N s;
    behaviour { on p.a(): {} }
}
)");
    return source;
}

// A run of port `name` whose history is made step by step.
class History {
public:
    explicit History(char const* name)
        : instance(Source().runOfPort("K", name)),
          state(std::make_unique<ModelState>(instance, Trace{})) {}

    // The port acting on its own: a thread with no event.
    History& spontaneous() {
        state->trace(ProgramStep::ThreadEnter(*instance->model, state->snapshot(), {}));
        return *this;
    }
    History& exit() {
        state->trace(ProgramStep::ThreadExit(*instance->model, state->snapshot(), {}));
        return *this;
    }
    History& receive(char const* event) {
        state->trace(ProgramStep::Receive(instance->getPortEvent(event), state->snapshot(), {}));
        return *this;
    }
    // A call that enters the port, and leaves it.
    History& call(char const* event) {
        state->trace(
            ProgramStep::ThreadEnter(instance->getPortEvent(event), state->snapshot(), {}));
        state->trace(
            ProgramStep::ThreadExit(instance->getPortEvent(event), state->snapshot(), {}));
        return *this;
    }

    ModelInstancePtr instance;
    ModelStatePtr state;
};

// r shows r.a, a marker, r.b; s shows s.a and a marker, after a spontaneous
// activity that received nothing; the provided port p receives on its own,
// which is never marked.
PortStates Ports() {
    PortStates ports;
    ports[&Source().port("K", "p")] =
        std::move(History("p").spontaneous().receive("a").exit().state);
    ports[&Source().port("K", "r")] =
        std::move(History("r").spontaneous().receive("a").exit().call("b").state);
    ports[&Source().port("K", "s")] =
        std::move(History("s").spontaneous().exit().spontaneous().receive("a").exit().state);
    return ports;
}

struct Row {
    char const* name;
    Trace trace;
    Trace annotated;
};

class AddQueueFlushesTest : public testing::TestWithParam<Row> {};

TEST_P(AddQueueFlushesTest, MarksBehindTheEventThatPrecededTheMarker) {
    auto const ports = Ports();
    auto const annotated = TraceAnnotator::add_queue_flushes(GetParam().trace, ports);
    EXPECT_EQ(annotated, GetParam().annotated);
    EXPECT_EQ(TraceAnnotator::rm_queue_flushes(annotated), GetParam().trace);
}

INSTANTIATE_TEST_SUITE_P(
    TraceAnnotatorTest, AddQueueFlushesTest,
    testing::Values(
        Row{"Empty", {}, {}}, Row{"InOrder", {"r.a", "r.b"}, {"r.a", "r.<<flush_queue>>", "r.b"}},
        Row{"OtherPortBetween", {"r.a", "p.x", "r.b"}, {"r.a", "r.<<flush_queue>>", "p.x", "r.b"}},
        Row{"TraceEndsAtTheMarker", {"r.a"}, {"r.a", "r.<<flush_queue>>"}},
        Row{"MismatchEndsOnlyThatPort",
            {"r.c", "r.a", "s.a", "r.b"},
            {"r.c", "r.a", "s.a", "s.<<flush_queue>>", "r.b"}},
        Row{"SilentActivityWithoutReceiveHasNoMarker",
            {"s.a", "s.b"},
            {"s.a", "s.<<flush_queue>>", "s.b"}},
        Row{"ProvidedPortsAreNotMarked", {"p.a", "p.b"}, {"p.a", "p.b"}},
        // "r" alone is an event of r, and parts r from its history.
        Row{"BarePortNameCountsForThatPort", {"r", "r.a"}, {"r", "r.a"}},
        Row{"UnknownPortsPass", {"q.a", ".a", "a"}, {"q.a", ".a", "a"}}),
    [](testing::TestParamInfo<Row> const& info) { return info.param.name; });

// A marker is the dotted name anywhere in an entry.
TEST(TraceAnnotatorTest, RmQueueFlushesKeepsTheOrderOfTheRest) {
    EXPECT_EQ(TraceAnnotator::rm_queue_flushes({"r.<<flush_queue>>", "r.a", ".<<flush_queue>>",
                                                "<<flush_queue>>", "a.b.<<flush_queue>>x",
                                                "r.<<flush_queue>", "p.b"}),
              (Trace{"r.a", "<<flush_queue>>", "r.<<flush_queue>", "p.b"}));
}

} // namespace
