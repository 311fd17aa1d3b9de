#include "om/Oid.h"

#include <gtest/gtest.h>

namespace om {
namespace {

TEST(OidGeneratorTest, HandsOutConsecutiveIdsAboveNull) {
    OidGenerator& generator = OidGenerator::instance();
    Oid const first = generator.getNewOid();
    EXPECT_GT(first, NULL_OID);
    EXPECT_EQ(generator.getNewOid(), first + 1);
    EXPECT_EQ(&OidGenerator::instance(), &generator);
}

TEST(OidTextTest, RoundTrips) {
    for (Oid id : {Oid{0}, Oid{1}, Oid{-42}, Oid{1234567}, Oid{INT64_MAX}, Oid{INT64_MIN}}) {
        EXPECT_EQ(String2Oid(Oid2String(id)), id) << id;
    }
}

TEST(OidTextTest, WritesPlainDecimal) {
    EXPECT_EQ(Oid2String(0), "0");
    EXPECT_EQ(Oid2String(-7), "-7");
    EXPECT_EQ(Oid2String(1234567), "1234567");
}

TEST(OidTextTest, ReadsLeadingNumberOnly) {
    EXPECT_EQ(String2Oid("  12abc"), 12);
    EXPECT_EQ(String2Oid("-3 4"), -3);
    EXPECT_EQ(String2Oid("abc"), NULL_OID);
    EXPECT_EQ(String2Oid(""), NULL_OID);
}

} // namespace
} // namespace om
