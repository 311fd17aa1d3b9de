#include "parser/grammar/ImportPaths.h"

#include <gtest/gtest.h>

namespace {

using language::candidatePath;
using language::directoryOf;

TEST(ImportPathsTest, TheDirectoryEndsBeforeTheLastSeparatorOfEitherKind) {
    EXPECT_EQ(directoryOf("a.kel"), "");
    EXPECT_EQ(directoryOf("dir/a.kel"), "dir");
    EXPECT_EQ(directoryOf("d/e/f.kel"), "d/e");
    EXPECT_EQ(directoryOf("d\\e/f.kel"), "d\\e");
    EXPECT_EQ(directoryOf("d/e\\f.kel"), "d/e");
    EXPECT_EQ(directoryOf("/a.kel"), "");
    EXPECT_EQ(directoryOf(""), "");
}

TEST(ImportPathsTest, CandidatesJoinDirectoryAndFileUnlessTheDirectoryIsEmpty) {
    EXPECT_EQ(candidatePath("", "x.kel"), "x.kel");
    EXPECT_EQ(candidatePath(".", "x.kel"), "./x.kel");
    EXPECT_EQ(candidatePath("inc", "lib/x.kel"), "inc/lib/x.kel");
    EXPECT_NE(candidatePath("inc", "x.kel"), candidatePath("./inc", "x.kel"));
}

TEST(ImportPathsTest, TheOwnDirectoryIsSearchedBeforeTheIncludePaths) {
    EXPECT_EQ(language::importSearchList("src", {"a", "b"}),
              (std::vector<std::string>{"src", "a", "b"}));
    EXPECT_EQ(language::importSearchList("", {}), (std::vector<std::string>{""}));
}

TEST(ImportPathsTest, TheLogLineListsEachIncludePathWithATrailingComma) {
    EXPECT_EQ(language::includePathLine({}), "include path: []");
    EXPECT_EQ(language::includePathLine({"a", "b/c"}), "include path: [a, b/c, ]");
}

} // namespace
