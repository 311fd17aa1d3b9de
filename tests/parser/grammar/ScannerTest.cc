#include "parser/grammar/Scanner.h"
#include "ScannedTerminals.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace {

using token = language::BisonParser::token;

using test::ScanCase;
using test::Scanned;

bool hasText(int code) {
    return code == token::TOK_IMPORT || code == token::TOK_IMPORTED || code == token::TOK_FILE ||
           code == token::TOK_DIR || code == token::TOK_IDENTIFIER || code == token::TOK_DATASTRING;
}

std::vector<Scanned> scan(std::string const& source) {
    return test::scanTerminals<language::BisonParser, language::Scanner>(source, hasText);
}

// The codes alone, for cases where the spans say nothing new.
std::vector<int> codes(std::string const& source) {
    std::vector<int> result;
    for (Scanned const& s : scan(source)) {
        result.push_back(s.code);
    }
    return result;
}

struct CodesCase {
    std::string source;
    std::vector<int> expected; // the end of the input not included
};

void PrintTo(CodesCase const& c, std::ostream* out) { *out << testing::PrintToString(c.source); }

class ScannerCodesTest : public testing::TestWithParam<CodesCase> {};

TEST_P(ScannerCodesTest, YieldsTheseTerminals) {
    std::vector<int> expected = GetParam().expected;
    expected.push_back(token::TOK_END);
    EXPECT_EQ(codes(GetParam().source), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Punctuation, ScannerCodesTest,
    testing::Values(
        CodesCase{"{ } [ ] ( ) ; : .. . , <=> = *",
                  {token::TOK_LBRACE, token::TOK_RBRACE, token::TOK_LBRACKET, token::TOK_RBRACKET,
                   token::TOK_LPAREN, token::TOK_PARENTHESISCLOSE, token::TOK_SEMICOLON,
                   token::TOK_COLON, token::TOK_DOTDOT, token::TOK_DOT, token::TOK_COMMA,
                   token::TOK_BINDS, token::TOK_ASSIGN, token::TOK_STAR}},
        CodesCase{"== != <= <- < >= > + - && || !",
                  {token::TOK_ISEQUAL, token::TOK_ISNOTEQUAL, token::TOK_ISLESSEQUAL,
                   token::TOK_LEFTARROW, token::TOK_ISLESS, token::TOK_ISGREATEREQUAL,
                   token::TOK_ISGREATER, token::TOK_PLUS, token::TOK_MINUS, token::TOK_AND,
                   token::TOK_OR, token::TOK_NOT}},
        CodesCase{"a<-1", {token::TOK_IDENTIFIER, token::TOK_LEFTARROW, token::TOK_INTEGER}},
        CodesCase{"a < -1",
                  {token::TOK_IDENTIFIER, token::TOK_ISLESS, token::TOK_MINUS, token::TOK_INTEGER}},
        CodesCase{"1..5", {token::TOK_INTEGER, token::TOK_DOTDOT, token::TOK_INTEGER}},
        CodesCase{"...", {token::TOK_DOTDOT, token::TOK_DOT}},
        CodesCase{"<=>=", {token::TOK_BINDS, token::TOK_ASSIGN}},
        CodesCase{"a.b.reply()",
                  {token::TOK_IDENTIFIER, token::TOK_DOT, token::TOK_IDENTIFIER, token::TOK_DOT,
                   token::TOK_REPLY, token::TOK_LPAREN, token::TOK_PARENTHESISCLOSE}}));

INSTANTIATE_TEST_SUITE_P(
    Keywords, ScannerCodesTest,
    testing::Values(
        CodesCase{"behaviour behavior blocking bool component else extern external enum false",
                  {token::TOK_BEHAVIOUR, token::TOK_BEHAVIOUR, token::TOK_BLOCKING, token::TOK_BOOL,
                   token::TOK_COMPONENT, token::TOK_ELSE, token::TOK_EXTERN, token::TOK_EXTERNAL,
                   token::TOK_ENUM, token::TOK_FALSE}},
        CodesCase{"if illegal inevitable injected inout interface in namespace on optional",
                  {token::TOK_IF, token::TOK_ILLEGAL, token::TOK_INEVITABLE, token::TOK_INJECTED,
                   token::TOK_INOUT, token::TOK_INTERFACE, token::TOK_IN, token::TOK_NAMESPACE,
                   token::TOK_ON, token::TOK_OPTIONAL}},
        CodesCase{"otherwise out provides reply requires return subint system true",
                  {token::TOK_OTHERWISE, token::TOK_OUT, token::TOK_PROVIDES, token::TOK_REPLY,
                   token::TOK_REQUIRES, token::TOK_RETURN, token::TOK_SUBINT, token::TOK_SYSTEM,
                   token::TOK_TRUE}},
        CodesCase{"void import importer inside Behaviour iff",
                  {token::TOK_IDENTIFIER, token::TOK_IDENTIFIER, token::TOK_IDENTIFIER,
                   token::TOK_IDENTIFIER, token::TOK_IDENTIFIER, token::TOK_IDENTIFIER}}));

INSTANTIATE_TEST_SUITE_P(
    UnknownBytes, ScannerCodesTest,
    testing::Values(
        CodesCase{"% ? @ ' \" # & | \\", {'%', '?', '@', '\'', '"', '#', '&', '|', '\\'}},
        CodesCase{"\f\v", {'\f', '\v'}}, CodesCase{"$a", {'$', token::TOK_IDENTIFIER}},
        CodesCase{"import a/b.kel;",
                  {token::TOK_IDENTIFIER, token::TOK_IDENTIFIER, '/', token::TOK_IDENTIFIER,
                   token::TOK_DOT, token::TOK_IDENTIFIER, token::TOK_SEMICOLON}},
        CodesCase{std::string("a\0b", 3),
                  {token::TOK_IDENTIFIER, token::TOK_YYUNDEF, token::TOK_IDENTIFIER}},
        CodesCase{"\xe2\x82\xac", {token::TOK_YYUNDEF, token::TOK_YYUNDEF, token::TOK_YYUNDEF}}));

class ScannerTest : public testing::TestWithParam<ScanCase> {};

TEST_P(ScannerTest, YieldsTerminalsWithValuesAndSpans) {
    EXPECT_THAT(scan(GetParam().source), testing::ElementsAreArray(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    Values, ScannerTest,
    testing::Values(ScanCase{"import foo.kel;",
                             {{token::TOK_IMPORT, "foo.kel", 1, 1, 1, 16},
                              {token::TOK_END, "", 1, 16, 1, 16}}},
                    ScanCase{"import \t foo-1.kel \r;",
                             {{token::TOK_IMPORT, "foo-1.kel", 1, 1, 1, 22},
                              {token::TOK_END, "", 1, 22, 1, 22}}},
                    ScanCase{"import foo.kel\n;",
                             {{token::TOK_IDENTIFIER, "import", 1, 1, 1, 7},
                              {token::TOK_IDENTIFIER, "foo", 1, 8, 1, 11},
                              {token::TOK_DOT, "", 1, 11, 1, 12},
                              {token::TOK_IDENTIFIER, "kel", 1, 12, 1, 15},
                              {token::TOK_SEMICOLON, "", 2, 1, 2, 2},
                              {token::TOK_END, "", 2, 2, 2, 2}}},
                    ScanCase{"#imported \"lib/a.kel\"\n#file  \"x.kel\"  \n#dir \"d\"",
                             {{token::TOK_IMPORTED, "lib/a.kel", 1, 1, 1, 22},
                              {token::TOK_FILE, "x.kel", 2, 1, 2, 17},
                              {token::TOK_DIR, "d", 3, 1, 3, 9},
                              {token::TOK_END, "", 3, 9, 3, 9}}},
                    ScanCase{"#file \"a\\\"b\" #dir \"c\\\"",
                             {{token::TOK_FILE, "a\\\"b", 1, 1, 1, 14},
                              {token::TOK_DIR, "c\\", 1, 14, 1, 23},
                              {token::TOK_END, "", 1, 23, 1, 23}}},
                    ScanCase{"x_1 007 4294967296 99999999999999999999",
                             {{token::TOK_IDENTIFIER, "x_1", 1, 1, 1, 4},
                              {token::TOK_INTEGER, "7", 1, 5, 1, 8},
                              {token::TOK_INTEGER, "0", 1, 9, 1, 19},
                              {token::TOK_INTEGER, "-1", 1, 20, 1, 40},
                              {token::TOK_END, "", 1, 40, 1, 40}}},
                    ScanCase{"$a\\$b\nc$ x",
                             {{token::TOK_DATASTRING, "$a\\$b\nc$", 1, 1, 1, 9},
                              {token::TOK_IDENTIFIER, "x", 1, 10, 1, 11},
                              {token::TOK_END, "", 1, 11, 1, 11}}}));

INSTANTIATE_TEST_SUITE_P(
    LayoutAndComments, ScannerTest,
    testing::Values(
        ScanCase{"", {{token::TOK_END, "", 1, 1, 1, 1}}},
        ScanCase{"\ta\r\n  b",
                 {{token::TOK_IDENTIFIER, "a", 1, 2, 1, 3},
                  {token::TOK_IDENTIFIER, "b", 2, 3, 2, 4},
                  {token::TOK_END, "", 2, 4, 2, 4}}},
        ScanCase{"a // b /* c\nd",
                 {{token::TOK_IDENTIFIER, "a", 1, 1, 1, 2},
                  {token::TOK_IDENTIFIER, "d", 2, 1, 2, 2},
                  {token::TOK_END, "", 2, 2, 2, 2}}},
        ScanCase{"a /* b */c",
                 {{token::TOK_IDENTIFIER, "a", 1, 1, 1, 2},
                  {token::TOK_IDENTIFIER, "c", 1, 3, 1, 11},
                  {token::TOK_END, "", 1, 11, 1, 11}}},
        ScanCase{"a /* b */ c",
                 {{token::TOK_IDENTIFIER, "a", 1, 1, 1, 2},
                  {token::TOK_IDENTIFIER, "c", 1, 11, 1, 12},
                  {token::TOK_END, "", 1, 12, 1, 12}}},
        ScanCase{"/* 1\n 2 /* ** \n*/c",
                 {{token::TOK_IDENTIFIER, "c", 3, 1, 3, 4}, {token::TOK_END, "", 3, 4, 3, 4}}},
        ScanCase{"/***/x/* // */y",
                 {{token::TOK_IDENTIFIER, "x", 1, 1, 1, 7},
                  {token::TOK_IDENTIFIER, "y", 1, 7, 1, 16},
                  {token::TOK_END, "", 1, 16, 1, 16}}},
        ScanCase{"a /* never closed\n",
                 {{token::TOK_IDENTIFIER, "a", 1, 1, 1, 2}, {token::TOK_END, "", 2, 1, 2, 1}}},
        ScanCase{"a /* never closed",
                 {{token::TOK_IDENTIFIER, "a", 1, 1, 1, 2}, {token::TOK_END, "", 1, 3, 1, 18}}}));

TEST(ScannerFailureTest, AFailingStreamThrowsInsteadOfEndingTheProcess) {
    test::expectFailingStreamThrows<language::BisonParser, language::Scanner>();
}

} // namespace
