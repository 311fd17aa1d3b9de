#include "tool/File.h"

#include "metamodel/ModelDeclaration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>

#include <unistd.h>

namespace {

using testing::ElementsAre;

// A well-formed interface named `name`.
std::string interface(std::string const& name) {
    return "interface " + name + " { in void e(); behaviour { on e: {} } }\n";
}

class FileTest : public testing::Test {
protected:
    void TearDown() override {
        for (std::string const& path : m_paths) {
            std::remove(path.c_str());
        }
    }

    // Writes a source into a fresh temporary file and returns its path.
    std::string write(std::string const& text) {
        std::string path = testing::TempDir() + "kel_file_test_" + std::to_string(getpid()) + "_" +
                           std::to_string(m_paths.size()) + "_" +
                           testing::UnitTest::GetInstance()->current_test_info()->name() + ".kel";
        std::ofstream(path) << text;
        m_paths.push_back(path);
        return path;
    }

    std::vector<std::string> m_paths;
};

TEST_F(FileTest, FindsNamespacedModelByQualifiedNameOnly) {
    File const file(write("namespace a.b { " + interface("M") + " }\n"), {});
    kel::ModelDeclaration const* model = file.TryGetModel("a.b.M");
    ASSERT_NE(model, nullptr);
    EXPECT_EQ(model->getName(), "M");
    EXPECT_EQ(file.TryGetModel("M"), nullptr);
    EXPECT_EQ(file.TryGetModel("a.M"), nullptr);
    EXPECT_EQ(file.TryGetModel("a.b.X"), nullptr);
}

TEST_F(FileTest, FirstNamespaceWhoseNameIsAPrefixTakesTheSearch) {
    std::string const ab = "namespace ab { " + interface("X") + " }\n";
    std::string const abc = "namespace abc { " + interface("M") + " }\n";
    EXPECT_EQ(File(write(ab + abc), {}).TryGetModel("abc.M"), nullptr);
    EXPECT_NE(File(write(abc + ab), {}).TryGetModel("abc.M"), nullptr);
}

TEST_F(FileTest, ListsModelNamesQualifiedInOrder) {
    File const file(write(interface("I1") + "namespace n { " + interface("I2") + " namespace m { " +
                          interface("I3") + " } }\n" + interface("I4")),
                    {});
    EXPECT_THAT(file.ModelNames(), ElementsAre("I1", "I4", "n.I2", "n.m.I3"));
}

TEST_F(FileTest, LeavesBuiltinModelsOut) {
    File const file(write(interface("I") + R"(
component C {
    provides I p;
    behaviour {
        requires kel.async t;
        on p.e(): t.req();
        on t.ack(): {}
    }
}
)"),
                    {});
    EXPECT_THAT(file.ModelNames(), ElementsAre("I", "C"));
}

TEST_F(FileTest, ImportedModelsAreFound) {
    std::string const imported = write(interface("Imported"));
    std::string const slash = imported.substr(imported.rfind('/') + 1);
    File const file(write("import " + slash + ";\n"), {});
    EXPECT_NE(file.TryGetModel("Imported"), nullptr);
}

TEST_F(FileTest, ReadsStandardInputForDash) {
    std::istringstream source(interface("FromStdin"));
    std::streambuf* const saved = std::cin.rdbuf(source.rdbuf());
    File const file("-", {});
    std::cin.rdbuf(saved);
    EXPECT_NE(file.TryGetModel("FromStdin"), nullptr);
}

} // namespace
