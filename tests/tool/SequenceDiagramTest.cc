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

TEST(SequenceDiagramTest, AnInterfaceThatAcceptsACall) {
    // The thread entry has no text of its own and shows the "on" it leads to;
    // the thread exit behind the last "OnEvent" shows nothing but its index.
    EXPECT_EQ(Diagram("I", {"e", "return"}), R"([{"kind":"TraceType",
"type":"interface",
"selection":[{"index":0}]},
{"kind":"Initialize",
"instance":"I",
"role":"interface",
"selection":[{"file":"t.kel",
"line":2,
"column":1,
"end":{"line":7,
"column":2},
"index":1}],
"state":[]},
{"kind":"ThreadEnter",
"instance":"I",
"event":"e",
"synchronization":"e",
"synctype":"call",
"state":[],
"selection":[{"file":"t.kel",
"line":5,
"column":12,
"end":{"line":5,
"column":13},
"index":2}]},
{"kind":"OnEventStatement",
"instance":"I",
"selection":[{"file":"t.kel",
"line":5,
"column":9,
"end":{"line":5,
"column":17},
"index":3}],
"state":[]},
{"kind":"OnEvent",
"instance":"I",
"selection":[{"file":"t.kel",
"line":5,
"column":12,
"end":{"line":5,
"column":13},
"index":4}],
"event":"e",
"state":[]},
{"kind":"OnEventReturn",
"instance":"I",
"selection":[{"file":"t.kel",
"line":5,
"column":12,
"end":{"line":5,
"column":13},
"index":5}],
"return":"return",
"synchronization":"return",
"synctype":"return",
"state":[]},
{"kind":"ThreadExit",
"instance":"I",
"event":"e",
"state":[],
"selection":[{"index":6}]}]
)");
}

struct HeaderRow {
    TraceType type;
    char const* text;
};

class HeaderTest : public testing::TestWithParam<HeaderRow> {};

TEST_P(HeaderTest, NamesTheTypeAndSelectsOnlyItsIndex) {
    auto const header = std::string("[{\"kind\":\"TraceType\",\n\"type\":\"") + GetParam().text +
                        "\",\n\"selection\":[{\"index\":0}]},\n{";
    auto const document = Diagram("I", {}, GetParam().type);
    EXPECT_EQ(document.substr(0, header.size()), header);
}

INSTANTIATE_TEST_SUITE_P(SequenceDiagramTest, HeaderTest,
                         testing::Values(HeaderRow{TT_Interface, "interface"},
                                         HeaderRow{TT_Constrained, "constrained"},
                                         HeaderRow{TT_Unconstrained, "unconstrained"}));

TEST(SequenceDiagramTest, InitialStepsAloneGiveHeaderAndLifelines) {
    auto const state = FirstState(Source().run("I"), {});
    MicroTrace const trace(*state);
    ASSERT_EQ(trace.steps.size(), 1u);
    auto const document = Diagram(trace, TT_Interface);
    EXPECT_EQ(LastElement(document), R"({"kind":"Initialize",
"instance":"I",
"role":"interface",
"selection":[{"file":"t.kel",
"line":2,
"column":1,
"end":{"line":7,
"column":2},
"index":1}],
"state":[]}]
)");
}

TEST(SequenceDiagramTest, EndsInOneNewlineBehindTheArray) {
    auto const document = Diagram("N", {"e", "return"});
    ASSERT_GE(document.size(), 2u);
    EXPECT_EQ(document.substr(document.size() - 2), "]\n");
    EXPECT_NE(document[document.size() - 3], '\n');
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

TEST(SequenceDiagramTest, ConstrainedComponentShowsEachPortsOwnInitialState) {
    PortStates ports;
    ports[&Source().port("C", "p")] = FirstState(Source().runOfPort("C", "p"), {"e", "return"});
    ports[&Source().port("C", "r")] = FirstState(Source().runOfPort("C", "r"), {"e", "return"});
    auto const state = FirstState(Source().run("C"), {"p.e", "r.e", "r.return", "p.return"});
    MicroTrace const trace(*state, ports);
    auto const document = Diagram(trace, TT_Constrained);
    // The required port's own step carries the variables of its interface,
    // where a placeholder has none.
    EXPECT_NE(document.find(R"({"kind":"Initialize",
"instance":"r",
"role":"required",
"selection":[{"file":"t.kel",
"line":8,
"column":1,
"end":{"line":16,
"column":2},
"index":3}],
"state":[{"variable":"b",
"value":"false"}]},
)"),
              std::string::npos)
        << document;
    // On a port's lifeline an event is bare; on the component's it has its port.
    EXPECT_NE(document.find("{\"kind\":\"OnEvent\",\n\"instance\":\"p\",\n"), std::string::npos);
    EXPECT_NE(document.find("\"index\":6}],\n\"event\":\"e\",\n"), std::string::npos) << document;
    EXPECT_NE(document.find("\"index\":9}],\n\"event\":\"p.e\",\n"), std::string::npos) << document;
    EXPECT_EQ(document.find("\"kind\":\"Error\""), std::string::npos);
}

TEST(SequenceDiagramTest, ThreadEnterAndDequeueShowTheFollowingOnEvent) {
    // A notification from the required port: the thread that serves the
    // queue, and the dequeue, point at the "on" that takes the event, each
    // with its own index.
    auto const document = Diagram("C", {"r.n"}, TT_Unconstrained);
    auto const onR = [](int index) {
        return R"("selection":[{"file":"t.kel",
"line":22,
"column":12,
"end":{"line":22,
"column":17},
"index":)" + std::to_string(index) +
               "}]";
    };
    EXPECT_NE(document.find(R"({"kind":"ThreadEnter",
"instance":"C",
"event":"r.tau",
"state":[{"variable":"receive.queue",
"value":"r.n"}],
)" + onR(5) + "},\n"),
              std::string::npos)
        << document;
    EXPECT_NE(document.find(R"({"kind":"Dequeue",
"instance":"C",
"event":"r.n",
"state":[{"variable":"receive.queue",
"value":""}],
)" + onR(6) + "},\n"),
              std::string::npos)
        << document;
    EXPECT_NE(document.find("{\"kind\":\"OnEvent\",\n\"instance\":\"C\",\n" + onR(8)),
              std::string::npos)
        << document;
}

MicroTrace const& WithError(MicroTrace& trace, std::string const& text) {
    trace.error(text);
    return trace;
}

struct VerdictRow {
    char const* model;
    std::vector<std::string> trace;
    char const* error;
    char const* element;
};

class VerdictTest : public testing::TestWithParam<VerdictRow> {};

TEST_P(VerdictTest, EndsTheDocument) {
    auto const state = FirstState(Source().run(GetParam().model), GetParam().trace);
    MicroTrace trace(*state);
    EXPECT_EQ(LastElement(Diagram(WithError(trace, GetParam().error), TT_Interface)),
              GetParam().element);
}

INSTANTIATE_TEST_SUITE_P(
    SequenceDiagramTest, VerdictTest,
    testing::Values(
        // One location per armed guard, all carrying the element's index.
        VerdictRow{"G", {"e", "return"}, "deadlock in model G", R"({"kind":"Error",
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
        // Without an armed guard the located error has only its index.
        VerdictRow{"I", {"e", "return"}, "livelock in model I", R"({"kind":"Error",
"message":"livelock in model I",
"selection":[{"index":7}]}]
)"},
        // An incomplete model points at its behaviour.
        VerdictRow{"N", {}, "model N is incomplete: e", R"({"kind":"Error",
"message":"model N is incomplete: e",
"selection":[{"file":"t.kel",
"line":11,
"column":5,
"end":{"line":15,
"column":6},
"index":2}]}]
)"},
        // No classifying word: a plain error.
        VerdictRow{"G", {"e", "return"}, "something else", R"({"kind":"Error",
"message":"something else",
"selection":[{"index":8}]}]
)"}));

TEST(SequenceDiagramTest, ErrorOnAPortOnlyIsPlain) {
    // Every step belongs to the port, so there is no step of the model itself
    // to place the error at, however it reads.
    auto const state = FirstState(Source().runOfPort("C", "r"), {"e", "return"});
    MicroTrace trace(*state);
    ASSERT_EQ(trace.MainModelLastStep(), nullptr);
    EXPECT_EQ(LastElement(Diagram(WithError(trace, "deadlock in model r"), TT_Interface)),
              R"({"kind":"Error",
"message":"deadlock in model r",
"selection":[{"index":8}]}]
)");
}

TEST(SequenceDiagramTest, ErrorStepShowsOnlyAsVerdict) {
    auto const state = FirstState(Source().run("I"), {"return"});
    ASSERT_TRUE(state->isProgramError) << state->message;
    MicroTrace const trace(*state);
    ASSERT_EQ(trace.steps.back()->kind, ProgramStep::PSK_Error);
    auto const document = Diagram(trace, TT_Interface);
    auto const first = document.find("\"kind\":\"Error\"");
    ASSERT_NE(first, std::string::npos);
    EXPECT_EQ(document.find("\"kind\":\"Error\"", first + 1), std::string::npos);
    EXPECT_EQ(LastElement(document), "{\"kind\":\"Error\",\n\"message\":\"" + state->message +
                                         "\",\n\"selection\":[{\"index\":" +
                                         std::to_string(trace.steps.size()) + "}]}]\n");
}

TEST(SequenceDiagramTest, CleanRunHasNoVerdict) {
    EXPECT_EQ(Diagram("G", {"e", "return"}).find("\"kind\":\"Error\""), std::string::npos);
}

JsonValue Element(char const* kind, std::vector<int> const& selectedLines) {
    JsonValue element;
    element["kind"] = kind;
    if (!selectedLines.empty()) {
        element["selection"] = JsonValue(JsonValue::Array);
        for (int line : selectedLines) {
            JsonValue entry;
            entry["line"] = line;
            element["selection"].append(entry);
        }
    }
    element["state"] = JsonValue(JsonValue::Array);
    return element;
}

TEST(SequenceDiagramTest, AmendSelectionsCopiesFromTheNearestFollowingOnEvent) {
    JsonValue root(JsonValue::Array);
    root.append(Element("ThreadEnter", {1}));
    root.append(Element("OnEvent", {2}));
    root.append(Element("Dequeue", {}));
    root.append(Element("Receive", {3}));
    root.append(Element("OnEvent", {4, 5}));
    root.append(Element("ThreadEnter", {6}));
    amend_selections(root);
    // An own selection keeps its place, a new one comes last; behind the last
    // "OnEvent" a thread entry loses its own.
    EXPECT_EQ(root.str(), R"([{"kind":"ThreadEnter",
"selection":[{"line":2}],
"state":[]},
{"kind":"OnEvent",
"selection":[{"line":2}],
"state":[]},
{"kind":"Dequeue",
"state":[],
"selection":[{"line":4},
{"line":5}]},
{"kind":"Receive",
"selection":[{"line":3}],
"state":[]},
{"kind":"OnEvent",
"selection":[{"line":4},
{"line":5}],
"state":[]},
{"kind":"ThreadEnter",
"selection":null,
"state":[]}])");
}

TEST(SequenceDiagramTest, AmendSelectionIndexGivesEveryEntryItsElementsIndex) {
    JsonValue root(JsonValue::Array);
    root.append(Element("A", {}));
    root.append(Element("B", {7, 8}));
    root.append(Element("C", {}));
    root.elements[2]["selection"] = JsonValue(JsonValue::Array);
    root.append(Element("D", {9}));
    root.elements[3]["selection"][0ul]["index"] = 99;
    amend_selection_index(root);
    EXPECT_EQ(root.str(), R"([{"kind":"A",
"state":[],
"selection":[{"index":0}]},
{"kind":"B",
"selection":[{"line":7,
"index":1},
{"line":8,
"index":1}],
"state":[]},
{"kind":"C",
"state":[],
"selection":[{"index":2}]},
{"kind":"D",
"selection":[{"line":9,
"index":3}],
"state":[]}])");
}

TEST(SequenceDiagramTest, SelectionsOfNoLocationIsAnEmptyArray) {
    EXPECT_EQ(selections({}).str(), "[]");
    auto const& model = Source().model("I");
    EXPECT_EQ(selections({&model, &model}).str(), R"([{"file":"t.kel",
"line":2,
"column":1,
"end":{"line":7,
"column":2}},
{"file":"t.kel",
"line":2,
"column":1,
"end":{"line":7,
"column":2}}])");
}

} // namespace
