#include "parser/grammar/ParserBase.h"
#include "Span.h"
#include "TestStore.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>

namespace {

using language::location;
using language::Name;
using language::Names;
using language::ParserBase;

using language::test::span;

std::string printed(ParserBase const& base) {
    std::ostringstream out;
    base.printErrors(out);
    return out.str();
}

class ParserBaseErrorsTest : public testing::Test {
protected:
    language::TestStore store;
};

TEST_F(ParserBaseErrorsTest, PrintsOneLinePerErrorInTheOrderOfReporting) {
    std::string const file = "src/a.kel";
    ParserBase base(store.model);
    base.error(span(&file, 3, 5, 3, 6), "syntax error, unexpected ;");
    base.error(span(nullptr, 1, 1, 1, 1), "cannot open 'x.kel'");
    base.error(span(&file, 3, 5, 3, 6), "syntax error, unexpected ;");
    EXPECT_TRUE(base.hasErrors());
    EXPECT_EQ(printed(base), "src/a.kel:3:5: syntax error, unexpected ;\n"
                             ": cannot open 'x.kel'\n"
                             "src/a.kel:3:5: syntax error, unexpected ;\n");
    base.clearErrors();
    EXPECT_FALSE(base.hasErrors());
    EXPECT_EQ(printed(base), "");
}

TEST_F(ParserBaseErrorsTest, ErrorsKeepTheirFileNamesAfterTheNameIsGone) {
    ParserBase base(store.model);
    {
        auto file = std::make_unique<std::string>("gone.kel");
        base.error(span(file.get(), 2, 7, 2, 9), "message");
    }
    ParserBase copy(store.model);
    copy.importErrors(base);
    base.clearErrors();
    EXPECT_EQ(printed(copy), "gone.kel:2:7: message\n");
    EXPECT_EQ(*copy.errors().front().location().end.filename, "gone.kel");
}

class NameHelpersTest : public testing::Test {
protected:
    std::string const file = "n.kel";
    Name a{"a", span(&file, 1, 1, 1, 2)};
    Name b{"b", span(&file, 1, 3, 1, 4)};
    Name c{"c", span(&file, 2, 5, 2, 7)};
    Name none{};
};

TEST_F(NameHelpersTest, ConcatNamesJoinsWithDotsAndSpansAllParts) {
    Name joined = ParserBase::concatNames(Names{a, b, c});
    EXPECT_EQ(joined.name, "a.b.c");
    EXPECT_EQ(joined.location.begin, a.location.begin);
    EXPECT_EQ(joined.location.end, c.location.end);
    EXPECT_EQ(ParserBase::concatNames(Names{}), none);
    EXPECT_EQ(ParserBase::concatNames(a, c), ParserBase::concatNames(Names{a, c}));
    EXPECT_EQ(ParserBase::concatNameIds(Names{a, b, c}), "a.b.c");
    EXPECT_EQ(ParserBase::concatNameIds(Names{Name{"", a.location}, b}), ".b");
}

TEST_F(NameHelpersTest, PartsOfACompoundName) {
    EXPECT_EQ(ParserBase::prepartName(Names{a, b, c}).name, "a.b");
    EXPECT_EQ(ParserBase::prepartName(Names{a, b, c}).location.end, b.location.end);
    EXPECT_EQ(ParserBase::prepartName(Names{a}), none);
    EXPECT_EQ(ParserBase::tailName(Names{a, b, c}).name, "b.c");
    EXPECT_EQ(ParserBase::tailName(Names{a, b, c}).location.begin, b.location.begin);
    EXPECT_EQ(ParserBase::tail(Names{a, b, c}), (Names{b, c}));
    EXPECT_EQ(ParserBase::tail(Names{a}), Names{});
    EXPECT_EQ(ParserBase::firstName(Names{a, b}), a);
    EXPECT_EQ(ParserBase::lastName(Names{a, b}), b);
    EXPECT_EQ(ParserBase::firstName(Names{}), none);
    EXPECT_EQ(ParserBase::lastName(Names{}), none);
}

TEST_F(NameHelpersTest, OnlyASingleNameIsAVariable) {
    EXPECT_TRUE(ParserBase::isVariable(Names{a}));
    EXPECT_FALSE(ParserBase::isVariable(Names{a, b}));
    EXPECT_FALSE(ParserBase::isVariable(Names{}));
}

} // namespace
