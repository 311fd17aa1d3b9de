#include "preparser/SyntaxErrorText.h"

#include <gtest/gtest.h>

namespace {

TEST(DisplayNameTest, ShowsMostNamesBare) {
    EXPECT_EQ(pre::displayName("end of file"), "end of file");
    EXPECT_EQ(pre::displayName("{"), "{");
    EXPECT_EQ(pre::displayName("PARENTHESISCLOSE"), "PARENTHESISCLOSE");
    EXPECT_EQ(pre::displayName("$undefined"), "$undefined");
}

TEST(DisplayNameTest, KeepsTheQuotesOfNamesThatWouldReadBadly) {
    EXPECT_EQ(pre::displayName(","), "\",\"");
    EXPECT_EQ(pre::displayName("it's"), "\"it's\"");
    EXPECT_EQ(pre::displayName("a\"b\\"), "\"a\\\"b\\\\\"");
}

TEST(SyntaxErrorTextTest, ListsTheExpectedTerminalsAfterTheUnexpectedOne) {
    EXPECT_EQ(pre::syntaxErrorText({}), "syntax error");
    EXPECT_EQ(pre::syntaxErrorText({"x"}), "syntax error, unexpected x");
    EXPECT_EQ(pre::syntaxErrorText({"x", "a"}), "syntax error, unexpected x, expecting a");
    EXPECT_EQ(pre::syntaxErrorText({"x", "a", "b", "c", "d"}),
              "syntax error, unexpected x, expecting a or b or c or d");
}

} // namespace
