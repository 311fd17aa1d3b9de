#include "tool/JsonWriter.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

std::string Written(std::function<void(JsonWriter&)> const& write) {
    std::string text;
    JsonWriter writer(text);
    write(writer);
    return text;
}

TEST(JsonWriterTest, EmptyContainers) {
    EXPECT_EQ(Written([](JsonWriter& out) {
                  out.beginArray();
                  out.beginObject();
                  out.endObject();
                  out.beginArray();
                  out.endArray();
                  out.endArray();
              }),
              "[{},\n[]]");
}

TEST(JsonWriterTest, MembersAndElementsBreakTheLineBehindEveryComma) {
    // A nested value starts on its key's line; every later member or element
    // of any container starts a line of its own, with no indentation.
    EXPECT_EQ(Written([](JsonWriter& out) {
                  out.beginObject();
                  out.key("b");
                  out.value(std::int64_t{1});
                  out.key("k");
                  out.beginArray();
                  out.value(std::int64_t{1});
                  out.value(std::int64_t{-2});
                  out.endArray();
                  out.key("o");
                  out.beginObject();
                  out.key("x");
                  out.value("y");
                  out.endObject();
                  out.endObject();
              }),
              "{\"b\":1,\n\"k\":[1,\n-2],\n\"o\":{\"x\":\"y\"}}");
}

TEST(JsonWriterTest, StringsAndKeysAreWrittenAsTheyAre) {
    EXPECT_EQ(Written([](JsonWriter& out) {
                  out.beginObject();
                  out.key("a\"b");
                  out.value("say \"hi\"\nbye");
                  out.endObject();
              }),
              "{\"a\"b\":\"say \"hi\"\nbye\"}");
}

TEST(JsonWriterTest, IntegersInFullRange) {
    EXPECT_EQ(Written([](JsonWriter& out) { out.value(std::int64_t{-9000000000}); }),
              "-9000000000");
}

} // namespace
