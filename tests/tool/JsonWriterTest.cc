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
