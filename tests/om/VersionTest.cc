#include "om/Version.h"

#include "om/OMException.h"

#include <gtest/gtest.h>

#include <sstream>

namespace om {
namespace {

TEST(VersionTest, ParsedEqualsConstructed) {
    EXPECT_EQ(Version("1.2.3"), Version(1, 2, 3));
    EXPECT_EQ(Version("0.0.0"), Version());
}

TEST(VersionTest, ComparesNumbersNotText) {
    EXPECT_GT(Version(1, 10, 0), Version(1, 9, 9));
    EXPECT_LT(Version(1, 9, 9), Version(1, 10, 0));
    EXPECT_LE(Version(1, 2, 3), Version(1, 2, 3));
    EXPECT_NE(Version(1, 2, 3), Version(1, 2, 4));
    EXPECT_LT(Version(-1, 0, 0), Version(0, 0, 0));
}

TEST(VersionTest, WritesDottedDecimals) {
    EXPECT_EQ(Version(1, 2, 3).asString(), "1.2.3");
    EXPECT_EQ(Version(-1, 0, 0).asString(), "-1.0.0");
    std::ostringstream out;
    out << Version(4, 5, 6);
    EXPECT_EQ(out.str(), "4.5.6");
}

class BadVersionTextTest : public testing::TestWithParam<char const*> {};

TEST_P(BadVersionTextTest, RaisesWithTheText) {
    std::string const text = GetParam();
    try {
        Version version(text);
        FAIL() << "parsed " << version;
    } catch (OMException const& error) {
        EXPECT_EQ(std::string(error.what()),
                  "Cannot extract version number from string \"" + text + "\"");
    }
}

INSTANTIATE_TEST_SUITE_P(NoMatchOrNoNumber, BadVersionTextTest,
                         testing::Values("1.2", "1.2.3.4", "", "1.2.3-beta", "1..3",
                                         "99999999999.0.0", "-1.0.0"));

TEST(OMExceptionTest, IsCaughtAsRuntimeError) {
    try {
        throw OMException("boom");
    } catch (std::runtime_error const& error) {
        EXPECT_STREQ(error.what(), "boom");
    }
}

} // namespace
} // namespace om
