// The pictures of the end-to-end cases' diagrams, checked on the SVG text:
// the lifelines from left to right, the arrows in the order of the steps with
// their ends, kinds and labels, the number of marks, and the verdict.
#include "view/SvgWriter.h"
#include "view/DiagramReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Texts = std::vector<std::string>;

struct Picture {
    char const* dir; // the case, under tests/cases
    Texts lifelines; // "name:role"
    Texts arrows;    // "index from>to kind label"
    std::size_t marks;
    std::string verdict; // "index at step: message", empty for a run without error
};

std::string svgOf(std::string const& dir) {
    std::ifstream in(std::string(KEL_CASES_DIR) + "/" + dir + "/expected_stdout");
    return view::writeSvg(view::readDiagram(in));
}

// Every match of `pattern` in `text`, its groups joined as the format says.
Texts collect(std::string const& text, std::string const& pattern, std::string const& format) {
    Texts found;
    std::regex const re(pattern);
    for (auto it = std::sregex_iterator(text.begin(), text.end(), re); it != std::sregex_iterator();
         ++it) {
        found.push_back(it->format(format));
    }
    return found;
}

// The marks of a lifeline, an arrow and the verdict in the SVG.
char const* const lifelinePattern =
    R"re(<g class="lifeline[^"]*"(?: data-index="\d+")? data-name="([^"]*)"(?: data-role="([^"]*)")?)re";
char const* const arrowPattern =
    R"re(<g class="step arrow (\w+)" data-index="(\d+)" data-from="([^"]*)" data-to="([^"]*)".*<text class="label"[^>]*>([^<]*)</text>)re";
char const* const verdictPattern =
    R"re(<g class="verdict" data-index="(\d+)"(?: data-points-at="(\d+)")?.*<text class="message"[^>]*>&#x2717; ([^<]*)</text>)re";

class SvgWriterTest : public testing::TestWithParam<Picture> {};

TEST_P(SvgWriterTest, DrawsTheRun) {
    std::string const svg = svgOf(GetParam().dir);
    EXPECT_EQ(collect(svg, lifelinePattern, "$1:$2"), GetParam().lifelines);
    EXPECT_EQ(collect(svg, arrowPattern, "$2 $3>$4 $1 $5"), GetParam().arrows);
    EXPECT_EQ(collect(svg, "<g class=\"step mark\"", "x").size(), GetParam().marks);
    Texts const verdict = collect(svg, verdictPattern, "$1 at $2: $3");
    EXPECT_EQ(verdict, GetParam().verdict.empty() ? Texts{} : Texts{GetParam().verdict});
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SvgWriterTest,
    testing::Values(
        Picture{"component/protocol_violation",
                {"p:provided", "C:component"},
                {"3 p>C call e", "7 p>C call p.e", "10 C>p return p.return", "13 C>p return return",
                 "15 p>C call e", "19 p>C call p.e"},
                13,
                "22 at 21: p.e not allowed by port p"},
        Picture{"component/call_on_required_port_with_reply",
                {"p:provided", "C:component", "r:required"},
                {"4 p>C call e", "7 p>C call p.e", "10 C>r call r.f", "11 C>r call f",
                 "15 r>C return true", "17 r>C return r.true", "19 C>p return p.return",
                 "21 C>p return return"},
                11,
                ""},
        Picture{"component/notification_flushed_from_queue",
                {"p:provided", "C:component", "r:required"},
                {"8 r>C notification n", "9 r>C notification r.n", "20 r>C notification n",
                 "21 r>C notification r.n"},
                20,
                ""},
        // With -u the ports are placeholders, and only the component's steps cross.
        Picture{
            "component/unconstrained_with_u",
            {"p:provided", "C:component", "r:required"},
            {"4 p>C call p.e", "7 C>r call r.f", "8 r>C return r.true", "10 C>p return p.return"},
            4,
            ""},
        // The action `illegal` reaches no port: a mark, which the verdict points at.
        Picture{"component/climate_disable_first_is_illegal",
                {"control:provided", "Climate:component", "heater:required", "sensor:required"},
                {"5 control>Climate call disable", "9 control>Climate call control.disable"},
                7,
                "14 at 13: illegal"},
        Picture{"component/building_system_has_no_behaviour",
                {"panel:provided", "groundLamp:required", "upperLamp:required"},
                {},
                0,
                "4 at : model has no behaviour: Building"},
        // An interface is driven by whoever uses it, the environment.
        Picture{"run/interface_deadlock",
                {"(environment):", "Fuse:interface"},
                {"2 (environment)>Fuse call blow", "7 Fuse>(environment) return return"},
                5,
                "9 at 8: deadlock in model Fuse"},
        Picture{"run/interface_accepts_trace",
                {"(environment):", "Bell:interface"},
                {"2 (environment)>Bell call ask", "7 Bell>(environment) return true",
                 "14 Bell>(environment) notification ring"},
                12,
                ""}),
    [](testing::TestParamInfo<Picture> const& info) {
        std::string name = info.param.dir;
        name = name.substr(name.find('/') + 1);
        return name;
    });

} // namespace
