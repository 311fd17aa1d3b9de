// Lists of strings as one comma-separated text with backslash escapes.
#include "metamodel/StringList.h"

#include <gtest/gtest.h>

namespace kel {
namespace {

using List = std::vector<std::string>;

List Split(std::string const& text) {
    List list{"left over"};
    String2StringVector(text, list);
    return list;
}

TEST(StringListTest, EscapeSeparatorProtectsCommasAndBackslashes) {
    EXPECT_EQ(EscapeSeparator("plain"), "plain");
    EXPECT_EQ(EscapeSeparator("a,b"), "a\\,b");
    EXPECT_EQ(EscapeSeparator("a\\b"), "a\\\\b");
    EXPECT_EQ(EscapeSeparator("\\,"), "\\\\\\,");
}

TEST(StringListTest, AddBlockSeparatesWithCommas) {
    std::string text;
    AddBlock(text, "a");
    AddBlock(text, "b,c");
    EXPECT_EQ(text, "a,b\\,c");
    EXPECT_EQ(StringVector2String({"x", "y", "z"}), "x,y,z");
    EXPECT_EQ(StringVector2String({}), "");
}

TEST(StringListTest, SplittingFollowsTheBlockRules) {
    EXPECT_EQ(Split("a,,b"), (List{"a", "", "b"}));
    EXPECT_EQ(Split("a,"), (List{"a"}));
    EXPECT_EQ(Split(""), List{});
    EXPECT_EQ(Split("a\\,b,c"), (List{"a,b", "c"}));
    EXPECT_EQ(Split("\\x"), (List{"x"}));
}

TEST(StringListTest, GetUnescapedBlockMovesThePosition) {
    std::string const text = "ab,cd";
    std::size_t position = 0;
    std::string block;
    EXPECT_TRUE(GetUnescapedBlock(text, position, block));
    EXPECT_EQ(block, "ab");
    EXPECT_EQ(position, 3u);
    EXPECT_TRUE(GetUnescapedBlock(text, position, block));
    EXPECT_EQ(block, "cd");
    EXPECT_EQ(position, 5u);
    EXPECT_FALSE(GetUnescapedBlock(text, position, block));
    EXPECT_EQ(block, "");
}

TEST(StringListTest, RoundTripKeepsSpecialCharacters) {
    List const list{"a,b", "back\\slash", "\\,\\", "plain", ",", "\\"};
    EXPECT_EQ(Split(StringVector2String(list)), list);
}

} // namespace
} // namespace kel
