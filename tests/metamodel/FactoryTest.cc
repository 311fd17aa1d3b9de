// The factory makes every class of the metamodel by name and nothing else.
#include "metamodel/Factory.h"
#include "ErrorText.h"
#include "metamodel/FactoryTable.h"
#include "metamodel/ParameterDeclaration.h"

#include <gtest/gtest.h>

namespace kel {
namespace {

// Base classes such as kel::Location and kel::Expression are entries too.
TEST(FactoryTest, CreatesEveryClassWithItsMembersInitialised) {
    Factory factory;
    ASSERT_EQ(FactoryEntries().size(), 74u);
    for (auto const& entry : FactoryEntries()) {
        auto const& name = *entry.className;
        ASSERT_TRUE(factory.canCreate(name)) << name;
        auto const object = factory.create(name);
        EXPECT_EQ(object->getClassName(), name);
        EXPECT_EQ(object->getDefinition().getClassNameForSerialization(), name);
        EXPECT_TRUE(object->getDefinition().isDerivedFrom("om::Object")) << name;
        EXPECT_EQ(object->getCompositions().size(), object->getCompositionDefs().size()) << name;
        EXPECT_EQ(object->getAssociations().size(), object->getAssociationDefs().size()) << name;
    }
}

TEST(FactoryTest, UnknownNamesAreRefused) {
    Factory factory;
    for (std::string const name : {"", "IfStatement", "kel::Unknown", "om::Object", "KEL::File"}) {
        EXPECT_FALSE(factory.canCreate(name)) << name;
    }
    EXPECT_EQ(::test::errorOf([&] { factory.create("kel::Unknown"); }),
              "Unkown class name \"kel::Unknown\"");
}

TEST(FactoryTest, NewObjectsCarryTheDefaults) {
    Factory factory;
    auto const object = factory.create("kel::ParameterDeclaration");
    auto const& parameter = dynamic_cast<ParameterDeclaration const&>(*object);
    EXPECT_EQ(parameter.getDirection(), pdirIn);
    EXPECT_EQ(parameter.getName(), "");
    EXPECT_EQ(parameter.getLine(), 0);
}

} // namespace
} // namespace kel
