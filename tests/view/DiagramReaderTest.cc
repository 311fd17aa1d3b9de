// A document that is no diagram is refused with a message that names the
// element at fault.
#include "view/DiagramReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using testing::StartsWith;

struct BadDocument {
    char const* name;
    std::string text;
    std::string message; // what the message starts with
};

// A header and one lifeline, for the elements under test to follow.
std::string const head = R"([{"kind":"TraceType","type":"interface"},
{"kind":"Initialize","instance":"I","role":"interface","state":[]},
)";

class DiagramReaderTest : public testing::TestWithParam<BadDocument> {};

TEST_P(DiagramReaderTest, RefusesWithItsMessage) {
    try {
        view::readDiagram(GetParam().text);
        FAIL() << "read without complaint";
    } catch (view::DiagramError const& error) {
        EXPECT_THAT(error.what(), StartsWith(GetParam().message));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Documents, DiagramReaderTest,
    testing::Values(
        // The tool's writer escapes nothing, so a quote in an -e text breaks the document.
        BadDocument{"UnescapedQuote", head + R"({"kind":"Error","message":"say "hi""}])",
                    "element 2: bad JSON: parse error at line 3, column"},
        BadDocument{"CutShort", head + R"({"kind":"OnEvent",)",
                    "element 2: bad JSON: parse error at line 3"},
        BadDocument{"NoArray", R"({"kind":"TraceType"})", "the document is no JSON array"},
        BadDocument{"ElementNoObject", head + "3]", "element 2: not an object"},
        BadDocument{"KindNoString", head + R"({"kind":7}])", "element 2: \"kind\" is not a string"},
        BadDocument{"UnknownKind", head + R"({"kind":"Teleport","instance":"I"}])",
                    "element 2: unknown kind \"Teleport\""},
        BadDocument{"StepWithoutInstance", head + R"({"kind":"OnEvent"}])",
                    "element 2: no \"instance\" member"},
        BadDocument{"StepOnNoLifeline", head + R"({"kind":"OnEvent","instance":"q"}])",
                    "element 2: \"instance\" \"q\" has no \"Initialize\" element"},
        BadDocument{"UnknownSyncType",
                    head + R"({"kind":"ThreadEnter","instance":"I","synctype":"sideways"}])",
                    "element 2: unknown \"synctype\" \"sideways\""},
        BadDocument{"StateNoArray", head + R"({"kind":"OnEvent","instance":"I","state":{}}])",
                    "element 2: \"state\" is not an array of objects"},
        BadDocument{
            "LineNoInteger",
            head + R"({"kind":"OnEvent","instance":"I","selection":[{"file":"a","line":"3"}]}])",
            "element 2: \"line\" is not an integer"},
        BadDocument{"ErrorNotLast",
                    head + R"({"kind":"Error","message":"x"},{"kind":"OnEvent","instance":"I"}])",
                    "element 2: an \"Error\" element must be the last"}),
    [](testing::TestParamInfo<BadDocument> const& info) { return info.param.name; });

} // namespace
