#include "ErrorText.h"
#include "Span.h"
#include "TestStore.h"
#include "metamodel/BuiltinDeclarations.h"
#include "metamodel/ConstructionSupport.h"
#include "om/OMException.h"
#include "parser/grammar/ParserBase.h"

#include <gtest/gtest.h>

namespace {

using language::ParserBase;

using language::test::span;

class ParserBaseLocationsTest : public testing::Test {
protected:
    language::TestStore store;
    ParserBase base{store.model};
};

TEST_F(ParserBaseLocationsTest, AddFileMakesANewFileUnderTheRootEveryTime) {
    kel::File const& first = base.addFile("a.kel");
    kel::File const& second = base.addFile("a.kel");
    EXPECT_NE(first.getOid(), second.getOid());
    EXPECT_EQ(kel::GetRoot(store.model).getFilesSize(), 2u);
    EXPECT_EQ(&base.GetFile("a.kel"), &first);
}

TEST_F(ParserBaseLocationsTest, FilesAreSharedWithAPassMadeOnTheSameList) {
    ParserBase::Files files;
    ParserBase first(store.model, &files), second(store.model, &files);
    kel::File const& file = first.addFile("a.kel");
    EXPECT_EQ(&second.GetFile("a.kel"), &file);
    EXPECT_EQ(::test::errorOf([&] { base.GetFile("a.kel"); }),
              "ObjectModel does not seem to contain File object with name a.kel");
}

// A lookup remembers what it saw; files that a sharer adds later must still be found.
TEST_F(ParserBaseLocationsTest, FilesAddedAfterALookupAreFoundAndTheFirstOfANameStays) {
    ParserBase::Files files;
    ParserBase first(store.model, &files), second(store.model, &files);
    kel::File const& a = first.addFile("a.kel");
    EXPECT_EQ(&first.GetFile("a.kel"), &a);
    EXPECT_THROW(first.GetFile("b.kel"), om::OMException);
    kel::File const& b = second.addFile("b.kel");
    second.addFile("a.kel");
    EXPECT_EQ(&first.GetFile("b.kel"), &b);
    EXPECT_EQ(&first.GetFile("a.kel"), &a);
    EXPECT_EQ(&second.GetFile("a.kel"), &a);
}

TEST_F(ParserBaseLocationsTest, ACopiedLocationKeepsTheMainPosition) {
    std::string const name = "a.kel";
    base.addFile(name);
    kel::Namespace source = kel::NewCopy<kel::Namespace>(store.model);
    base.setLocation(source, span(&name, 1, 1, 1, 2), span(&name, 5, 1, 5, 2),
                     span(&name, 2, 3, 2, 4));
    kel::Namespace target = kel::NewCopy<kel::Namespace>(store.model);
    base.setLocation(target, source);
    EXPECT_EQ(target.getBeginLine(), 1);
    EXPECT_EQ(target.getEndLine(), 5);
    EXPECT_EQ(target.getLine(), 2);
    EXPECT_EQ(target.getColumn(), 3);
    EXPECT_EQ(&target.getFile(), &source.getFile());
}

TEST_F(ParserBaseLocationsTest, SetNameAndLocationTakesBothFromTheName) {
    std::string const name = "a.kel";
    base.addFile(name);
    kel::Namespace copy = kel::NewCopy<kel::Namespace>(store.model);
    base.setNameAndLocation(copy, language::Name{"N", span(&name, 7, 3, 7, 4)});
    EXPECT_EQ(copy.getName(), "N");
    EXPECT_EQ(copy.getLine(), 7);
    EXPECT_EQ(copy.getColumn(), 3);
    EXPECT_EQ(copy.getEndColumn(), 4);
}

} // namespace
