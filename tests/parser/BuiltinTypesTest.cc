// Type equality: integer types are one type whatever their range, and so are
// data types; every other type equals only itself.
#include "parser/BuiltinTypes.h"
#include "TestStore.h"
#include "metamodel/BuiltinDeclarations.h"
#include "metamodel/ConstructionSupport.h"
#include "metamodel/DeclarationConstructors.h"

#include <gtest/gtest.h>

namespace language {
namespace {

class BuiltinTypesTest : public testing::Test {
protected:
    kel::TypeDeclaration const& type(om::Oid id) {
        return kel::Find<kel::TypeDeclaration>(store.model, id);
    }

    TestStore store;
    BuiltinTypes types{store.model};
};

TEST_F(BuiltinTypesTest, IntegerTypesAreEqualWhateverTheirRange) {
    auto const& small = type(kel::constructIntTypeDeclaration(store.model, "Small", 0, 3));
    auto const& large = type(kel::constructIntTypeDeclaration(store.model, "Large", -9, 900));
    EXPECT_TRUE(BuiltinTypes::isEqualType(small, large));
    EXPECT_TRUE(BuiltinTypes::isEqualType(small, types.getIntType()));
    EXPECT_TRUE(BuiltinTypes::isIntType(large));
    EXPECT_FALSE(BuiltinTypes::isIntType(types.getBoolType()));
    EXPECT_EQ(types.getIntType().getName(), "int");
}

TEST_F(BuiltinTypesTest, DataTypesAreEqualWhateverTheirText) {
    auto const& text = type(kel::constructDataTypeDeclaration(store.model, "Text", "$char*$"));
    auto const& number = type(kel::constructDataTypeDeclaration(store.model, "Number", "$long$"));
    EXPECT_TRUE(BuiltinTypes::isEqualType(text, number));
    EXPECT_TRUE(BuiltinTypes::isDataType(types.getDataType()));
    EXPECT_FALSE(BuiltinTypes::isEqualType(text, types.getIntType()));
    EXPECT_EQ(types.getDataType().getName(), "$data$");
}

TEST_F(BuiltinTypesTest, OtherTypesEqualOnlyThemselves) {
    auto const& first = type(kel::constructEnumTypeDeclaration(store.model, "E", {}));
    auto const& second = type(kel::constructEnumTypeDeclaration(store.model, "E", {}));
    EXPECT_TRUE(BuiltinTypes::isEqualType(first, first));
    EXPECT_FALSE(BuiltinTypes::isEqualType(first, second));
    EXPECT_FALSE(BuiltinTypes::isEqualType(types.getBoolType(), types.getIntType()));
}

TEST_F(BuiltinTypesTest, BoolIsTheStoresOwnAndKnownByItsName) {
    kel::TypeDeclaration const& boolType = types.getBoolType();
    EXPECT_EQ(&boolType, kel::GetBoolTypeDeclaration(store.model));
    EXPECT_TRUE(BuiltinTypes::isBooleanType(boolType));
    EXPECT_FALSE(BuiltinTypes::isBooleanType(types.getIntType()));
}

TEST_F(BuiltinTypesTest, ConstantTypesStayOutsideTheStore) {
    std::size_t const before = store.model.getRootObjectsVec().size();
    BuiltinTypes fresh{store.model};
    EXPECT_EQ(store.model.tryFind(fresh.getIntType().getOid()), nullptr);
    EXPECT_EQ(store.model.tryFind(fresh.getDataType().getOid()), nullptr);
    EXPECT_EQ(store.model.getRootObjectsVec().size(), before);
}

} // namespace
} // namespace language
