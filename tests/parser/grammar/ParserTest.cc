#include "parser/grammar/Parser.h"
#include "TestStore.h"
#include "metamodel/BuiltinDeclarations.h"
#include "om/AsType.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using language::Parser;

// One main source parsed into a fresh store under the name "t.kel".
class ParserTest : public testing::Test {
protected:
    bool parse(std::string const& source) {
        std::istringstream in(source);
        return parser.parseStream(in, "t.kel", {}, false, false, false);
    }

    std::string errors() const {
        std::ostringstream out;
        parser.printErrors(out);
        return out.str();
    }

    kel::Namespace const& top() { return *kel::GetDefaultNamespace(store.model); }

    template <class T> T const& as(om::Object const* object) { return om::AsType<T>(*object); }

    language::TestStore store;
    Parser parser{store.model};
};

TEST_F(ParserTest, DottedNamesBecomeNestedNamespaces) {
    ASSERT_TRUE(parse("enum a.b.E { x, y };\ninterface c.I { }")) << errors();
    auto const& a = *top().getNamespaces().at(0);
    EXPECT_EQ(a.getName(), "a");
    auto const& b = *a.getNamespaces().at(0);
    EXPECT_EQ(b.getName(), "b");
    auto const& e = as<kel::EnumTypeDeclaration>(b.getTypes().at(0));
    EXPECT_EQ(e.getName(), "E");
    EXPECT_EQ(e.getValuesSize(), 2u);
    EXPECT_EQ(e.getValues().at(1)->getName(), "y");
    auto const& c = *top().getNamespaces().at(1);
    EXPECT_EQ(c.getModels().at(0)->getName(), "I");
}

TEST_F(ParserTest, AFileClauseMovesLaterLocationsIntoThatFile) {
    ASSERT_TRUE(parse("enum A { a };\n#file \"x.kel\"\nenum E { a };")) << errors();
    auto const& a = *top().getTypes().at(0);
    auto const& e = *top().getTypes().at(1);
    EXPECT_EQ(a.getFile().getName(), "t.kel");
    EXPECT_EQ(a.getLine(), 1);
    EXPECT_EQ(e.getFile().getName(), "x.kel");
    EXPECT_EQ(e.getLine(), 1);
}

// A flattened source: what stands behind an imported clause is imported, and a
// component there loses its behaviour until a file clause ends the section; a
// dir clause changes nothing.
TEST_F(ParserTest, AnImportedClauseMarksItsSectionImported) {
    ASSERT_TRUE(parse("#dir \"elsewhere\"\n"
                      "#imported \"lib.kel\"\n"
                      "interface I { in void e(); behaviour { on e: {} } }\n"
                      "component L { provides I p; behaviour { on p.e: {} } }\n"
                      "#file \"m.kel\"\n"
                      "component M { provides I p; behaviour { on p.e: {} } }"))
        << errors();
    auto const& i = as<kel::InterfaceDeclaration>(top().getModels().at(0));
    auto const& l = as<kel::ComponentDeclaration>(top().getModels().at(1));
    auto const& m = as<kel::ComponentDeclaration>(top().getModels().at(2));
    EXPECT_TRUE(i.getImported());
    EXPECT_TRUE(i.hasBehaviour());
    EXPECT_TRUE(l.getImported());
    EXPECT_FALSE(l.hasBehaviour());
    EXPECT_EQ(l.getFile().getName(), "lib.kel");
    EXPECT_EQ(l.getLine(), 2);
    EXPECT_FALSE(m.getImported());
    EXPECT_TRUE(m.hasBehaviour());
    EXPECT_EQ(m.getFile().getName(), "m.kel");
}

TEST_F(ParserTest, InterfacesHoldTheirEventsTypesAndBehaviour) {
    ASSERT_TRUE(parse("interface I { in bool e(int a); enum T { x }; out void f();\n"
                      "behaviour { bool v = true; [v] on e: reply(true); } }"))
        << errors();
    auto const& interface = as<kel::InterfaceDeclaration>(top().getModels().at(0));
    EXPECT_EQ(interface.getEventsSize(), 2u);
    EXPECT_TRUE(interface.getEvents().at(0)->hasReturnType());
    EXPECT_FALSE(interface.getEvents().at(1)->hasReturnType());
    EXPECT_EQ(interface.getTypesSize(), 1u);
    auto const& behaviour = interface.getBehaviour();
    EXPECT_EQ(behaviour.getVariablesSize(), 1u);
    EXPECT_EQ(behaviour.getStatement().getStatementsSize(), 1u);
    EXPECT_FALSE(interface.getImported());
}

TEST_F(ParserTest, ComponentsKnowWhetherTheyHadABehaviourOrASystem) {
    ASSERT_TRUE(parse("component C { provides I p; }\ncomponent D { system { C c; } }"))
        << errors();
    auto const& c = as<kel::ComponentDeclaration>(top().getModels().at(0));
    auto const& d = as<kel::ComponentDeclaration>(top().getModels().at(1));
    EXPECT_TRUE(c.getForeign());
    EXPECT_EQ(c.getPortsSize(), 1u);
    EXPECT_FALSE(d.getForeign());
    EXPECT_EQ(d.getSystem().getInstancesSize(), 1u);
}

TEST_F(ParserTest, AsyncInternalsGetAnInterfaceOfTheirOwn) {
    ASSERT_TRUE(parse("component C { provides I p; behaviour { requires kel.async(int n) a; } }"))
        << errors();
    auto const& c = as<kel::ComponentDeclaration>(top().getModels().at(0));
    auto const& internal = *c.getBehaviour().getInternals().at(0);
    EXPECT_TRUE(internal.getInterface().hasDeclaration());
    EXPECT_EQ(internal.getInterface().getDeclaration().getName().rfind("async__i", 0), 0u);
}

struct ConstructErrorCase {
    std::string source;
    std::string errors;
};

void PrintTo(ConstructErrorCase const& c, std::ostream* out) {
    *out << testing::PrintToString(c.source);
}

class ParserErrorTest : public ParserTest,
                        public testing::WithParamInterface<ConstructErrorCase> {};

TEST_P(ParserErrorTest, ReportsWhatTheGrammarCannotExpress) {
    EXPECT_FALSE(parse(GetParam().source));
    EXPECT_EQ(errors(), GetParam().errors);
}

INSTANTIATE_TEST_SUITE_P(
    Construction, ParserErrorTest,
    testing::Values(
        ConstructErrorCase{"interface .I { }",
                           "t.kel:1:11: syntax error, name cannot start with '.'\n"},
        ConstructErrorCase{"interface I { enum a.E { x }; }",
                           "t.kel:1:20: syntax error, compound name not allowed here\n"},
        ConstructErrorCase{"component C { behaviour { } system { } }",
                           "t.kel:1:11: syntax error, component cannot have both behaviour and "
                           "system clause\n"},
        ConstructErrorCase{"interface I { behaviour { void f() { enum E { a }; } } }",
                           "t.kel:1:43: syntax error, unexpected type declaration\n"},
        ConstructErrorCase{"interface I { behaviour { void f() { void g() { } } } }",
                           "t.kel:1:43: syntax error, unexpected function declaration\n"},
        ConstructErrorCase{"interface I { behaviour { on p.e(a, 1): illegal; } }",
                           "t.kel:1:37: syntax error, expression not allowed here\n"},
        ConstructErrorCase{"interface I { behaviour { p.q.reply(); } }",
                           "t.kel:1:27: syntax error, compound name not allowed here\n"},
        ConstructErrorCase{"component C { behaviour { requires J x; } }",
                           "t.kel:1:36: Only 'kel.async' allowed: 'J'\n"}));

} // namespace
