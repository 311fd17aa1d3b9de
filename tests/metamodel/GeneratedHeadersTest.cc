// A generated header explains itself: each family of methods in a generated
// class opens with a one-line comment.
#include "metamodel/FactoryTable.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace kel {
namespace {

using Lines = std::vector<std::string>;

// The runs of lines of the class body after "public:", split at blank lines,
// without the run of static members or inherited constructors.
std::vector<Lines> FamiliesOf(std::filesystem::path const& header) {
    std::ifstream in(header);
    std::vector<Lines> families;
    Lines run;
    bool inClass = false;
    for (std::string line; std::getline(in, line) && line != "private:" && line != "};";) {
        if (line == "public:") {
            inClass = true;
        } else if (inClass && !line.empty()) {
            run.push_back(line);
        } else if (!run.empty()) {
            if (!run.front().starts_with("    static ") && !run.front().starts_with("    using ")) {
                families.push_back(run);
            }
            run.clear();
        }
    }
    if (!run.empty()) {
        families.push_back(run);
    }
    return families;
}

TEST(GeneratedHeadersTest, EachFamilyOfMethodsOpensWithAComment) {
    std::size_t families = 0;
    for (auto const& entry : std::filesystem::directory_iterator(KEL_GENERATED_DIR)) {
        if (entry.path().extension() != ".h") {
            continue;
        }
        for (Lines const& family : FamiliesOf(entry.path())) {
            ASSERT_GE(family.size(), 2u) << entry.path();
            EXPECT_TRUE(family[0].starts_with("    // ")) << entry.path() << ": " << family[0];
            EXPECT_FALSE(family[1].starts_with("    //")) << entry.path() << ": " << family[1];
            ++families;
        }
    }
    // A class, its definition and its vector: three headers with families each.
    EXPECT_GE(families, 3 * FactoryEntries().size());
}

} // namespace
} // namespace kel
