// Every example source loads through every check of the front end and holds
// the model that its README names.
#include "tool/File.h"

#include "metamodel/ModelDeclaration.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Example {
    std::string source;
    std::string model;
};

class ExamplesTest : public testing::TestWithParam<Example> {};

TEST_P(ExamplesTest, LoadsAndFindsItsModel) {
    File file(std::string(KEL_EXAMPLES_DIR) + "/" + GetParam().source, {});
    kel::ModelDeclaration const* model = file.TryGetModel(GetParam().model);
    ASSERT_NE(model, nullptr);
    EXPECT_EQ(model->getName(), GetParam().model);
}

INSTANTIATE_TEST_SUITE_P(Sources, ExamplesTest,
                         testing::Values(Example{"switch/switch.kel", "ISwitch"},
                                         Example{"climate/climate.kel", "Climate"},
                                         Example{"building/building.kel", "Building"}),
                         [](testing::TestParamInfo<Example> const& info) {
                             return info.param.model;
                         });

} // namespace
