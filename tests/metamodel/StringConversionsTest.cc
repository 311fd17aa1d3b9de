// Text forms of booleans, integers, property types and the enumerations.
#include "metamodel/StringConversions.h"
#include "ErrorText.h"
#include "metamodel/Enumerations.h"

#include <gtest/gtest.h>

namespace kel {
namespace {

TEST(StringConversionsTest, Booleans) {
    EXPECT_EQ(Bool2String(true), "1");
    EXPECT_EQ(Bool2String(false), "0");
    struct Row {
        std::string text;
        bool expected;
    };
    for (auto const& row : std::vector<Row>{{"1", true},
                                            {"true", true},
                                            {"TRUE", true},
                                            {"tRuE", true},
                                            {"0", false},
                                            {"", false},
                                            {"yes", false},
                                            {"true ", false},
                                            {"truex", false},
                                            {"tru", false}}) {
        bool out = !row.expected;
        String2Bool(row.text, out);
        EXPECT_EQ(out, row.expected) << row.text;
    }
}

TEST(StringConversionsTest, Integers) {
    EXPECT_EQ(Int2String(-1234567), "-1234567");
    EXPECT_EQ(Int2String(1000000), "1000000"); // never grouped
    std::int32_t out = 99;
    String2Int("42", out);
    EXPECT_EQ(out, 42);
    String2Int("-7 rest", out);
    EXPECT_EQ(out, -7);
    String2Int("abc", out);
    EXPECT_EQ(out, 0);
    std::string text;
    String2String("same", text);
    EXPECT_EQ(text, "same");
    EXPECT_EQ(String2String("same"), "same");
}

TEST(StringConversionsTest, PropertyTypeNames) {
    std::vector<std::string> const names{"unknown",
                                         "string",
                                         "int",
                                         "bool",
                                         "EventDirection",
                                         "PortDirection",
                                         "ParameterDirection",
                                         "BooleanValue"};
    for (std::int32_t type = 0; type < 8; ++type) {
        EXPECT_EQ(PropertyTypeToString(type), names[type]);
        EXPECT_EQ(StringToPropertyType(names[type]), type);
    }
    EXPECT_EQ(PropertyTypeToString(8), "unknown");
    EXPECT_EQ(PropertyTypeToString(-1), "unknown");
    EXPECT_EQ(StringToPropertyType("String"), ptUnknown);
}

TEST(StringConversionsTest, EnumerationsBothWays) {
    EXPECT_EQ(EventDirection2String(edirOut), "edirOut");
    EXPECT_EQ(String2EventDirection("edirIn"), edirIn);
    EXPECT_EQ(PortDirection2String(idirProvided), "idirProvided");
    EXPECT_EQ(String2PortDirection("idirUnknown"), idirUnknown);
    EXPECT_EQ(ParameterDirection2String(pdirInOut), "pdirInOut");
    EXPECT_EQ(String2ParameterDirection("pdirOut"), pdirOut);
    EXPECT_EQ(BooleanValue2String(boolFalse), "boolFalse");
    EXPECT_EQ(String2BooleanValue("boolTrue"), boolTrue);
}

TEST(StringConversionsTest, EnumerationsRefuseWhatTheyDoNotKnow) {
    EXPECT_EQ(test::errorOf([] { EventDirection2String(EventDirection(3)); }),
              "EventDirection2String: Unknown enum value");
    EXPECT_EQ(test::errorOf([] { String2EventDirection("in"); }),
              "EventDirection2String: Unknown enum value");
    EXPECT_EQ(test::errorOf([] { PortDirection2String(PortDirection(-1)); }),
              "PortDirection2String: Unknown enum value");
    EXPECT_EQ(test::errorOf([] { String2ParameterDirection("pdirin"); }),
              "ParameterDirection2String: Unknown enum value");
    EXPECT_EQ(test::errorOf([] { String2BooleanValue(""); }),
              "BooleanValue2String: Unknown enum value");
}

} // namespace
} // namespace kel
