#include "tool/TraceInput.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

#include <unistd.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

NamedEventTrace read(std::string const& text) {
    std::istringstream in(text);
    return readInputTrace(in);
}

TEST(ReadInputTraceTest, TakesLinesWholeAndSkipsEmptyOnes) {
    EXPECT_THAT(read("a.x\n\n b.y \np.<<flush_queue>>\nlast"),
                ElementsAre("a.x", " b.y ", "p.<<flush_queue>>", "last"));
    EXPECT_THAT(read(""), IsEmpty());
}

TEST(ReadInputTraceTest, UnopenedStreamIsEmptyTrace) {
    std::ifstream missing("/nonexistent/trace");
    EXPECT_THAT(readInputTrace(missing), IsEmpty());
}

class InlineSeparatorTest : public testing::TestWithParam<char const*> {};

TEST_P(InlineSeparatorTest, SplitsTheSame) {
    NamedEventTrace trace;
    string_split(GetParam(), ", \n", trace);
    EXPECT_THAT(trace, ElementsAre("a.x", "a.y"));
}

INSTANTIATE_TEST_SUITE_P(Separators, InlineSeparatorTest,
                         testing::Values("a.x,a.y", "a.x a.y", "a.x, a.y", "a.x\na.y",
                                         ",,a.x  ,\n a.y,", "a.x,p.<<flush_queue>>,a.y"));

TEST(StringSplitTest, FiltersWholeOutputAtTheEnd) {
    NamedEventTrace trace{"kept", "", "<dropped>"};
    string_split("n.x", ",", trace);
    EXPECT_THAT(trace, ElementsAre("kept", "n.x"));
}

TEST(ChannelEventsTest, FilterKeepsPrefixedEventsOnly) {
    NamedEventTrace const trace{"p.a", "q.b", "pp.c", "p.return", "x.p.d"};
    EXPECT_THAT(filterCspChannelEvents(trace, "p"), ElementsAre("p.a", "p.return"));
}

TEST(ChannelEventsTest, StripRemovesUpToFirstOccurrenceAnywhere) {
    NamedEventTrace const trace{"p.a", "x.p.d", "q.b", "p.p.e"};
    EXPECT_THAT(stripOffCspChannelName(trace, "p"), ElementsAre("a", "d", "q.b", "p.e"));
}

// Files named after the test and the process: ctest runs tests side by side,
// and one test's TearDown must not remove another's files.
std::string tempPath(std::string const& what) {
    return testing::TempDir() + "kel_trace_input_" + std::to_string(getpid()) + "_" +
           testing::UnitTest::GetInstance()->current_test_info()->name() + "_" + what;
}

class TraceSourceTest : public testing::Test {
protected:
    void SetUp() override {
        std::ofstream(tracePath) << "f.one\nf.two\n";
        std::ofstream(providedPortsTracePath) << "s.one\n";
    }
    void TearDown() override {
        std::remove(tracePath.c_str());
        std::remove(providedPortsTracePath.c_str());
    }
    std::string const tracePath = tempPath("trace");
    std::string const providedPortsTracePath = tempPath("provided_ports_trace");
    std::istringstream stdinStream{"in.one\n"};
};

TEST_F(TraceSourceTest, FileBeforeInlineBeforeStandardInput) {
    EXPECT_THAT(readTrace({{"tracefile", tracePath}, {"trace", "i.x"}}, stdinStream),
                ElementsAre("f.one", "f.two"));
    EXPECT_THAT(readTrace({{"trace", "i.x"}}, stdinStream), ElementsAre("i.x"));
    EXPECT_THAT(readTrace({}, stdinStream), ElementsAre("in.one"));
}

// An inline trace of 10 MB: more than one argument of a command line may
// carry, so only a caller of the library can hand it over.
TEST_F(TraceSourceTest, TenMegabyteInlineTraceSplitsIntoItsEvents) {
    std::string text;
    for (int i = 0; i < 500000; ++i) {
        text += "p.open, p.<<flush>>\n";
    }
    auto const trace = readTrace({{"trace", text}}, stdinStream);
    EXPECT_EQ(text.size(), 10000000u);
    ASSERT_EQ(trace.size(), 500000u);
    EXPECT_EQ(trace.back(), "p.open");
}

TEST_F(TraceSourceTest, EmptyTraceFileNameIsAnUnopenableFile) {
    EXPECT_THAT(readTrace({{"tracefile", ""}, {"trace", "i.x"}}, stdinStream), IsEmpty());
}

TEST_F(TraceSourceTest, SpecTraceFallsBackToTheTrace) {
    NamedEventTrace const trace{"t.x"};
    EXPECT_THAT(
        readSpecTrace({{"spectracefile", providedPortsTracePath}, {"spectrace", "i.s"}}, trace),
        ElementsAre("s.one"));
    EXPECT_THAT(readSpecTrace({{"spectracefile", ""}, {"spectrace", "i.s"}}, trace),
                ElementsAre("i.s"));
    EXPECT_THAT(readSpecTrace({{"spectrace", ""}}, trace), IsEmpty());
    EXPECT_THAT(readSpecTrace({}, trace), ElementsAre("t.x"));
}

} // namespace
