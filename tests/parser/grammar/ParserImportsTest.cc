#include "TestStore.h"
#include "metamodel/BuiltinDeclarations.h"
#include "om/AsType.h"
#include "om/OMException.h"
#include "parser/grammar/Parser.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

namespace {

using language::Parser;

// Source files in a directory of their own: the parser remembers every path it
// opened for the whole process, so no two tests may share one.
class ParserImportsTest : public testing::Test {
protected:
    ParserImportsTest() {
        auto const* test = testing::UnitTest::GetInstance()->current_test_info();
        m_dir = std::filesystem::path(testing::TempDir()) /
                ("kel-imports-" + std::to_string(getpid()) + "-" + test->name());
        std::filesystem::remove_all(m_dir);
        std::filesystem::create_directories(m_dir);
    }
    ~ParserImportsTest() override { std::filesystem::remove_all(m_dir); }

    // Writes the source and returns its path.
    std::string write(std::string const& name, std::string const& source) {
        std::filesystem::path path = m_dir / name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path) << source;
        return path.string();
    }

    std::string path(std::string const& name) const { return (m_dir / name).string(); }

    bool parseFile(std::string const& name, std::vector<std::string> const& includePaths = {}) {
        return parser.parseFile(path(name), includePaths, false, false);
    }

    std::string errors() const {
        std::ostringstream out;
        parser.printErrors(out);
        return out.str();
    }

    // The names of the models of the default namespace, in order.
    std::string modelNames() {
        std::string names;
        for (auto const* model : kel::GetDefaultNamespace(store.model)->getModels()) {
            names += (names.empty() ? "" : " ") + model->getName();
        }
        return names;
    }

    kel::ModelDeclaration const& model(std::size_t index) {
        return *kel::GetDefaultNamespace(store.model)->getModels().at(index);
    }

    language::TestStore store;
    Parser parser{store.model};

private:
    std::filesystem::path m_dir;
};

TEST_F(ParserImportsTest, AnImportedInterfaceJoinsTheDefaultNamespaceMarkedImported) {
    write("lib.kel", "interface I { in void e(); }");
    write("main.kel", "import lib.kel;\ncomponent C { provides I p; }");
    ASSERT_TRUE(parseFile("main.kel")) << errors();
    EXPECT_EQ(modelNames(), "I C");
    EXPECT_TRUE(model(0).getImported());
    EXPECT_FALSE(model(1).getImported());
    EXPECT_EQ(model(0).getFile().getName(), path("lib.kel"));
}

TEST_F(ParserImportsTest, IncludePathsAreSearchedAfterTheOwnDirectory) {
    write("inc/x.kel", "interface X { }");
    write("src/x.kel", "interface Y { }");
    write("src/main.kel", "import x.kel;");
    ASSERT_TRUE(parseFile("src/main.kel", {path("inc")})) << errors();
    EXPECT_EQ(modelNames(), "Y");
}

// A directory opens on Linux and reads as empty; it must not satisfy the import.
TEST_F(ParserImportsTest, ADirectoryOfTheImportedNameIsPassedOver) {
    std::filesystem::create_directories(path("src/x.kel"));
    write("inc/x.kel", "interface X { }");
    write("src/main.kel", "import x.kel;");
    ASSERT_TRUE(parseFile("src/main.kel", {path("inc")})) << errors();
    EXPECT_EQ(modelNames(), "X");
}

// Each import parses inside its importer's parse: a long chain would exhaust the call stack.
TEST_F(ParserImportsTest, AChainOfImportsTooLongIsCutWithAnError) {
    std::size_t const files = Parser::maxImportDepth + 20;
    for (std::size_t i = 0; i < files; ++i) {
        write("c" + std::to_string(i) + ".kel", "import c" + std::to_string(i + 1) +
                                                    ".kel;\ninterface I" + std::to_string(i) +
                                                    " { }\n");
    }
    std::string const cut = std::to_string(Parser::maxImportDepth);
    EXPECT_FALSE(parseFile("c0.kel"));
    EXPECT_EQ(errors(),
              path("c" + cut + ".kel") + ":1:1: imports nested deeper than " + cut + " files\n");
    EXPECT_EQ(kel::GetDefaultNamespace(store.model)->getModels().size(),
              Parser::maxImportDepth + 1);
}

TEST_F(ParserImportsTest, AnImportFoundNowhereIsReportedAtTheClause) {
    write("main2.kel", "import nope.kel;\ninterface I { }");
    testing::internal::CaptureStderr();
    EXPECT_FALSE(parseFile("main2.kel", {"a", "b"}));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "include path: [a, b, ]\n");
    EXPECT_EQ(errors(), path("main2.kel") + ":1:1: cannot open 'nope.kel'\n");
    EXPECT_EQ(modelNames(), "I");
}

TEST_F(ParserImportsTest, AFileThatFailsThePreParserStopsTheWholeParse) {
    write("lib.kel", "interface I { component }");
    write("main.kel", "import lib.kel;");
    try {
        parseFile("main.kel");
        FAIL() << "no exception";
    } catch (om::OMException const& e) {
        EXPECT_EQ(std::string(e.what()), "unexpected pre-parser error: " + path("lib.kel") +
                                             ":1.15-23: syntax error, unexpected component");
    }
}

TEST_F(ParserImportsTest, FilesImportingEachOtherAreParsedOnce) {
    write("a.kel", "import b.kel;\nimport a.kel;\ninterface A { }");
    write("b.kel", "import a.kel;\ninterface B { }");
    ASSERT_TRUE(parseFile("a.kel")) << errors();
    EXPECT_EQ(modelNames(), "B A");
}

TEST_F(ParserImportsTest, ComponentsOfAnImportedFileKeepTheirPortsButNoBehaviour) {
    write("lib.kel", "component L { provides I p; behaviour { on p.e: illegal; } }");
    write("main.kel", "import lib.kel;\ninterface I { in void e(); }");
    ASSERT_TRUE(parseFile("main.kel")) << errors();
    EXPECT_EQ(modelNames(), "L I");
    auto const& l = om::AsType<kel::ComponentDeclaration>(model(0));
    EXPECT_EQ(l.getPortsSize(), 1u);
    EXPECT_FALSE(l.hasBehaviour());
    EXPECT_FALSE(l.getForeign());
    EXPECT_TRUE(l.getImported());
}

// Rejected shapes inside such a behaviour would report if anything were built.
TEST_F(ParserImportsTest, StatementsOfAComponentsOnlyImportBuildAndReportNothing) {
    write("lib.kel", "component L { provides I p; behaviour {\n"
                     "  void f() { void g() { } }\n"
                     "  on p.e(1): a.b.reply();\n} }");
    write("main.kel", "import lib.kel;\ninterface I { in void e(); }");
    ASSERT_TRUE(parseFile("main.kel")) << errors();
    EXPECT_EQ(errors(), "");
    // Nothing built for the dropped behaviour lies around without an owner.
    EXPECT_EQ(store.model.getRootObjectsVec().size(), 1u);
}

TEST_F(ParserImportsTest, FullImportsKeepBehavioursAndSystems) {
    write("lib.kel", "component L { provides I p; behaviour { on p.e: illegal; } }\n"
                     "component S { system { L l; } }");
    write("main.kel", "import lib.kel;\ninterface I { in void e(); }");
    ASSERT_TRUE(parser.parseFile(path("main.kel"), {}, true, false)) << errors();
    // Resolving "illegal" adds the unnamed default interface behind them.
    EXPECT_EQ(modelNames(), "L S I ");
    EXPECT_TRUE(model(0).hasBehaviour());
    EXPECT_EQ(om::AsType<kel::ComponentDeclaration>(model(1)).getSystem().getInstancesSize(), 1u);
}

TEST_F(ParserImportsTest, AnImportedFileSkipsTheComponentsOnlyFilesItImports) {
    write("components.kel", "component K { }");
    write("mid.kel", "import components.kel;\ninterface M { }");
    write("main.kel", "import mid.kel;");
    ASSERT_TRUE(parseFile("main.kel")) << errors();
    EXPECT_EQ(modelNames(), "M");
}

TEST_F(ParserImportsTest, ErrorsOfAnImportedFileReachTheImporter) {
    write("lib.kel", "enum E {};");
    write("main.kel", "import lib.kel;\nenum F {};");
    EXPECT_FALSE(parseFile("main.kel"));
    EXPECT_EQ(errors(),
              path("lib.kel") + ":1:9: syntax error, unexpected }, expecting identifier\n" +
                  path("main.kel") + ":2:9: syntax error, unexpected }, expecting identifier\n");
}

} // namespace
