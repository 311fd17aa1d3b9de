#include "tool/SequenceDiagram.h"

#include "interpreter/LoadedSource.h"
#include "interpreter/MatchingStates.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace {

using interpreter::test::LoadedSource;

// Line numbers in the expected selections count from the empty first line.
LoadedSource const& Source() {
    static LoadedSource const source(R"(
interface I {
    in void e();
    behaviour {
        on e: {}
    }
}
interface N {
    in void e();
    out void n();
    behaviour {
        bool b = false;
        on e: b = true;
        on optional: n;
    }
}
component C {
    requires N r;
    provides I p;
    behaviour {
        on p.e(): r.e();
        on r.n(): {}
    }
}
interface G {
    in void e();
    behaviour {
        bool b = true;
        [b] on e: {}
        [true] on e: {}
    }
}
)");
    return source;
}

ModelStatePtr FirstState(ModelInstancePtr const& instance, std::vector<std::string> const& trace) {
    auto states = MatchingStates(instance, trace);
    return std::move(states.front());
}

std::string Diagram(MicroTrace const& trace, TraceType type) {
    std::ostringstream out;
    printTrace(trace, type, out);
    return out.str();
}

std::string Diagram(std::string const& model, std::vector<std::string> const& trace,
                    TraceType type = TT_Interface) {
    auto const state = FirstState(Source().run(model), trace);
    return Diagram(MicroTrace(*state), type);
}

// The last element of a written document, from its opening brace on.
std::string LastElement(std::string const& document) {
    return document.substr(document.rfind("\n{\"kind\"") + 1);
}

TEST(SequenceDiagramTest, UnconstrainedComponentGetsPortPlaceholders) {
    // Provided ports stand ahead of the component and required ones behind it,
    // whatever the order of their declarations.
    auto const document = Diagram("C", {}, TT_Unconstrained);
    EXPECT_EQ(document, R"([{"kind":"TraceType",
"type":"unconstrained",
"selection":[{"index":0}]},
{"kind":"Initialize",
"instance":"p",
"role":"provided",
"selection":[{"file":"t.kel",
"line":2,
"column":1,
"end":{"line":7,
"column":2},
"index":1}],
"state":[]},
{"kind":"Initialize",
"instance":"C",
"role":"component",
"selection":[{"file":"t.kel",
"line":17,
"column":1,
"end":{"line":24,
"column":2},
"index":2}],
"state":[{"variable":"receive.queue",
"value":""}]},
{"kind":"Initialize",
"instance":"r",
"role":"required",
"selection":[{"file":"t.kel",
"line":8,
"column":1,
"end":{"line":16,
"column":2},
"index":3}],
"state":[]}]
)");
}

MicroTrace const& WithError(MicroTrace& trace, std::string const& text) {
    trace.error(text);
    return trace;
}

struct VerdictRow {
    char const* model;
    char const* port; // "" for the model's own run
    std::vector<std::string> trace;
    char const* error;
    char const* element;
};

class VerdictTest : public testing::TestWithParam<VerdictRow> {};

TEST_P(VerdictTest, EndsTheDocument) {
    auto const& row = GetParam();
    auto const state = FirstState(
        *row.port ? Source().runOfPort(row.model, row.port) : Source().run(row.model), row.trace);
    MicroTrace trace(*state);
    EXPECT_EQ(LastElement(Diagram(WithError(trace, GetParam().error), TT_Interface)),
              GetParam().element);
}

INSTANTIATE_TEST_SUITE_P(
    SequenceDiagramTest, VerdictTest,
    testing::Values(
        // One location per armed guard, all carrying the element's index.
        VerdictRow{"G", "", {"e", "return"}, "deadlock in model G", R"({"kind":"Error",
"message":"deadlock in model G",
"selection":[{"file":"t.kel",
"line":29,
"column":10,
"end":{"line":29,
"column":11},
"index":8},
{"file":"t.kel",
"line":30,
"column":10,
"end":{"line":30,
"column":14},
"index":8}]}]
)"},
        // An incomplete model points at its behaviour.
        VerdictRow{"N", "", {}, "model N is incomplete: e", R"({"kind":"Error",
"message":"model N is incomplete: e",
"selection":[{"file":"t.kel",
"line":11,
"column":5,
"end":{"line":15,
"column":6},
"index":2}]}]
)"},
        // A port's run has no step of the model itself to place the error at.
        VerdictRow{"C", "r", {"e", "return"}, "deadlock in model r", R"({"kind":"Error",
"message":"deadlock in model r",
"selection":[{"index":8}]}]
)"}));

} // namespace
