#include "preparser/PreParser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace {

struct PreParseCase {
    std::string source;
    bool wellFormed;
    bool usable;
    std::string errors; // as printErrors writes them, for the stream "f.kel"
};

void PrintTo(PreParseCase const& c, std::ostream* out) { *out << testing::PrintToString(c.source); }

class PreParserTest : public testing::TestWithParam<PreParseCase> {};

TEST_P(PreParserTest, AnswersWhetherTheFileHasUsableDeclarations) {
    pre::PreParser parser;
    std::istringstream in(GetParam().source);
    EXPECT_EQ(parser.parseStream(in, "f.kel"), GetParam().wellFormed);
    EXPECT_EQ(parser.hasUsable(), GetParam().usable);
    EXPECT_EQ(parser.hasErrors(), !GetParam().errors.empty());
    std::ostringstream errors;
    parser.printErrors(errors);
    EXPECT_EQ(errors.str(), GetParam().errors);
}

INSTANTIATE_TEST_SUITE_P(
    WellFormed, PreParserTest,
    testing::Values(
        PreParseCase{"", true, false, ""},
        PreParseCase{"// only\n/* comments */\n", true, false, ""},
        PreParseCase{"/* never closed", true, false, ""},
        PreParseCase{"import a.kel;\nimport b.kel;\ncomponent C { provides I p; }", true, false,
                     ""},
        PreParseCase{"namespace N { component C {} namespace M { component D {} } }", true, false,
                     ""},
        PreParseCase{"namespace N { interface I { in void e(); } } component C {}", true, true, ""},
        PreParseCase{"namespace a.b { enum E { x, y }; }", true, true, ""},
        PreParseCase{"component C {} namespace N {} extern X $int$;", true, true, ""},
        PreParseCase{";", true, true, ""}, PreParseCase{"$#include <x>$", true, true, ""},
        PreParseCase{"interface a.b.I { behaviour { [true] on e: { x = -1; } } }", true, true, ""},
        PreParseCase{"import\nfoo.kel;", true, true, ""}));

INSTANTIATE_TEST_SUITE_P(
    SyntaxErrors, PreParserTest,
    testing::Values(
        PreParseCase{"interface .I { }", false, false,
                     "f.kel:1.11: syntax error, unexpected ., expecting identifier\n"},
        PreParseCase{"interface I {\n  component\n}", false, false,
                     "f.kel:2.3-11: syntax error, unexpected component\n"},
        PreParseCase{"interface I { namespace }", false, false,
                     "f.kel:1.15-23: syntax error, unexpected namespace\n"},
        PreParseCase{"enum E { a };\nimport x.kel;", false, false,
                     "f.kel:2.1-13: syntax error, unexpected import\n"},
        PreParseCase{"interface", false, false,
                     "f.kel:1.10: syntax error, unexpected end of file, expecting identifier\n"},
        PreParseCase{"component C", false, false,
                     "f.kel:1.12: syntax error, unexpected end of file, expecting { or .\n"},
        PreParseCase{"namespace N x", false, false,
                     "f.kel:1.13: syntax error, unexpected identifier, expecting { or .\n"},
        PreParseCase{"namespace N { interface I {} ", false, false,
                     "f.kel:1.30: syntax error, unexpected end of file\n"},
        PreParseCase{"}", false, false, "f.kel:1.1: syntax error, unexpected }\n"},
        PreParseCase{"interface I { a % b }", false, false,
                     "f.kel:1.17: syntax error, unexpected $undefined\n"},
        PreParseCase{"#file \"x.kel\"\ninterface I {}", false, false,
                     "f.kel:1.1: syntax error, unexpected $undefined\n"}));

TEST(PreParserTest, ASecondParseForgetsTheFirstOnesErrors) {
    pre::PreParser parser;
    std::istringstream bad("}"), good("enum E { a };");
    EXPECT_FALSE(parser.parseStream(bad, "bad.kel"));
    EXPECT_TRUE(parser.parseStream(good, "good.kel"));
    EXPECT_FALSE(parser.hasErrors());
    EXPECT_TRUE(parser.hasUsable());
}

TEST(PreParserTest, AFailedParseLeavesTheUsableAnswerAsItWas) {
    pre::PreParser parser;
    std::istringstream good("enum E { a };"), bad("enum E { a };\n}");
    EXPECT_TRUE(parser.parseStream(good, "good.kel"));
    EXPECT_FALSE(parser.parseStream(bad, "bad.kel"));
    EXPECT_TRUE(parser.hasUsable());
}

TEST(PreParserTest, ClearForgetsTheErrors) {
    pre::PreParser parser;
    std::istringstream in("}");
    parser.parseStream(in, "x.kel");
    parser.clear();
    EXPECT_FALSE(parser.hasErrors());
}

TEST(PreParserTest, ParseFileReportsAFileThatCannotBeOpened) {
    pre::PreParser parser;
    EXPECT_FALSE(parser.parseFile("/nonexistent/x.kel"));
    EXPECT_TRUE(parser.hasErrors());
}

TEST(PreParserTest, TracingReportsOnTheLogStreamOnlyWhenAsked) {
    pre::PreParser parser;
    std::istringstream quiet("enum E { a };"), traced("enum E { a };");
    testing::internal::CaptureStderr();
    parser.parseStream(quiet, "q.kel");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    parser.setTracing(true, true);
    testing::internal::CaptureStderr();
    parser.parseStream(traced, "t.kel");
    EXPECT_NE(testing::internal::GetCapturedStderr(), "");
}

} // namespace
