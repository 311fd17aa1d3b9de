#include "preparser/Location.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

TEST(PositionTest, StartsAtLineOneColumnOneWithoutFile) {
    pre::position start;
    EXPECT_EQ(start.filename, nullptr);
    EXPECT_EQ(start.line, 1u);
    EXPECT_EQ(start.column, 1u);
}

TEST(LocationTest, ColumnsMoveTheEndButNeverBeforeColumnOne) {
    pre::location span;
    span.columns(4);
    EXPECT_EQ(span.end.column, 5u);
    EXPECT_EQ(span.begin.column, 1u);
    span.columns(-4);
    EXPECT_EQ(span.end.column, 1u);
    span.columns(-7);
    EXPECT_EQ(span.end.column, 1u);
}

TEST(LocationTest, LinesResetTheColumnUnlessTheyAreZero) {
    pre::location span;
    span.columns(6);
    span.lines(0);
    EXPECT_EQ(span.end.column, 7u);
    span.lines(2);
    EXPECT_EQ(span.end.line, 3u);
    EXPECT_EQ(span.end.column, 1u);
    span.lines(-5);
    EXPECT_EQ(span.end.line, 1u);
}

TEST(LocationTest, StepMovesTheBeginToTheEnd) {
    pre::location span;
    span.lines(1);
    span.columns(3);
    span.step();
    EXPECT_EQ(span.begin, span.end);
    EXPECT_EQ(span.begin.line, 2u);
    EXPECT_EQ(span.begin.column, 4u);
}

// Builds a location from begin file, line, column and end file, line, column.
pre::location span(std::string const* beginFile, std::uint32_t beginLine, std::uint32_t beginColumn,
                   std::string const* endFile, std::uint32_t endLine, std::uint32_t endColumn) {
    pre::location result;
    result.begin = {beginFile, beginLine, beginColumn};
    result.end = {endFile, endLine, endColumn};
    return result;
}

std::string print(pre::location const& where) {
    std::ostringstream out;
    out << where;
    return out.str();
}

TEST(LocationTest, PrintsOnlyWhatTheEndAdds) {
    std::string const a = "a.kel", alsoA = "a.kel", b = "b.kel";
    EXPECT_EQ(print(span(&a, 3, 5, &a, 3, 9)), "a.kel:3.5-8");
    EXPECT_EQ(print(span(&a, 3, 5, &alsoA, 3, 6)), "a.kel:3.5");
    EXPECT_EQ(print(span(&a, 3, 5, &a, 3, 5)), "a.kel:3.5");
    EXPECT_EQ(print(span(&a, 3, 5, &a, 4, 2)), "a.kel:3.5-4.1");
    EXPECT_EQ(print(span(&a, 3, 5, &b, 3, 9)), "a.kel:3.5-b.kel:3.8");
    EXPECT_EQ(print(span(nullptr, 3, 5, &b, 3, 9)), "3.5-b.kel:3.8");
    EXPECT_EQ(print(span(nullptr, 2, 1, nullptr, 2, 4)), "2.1-3");
    EXPECT_EQ(print(span(&a, 1, 1, &a, 2, 0)), "a.kel:1.1-2.0");
}

} // namespace
