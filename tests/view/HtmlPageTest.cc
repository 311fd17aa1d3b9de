// The page: every text of the diagram escaped, nothing loaded from outside,
// and a step's details with the source lines around it when the file is there.
#include "view/HtmlPage.h"
#include "view/DiagramReader.h"
#include "view/Escape.h"
#include "view/SvgWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace {

using testing::HasSubstr;
using testing::Not;

std::string const cases = KEL_CASES_DIR;

struct Escaped {
    std::string text;
    std::string expected;
};

class EscapeTest : public testing::TestWithParam<Escaped> {};

TEST_P(EscapeTest, Escapes) { EXPECT_EQ(view::escape(GetParam().text), GetParam().expected); }

INSTANTIATE_TEST_SUITE_P(
    Texts, EscapeTest,
    testing::Values(Escaped{"p.e", "p.e"}, Escaped{"a<b>&c", "a&lt;b&gt;&amp;c"},
                    Escaped{"\"'", "&quot;&#39;"}, Escaped{"caf\xC3\xA9", "caf\xC3\xA9"},
                    // No valid UTF-8, and controls that XML forbids: U+FFFD each.
                    Escaped{"\xFF", "\xEF\xBF\xBD"}, Escaped{"x\xC3", "x\xEF\xBF\xBD"},
                    Escaped{"\xED\xA0\x80", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
                    Escaped{std::string("a\x01\tb\n", 5), "a\xEF\xBF\xBD\tb\n"}));

// A diagram whose every string the viewer shows carries markup.
std::string const hostile = R"([{"kind":"TraceType","type":"<i>t"},
{"kind":"Initialize","instance":"<i>p","role":"provided","state":[{"variable":"<i>v","value":"<i>w"}],
 "selection":[{"file":"<i>f.kel","line":1,"column":1}]},
{"kind":"Initialize","instance":"C","role":"component"},
{"kind":"Initialize","instance":"q","role":"<i>r"},
{"kind":"ThreadEnter","instance":"<i>p","event":"<i>e","synchronization":"<i>s","synctype":"call"},
{"kind":"OnEvent","instance":"C","event":"<i>k"},
{"kind":"Error","message":"<i>m \"q\" 'a' &"}])";

TEST(HtmlPageTest, EscapesEveryTextOfTheDiagram) {
    view::Diagram const diagram = view::readDiagram(hostile);
    view::SourceFiles files("");
    for (std::string const& out :
         {view::writeSvg(diagram), view::writeHtml(diagram, files, "<i>")}) {
        EXPECT_THAT(out, Not(HasSubstr("<i>")));
        for (char const* text : {"t", "p", "r", "v", "w", "f.kel:1:1", "s", "k"}) {
            EXPECT_THAT(out, HasSubstr(std::string("&lt;i&gt;") + text));
        }
        EXPECT_THAT(out, HasSubstr("&lt;i&gt;m &quot;q&quot; &#39;a&#39; &amp;"));
    }
}

view::Diagram caseDiagram(std::string const& dir) {
    std::ifstream in(cases + "/" + dir + "/expected_stdout");
    return view::readDiagram(in);
}

TEST(HtmlPageTest, NeedsNothingBesideIt) {
    view::SourceFiles files(cases + "/component/protocol_violation");
    std::string const page =
        view::writeHtml(caseDiagram("component/protocol_violation"), files, "run");
    for (char const* outside : {"<link", "src=", "@import", "href=", "url(h", "url('", "url(\""}) {
        EXPECT_THAT(page, Not(HasSubstr(outside)));
    }
    // The one address is the SVG namespace, which is a name, not a download.
    std::string const svgNamespace = "xmlns=\"http://www.w3.org/2000/svg\"";
    std::size_t const at = page.find("http");
    EXPECT_EQ(page.substr(at - 7, svgNamespace.size()), svgNamespace);
    EXPECT_EQ(page.find("http", at + 1), std::string::npos);
}

// The section of element `index` in the page.
std::string section(std::string const& page, int index) {
    std::size_t const begin =
        page.find("<section class=\"detail\" id=\"detail-" + std::to_string(index) + "\"");
    return begin == std::string::npos ? ""
                                      : page.substr(begin, page.find("</section>", begin) - begin);
}

TEST(HtmlPageTest, ShowsAStepsStateAndTheSourceAroundIt) {
    std::string const dir = cases + "/component/protocol_violation";
    view::SourceFiles files(dir);
    std::string const page =
        view::writeHtml(caseDiagram("component/protocol_violation"), files, "run");
    std::string const onEvent = section(page, 6);
    EXPECT_THAT(onEvent, HasSubstr("<h2>6 OnEvent on p</h2>"));
    EXPECT_THAT(onEvent, HasSubstr("<tr><td>done</td><td>false</td></tr>"));
    EXPECT_THAT(onEvent, HasSubstr("<p class=\"where\">x.kel:5:20</p>"));
    EXPECT_THAT(
        onEvent,
        HasSubstr("<span class=\"line\"><span class=\"number\">3</span>    behaviour {</span>"));
    EXPECT_THAT(onEvent, HasSubstr("<span class=\"line selected\"><span class=\"number\">5</span>  "
                                   "      [!done] on e: done = true;</span>"));
    EXPECT_THAT(onEvent, HasSubstr("<span class=\"number\">7</span>"));
    EXPECT_THAT(onEvent, Not(HasSubstr("<span class=\"number\">8</span>")));
    EXPECT_THAT(section(page, 22), HasSubstr("p.e not allowed by port p"));
}

TEST(HtmlPageTest, LeavesOutTheExcerptOfAMissingFile) {
    view::SourceFiles files(cases + "/no such folder");
    std::string const page =
        view::writeHtml(caseDiagram("component/protocol_violation"), files, "run");
    EXPECT_THAT(section(page, 6), HasSubstr("<p class=\"where\">x.kel:5:20</p>"));
    EXPECT_THAT(page, Not(HasSubstr("<pre")));
}

} // namespace
