#include "preparser/PreScanner.h"
#include "ScannedTerminals.h"
#include "preparser/PreBisonParser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace {

using token = pre::PreBisonParser::token;

using test::ScanCase;
using test::Scanned;

bool hasText(int code) {
    return code == token::TOK_IMPORT || code == token::TOK_IDENTIFIER ||
           code == token::TOK_DATASTRING;
}

std::vector<Scanned> scan(std::string const& source) {
    return test::scanTerminals<pre::PreBisonParser, pre::PreScanner>(source, hasText);
}

class PreScannerTest : public testing::TestWithParam<ScanCase> {};

TEST_P(PreScannerTest, YieldsTerminalsWithValuesAndSpans) {
    EXPECT_THAT(scan(GetParam().source), testing::ElementsAreArray(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    Terminals, PreScannerTest,
    testing::Values(
        ScanCase{"", {{token::TOK_END, "", 1, 1, 1, 1}}},
        ScanCase{"import  foo.kel ;",
                 {{token::TOK_IMPORT, "import  foo.kel ;", 1, 1, 1, 18},
                  {token::TOK_END, "", 1, 18, 1, 18}}},
        ScanCase{"{}.;",
                 {{token::TOK_LBRACE, "", 1, 1, 1, 2},
                  {token::TOK_RBRACE, "", 1, 2, 1, 3},
                  {token::TOK_DOT, "", 1, 3, 1, 4},
                  {token::TOK_SEMICOLON, "", 1, 4, 1, 5},
                  {token::TOK_END, "", 1, 5, 1, 5}}},
        ScanCase{"namespace interface component enum",
                 {{token::TOK_NAMESPACE, "", 1, 1, 1, 10},
                  {token::TOK_INTERFACE, "", 1, 11, 1, 20},
                  {token::TOK_COMPONENT, "", 1, 21, 1, 30},
                  {token::TOK_IDENTIFIER, "enum", 1, 31, 1, 35},
                  {token::TOK_END, "", 1, 35, 1, 35}}},
        ScanCase{"0..5]",
                 {{token::TOK_INTEGER, "0", 1, 1, 1, 2},
                  {token::TOK_DOT, "", 1, 2, 1, 3},
                  {token::TOK_DOT, "", 1, 3, 1, 4},
                  {token::TOK_SPECIAL, "", 1, 4, 1, 6},
                  {token::TOK_END, "", 1, 6, 1, 6}}},
        ScanCase{"-1 (1) 1+2 42",
                 {{token::TOK_SPECIAL, "", 1, 1, 1, 3},
                  {token::TOK_SPECIAL, "", 1, 4, 1, 7},
                  {token::TOK_SPECIAL, "", 1, 8, 1, 11},
                  {token::TOK_INTEGER, "42", 1, 12, 1, 14},
                  {token::TOK_END, "", 1, 14, 1, 14}}},
        ScanCase{"4294967297",
                 {{token::TOK_INTEGER, "1", 1, 1, 1, 11}, {token::TOK_END, "", 1, 11, 1, 11}}},
        ScanCase{"$a\nb$ x",
                 {{token::TOK_DATASTRING, "$a\nb$", 1, 1, 1, 6},
                  {token::TOK_IDENTIFIER, "x", 1, 7, 1, 8},
                  {token::TOK_END, "", 1, 8, 1, 8}}},
        ScanCase{"// c\n/* a\n*/x",
                 {{token::TOK_IDENTIFIER, "x", 3, 1, 3, 4}, {token::TOK_END, "", 3, 4, 3, 4}}},
        ScanCase{"/* open", {{token::TOK_END, "", 1, 1, 1, 8}}},
        ScanCase{"import\nfoo.kel;",
                 {{token::TOK_IDENTIFIER, "import", 1, 1, 1, 7},
                  {token::TOK_IDENTIFIER, "foo", 2, 1, 2, 4},
                  {token::TOK_DOT, "", 2, 4, 2, 5},
                  {token::TOK_IDENTIFIER, "kel", 2, 5, 2, 8},
                  {token::TOK_SEMICOLON, "", 2, 8, 2, 9},
                  {token::TOK_END, "", 2, 9, 2, 9}}},
        ScanCase{"#$x",
                 {{'#', "", 1, 1, 1, 2},
                  {'$', "", 1, 2, 1, 3},
                  {token::TOK_IDENTIFIER, "x", 1, 3, 1, 4},
                  {token::TOK_END, "", 1, 4, 1, 4}}},
        ScanCase{"\xc3\xa4",
                 {{token::TOK_YYUNDEF, "", 1, 1, 1, 2},
                  {token::TOK_YYUNDEF, "", 1, 2, 1, 3},
                  {token::TOK_END, "", 1, 3, 1, 3}}}));

TEST(PreScannerFailureTest, AFailingStreamThrowsInsteadOfEndingTheProcess) {
    test::expectFailingStreamThrows<pre::PreBisonParser, pre::PreScanner>();
}

} // namespace
