#include "parser/grammar/NestingDepth.h"
#include "TestStore.h"
#include "metamodel/BuiltinDeclarations.h"
#include "parser/grammar/Parser.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <sstream>
#include <string>

namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

// A behaviour whose body is the given statement; it starts on line 4.
std::string inBehaviour(std::string const& statement) {
    return "interface I {\n  in void e();\n  behaviour {\n" + statement + "\n  }\n}\n";
}

std::string repeated(std::string const& text, std::size_t times) {
    std::string result;
    result.reserve(text.size() * times);
    for (std::size_t i = 0; i < times; ++i) {
        result += text;
    }
    return result;
}

// Each shape nests one level per line, so the line of an error tells its level.
// A chain that grows to the left, like a + a + a, starts every level on its
// first line instead.
struct Shape {
    std::string name;
    std::function<std::string(std::size_t)> source;
    bool growsLeftward = false;
};

std::string braces(std::size_t n) {
    return inBehaviour(repeated("{\n", n) + "illegal;" + repeated("}", n));
}
std::string ifs(std::size_t n) { return inBehaviour(repeated("if (true)\n", n) + "illegal;"); }
std::string sum(std::size_t n) { return inBehaviour("[a" + repeated("\n+ a", n) + "] illegal;"); }
std::string rightNested(std::size_t n) {
    return inBehaviour("[" + repeated("(a &&\n", n) + "a" + repeated(")", n) + "] illegal;");
}
std::string negations(std::size_t n) {
    return inBehaviour("[" + repeated("!\n", n) + "a] illegal;");
}
std::string guards(std::size_t n) { return inBehaviour(repeated("[a]\n", n) + "illegal;"); }

void PrintTo(Shape const& shape, std::ostream* out) { *out << shape.name; }

class NestingDepthTest : public testing::TestWithParam<Shape> {
protected:
    bool parse(std::string const& source) {
        std::istringstream in(source);
        return parser.parseStream(in, "t.kel", {}, false, false, true);
    }

    std::string errors() const {
        std::ostringstream out;
        parser.printErrors(out);
        return out.str();
    }

    language::TestStore store;
    language::Parser parser{store.model};
};

TEST_P(NestingDepthTest, FarTooDeepIsOneErrorNearTheLimit) {
    EXPECT_FALSE(parse(GetParam().source(100000)));
    std::string const text = errors();
    ASSERT_THAT(text, StartsWith("t.kel:")) << text.substr(0, 300);
    EXPECT_THAT(text, HasSubstr(": nesting deeper than 1000 levels\n"));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1);
    // The nesting starts on line 4, one level a line, below some ten levels of
    // interface and behaviour; the error stands where the part too deep begins.
    // A chain growing leftward has its part too deep at the far end, and an
    // error points at an object's main position: there, its operator.
    std::size_t const line = std::stoul(text.substr(6));
    if (GetParam().growsLeftward) {
        EXPECT_GE(line, 4 + 100000 - language::maxNestingDepth);
        EXPECT_LE(line, 4 + 100000 - language::maxNestingDepth + 20);
    } else {
        EXPECT_GE(line, 4 + language::maxNestingDepth - 20);
        EXPECT_LE(line, 4 + language::maxNestingDepth);
    }
}

TEST_P(NestingDepthTest, WithinTheLimitNoSuchError) {
    parse(GetParam().source(language::maxNestingDepth - 50));
    EXPECT_THAT(errors(), Not(HasSubstr("nesting")));
}

INSTANTIATE_TEST_SUITE_P(Shapes, NestingDepthTest,
                         testing::Values(Shape{"braces", braces}, Shape{"ifs", ifs},
                                         Shape{"sum", sum, true}, Shape{"rightNested", rightNested},
                                         Shape{"negations", negations}, Shape{"guards", guards}),
                         [](auto const& info) { return info.param.name; });

// Parentheses alone build no level of the tree: the parser's own stack, which
// grows on the heap, is all they fill.
TEST(NestingDepth, ParenthesesAloneAreNoNesting) {
    language::TestStore store;
    language::Parser parser{store.model};
    std::istringstream in(
        inBehaviour("[" + repeated("(", 100000) + "a" + repeated(")", 100000) + "] illegal;"));
    parser.parseStream(in, "t.kel", {}, false, false, true);
    std::ostringstream errors;
    parser.printErrors(errors);
    EXPECT_THAT(errors.str(), Not(HasSubstr("nesting")));
}

TEST(NestingDepth, FindTooDeepCountsLevelsBelowTheTop) {
    language::TestStore store;
    language::Parser parser{store.model};
    std::istringstream in("interface I { }");
    ASSERT_TRUE(parser.parseStream(in, "t.kel", {}, false, false, true));
    om::Object const& root = kel::GetRoot(store.model);
    EXPECT_EQ(language::findTooDeep(root, 100), nullptr);
    om::Object const* child = language::findTooDeep(root, 0);
    ASSERT_NE(child, nullptr);
    EXPECT_EQ(child->getParentOid(), root.getOid());
}

} // namespace
