// The one check of every table of source cases: the source gives exactly the
// errors expected, and succeeds only without any.
#include "ParsedSource.h"

#include <gmock/gmock.h>

namespace language::test {
namespace {

TEST_P(SourceErrorsTest, GivesTheErrorsExpected) {
    ParsedSource parsed;
    EXPECT_THAT(parsed.parse(GetParam().source.substr(1), GetParam().passes),
                testing::ElementsAreArray(GetParam().expected));
    EXPECT_EQ(parsed.succeeded, GetParam().expected.empty());
}

} // namespace
} // namespace language::test
