#include "tool/JsonValue.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

std::string written(JsonValue const& value) {
    std::ostringstream out;
    out << value;
    EXPECT_EQ(out.str(), value.str()) << "str() and operator<< must agree";
    return out.str();
}

TEST(JsonValueTest, FreshValueIsNull) { EXPECT_EQ(written(JsonValue()), "null"); }

TEST(JsonValueTest, KeyAccessMakesObjectWithNullMember) {
    JsonValue value;
    value["a"];
    EXPECT_EQ(value.kind, JsonValue::Object);
    EXPECT_EQ(written(value), "{\"a\":null}");
}

TEST(JsonValueTest, MembersKeepFirstTouchOrder) {
    JsonValue value;
    value["b"] = 1;
    value["a"] = "x";
    value["b"] = 2;
    EXPECT_EQ(value.members.size(), 2u);
    EXPECT_EQ(written(value), "{\"b\":2,\n\"a\":\"x\"}");
}

TEST(JsonValueTest, SecondAccessReturnsSameMember) {
    JsonValue value;
    JsonValue* first = &value["a"];
    EXPECT_EQ(&value["a"], first);
}

TEST(JsonValueTest, IndexAccessGrowsArrayWithNulls) {
    JsonValue value;
    value[3ul] = 7;
    EXPECT_EQ(value.elements.size(), 4u);
    EXPECT_EQ(written(value), "[null,\nnull,\nnull,\n7]");
    value[1ul];
    EXPECT_EQ(value.elements.size(), 4u);
}

TEST(JsonValueTest, SwitchingFormDropsTheOtherForm) {
    JsonValue value;
    value[1ul] = 1;
    value["k"] = 2;
    EXPECT_EQ(written(value), "{\"k\":2}");
    value[0ul] = 3;
    EXPECT_EQ(written(value), "[3]");
    value = "s";
    EXPECT_EQ(written(value), "\"s\"");
}

TEST(JsonValueTest, WritesStringsUnescaped) {
    JsonValue value;
    value = std::string("say \"hi\"\nbye");
    EXPECT_EQ(written(value), "\"say \"hi\"\nbye\"");
}

TEST(JsonValueTest, WritesNegativeIntegers) {
    JsonValue value;
    value = -1;
    EXPECT_EQ(written(value), "-1");
    value = std::int64_t{-9000000000};
    EXPECT_EQ(written(value), "-9000000000");
}

TEST(JsonValueTest, NestedArrayMemberBreaksLines) {
    JsonValue value;
    value["k"].append(JsonValue(JsonVariant()));
    value["k"][0ul] = 1;
    value["k"].append([] {
        JsonValue two;
        two = 2;
        return two;
    }());
    EXPECT_EQ(written(value), "{\"k\":[1,\n2]}");
}

TEST(JsonValueTest, EmptyContainers) {
    EXPECT_EQ(written(JsonValue(JsonValue::Array)), "[]");
    EXPECT_EQ(written(JsonValue(JsonValue::Object)), "{}");
}

TEST(JsonValueTest, CopiesAreDeep) {
    JsonValue original;
    original["a"]["b"] = 1;
    JsonValue copy = original;
    copy["a"]["b"] = 2;
    EXPECT_EQ(written(original), "{\"a\":{\"b\":1}}");
    EXPECT_EQ(written(copy), "{\"a\":{\"b\":2}}");
}

TEST(JsonValueTest, AppendingItselfCopiesTheOldState) {
    JsonValue value;
    value.append(JsonValue(JsonValue::Array));
    value.append(value);
    EXPECT_EQ(written(value), "[[],\n[[]]]");
}

} // namespace
