// Type equality: integer types are one type whatever their range, and so are
// data types; every other type equals only itself.
#include "TestStore.h"
#include "metamodel/BuiltinDeclarations.h"
#include "metamodel/ConstructionSupport.h"
#include "metamodel/DeclarationConstructors.h"
#include "parser/grammar/ParserBase.h"

#include <gtest/gtest.h>

namespace language {
namespace {

class ParserBaseBuiltinsTest : public testing::Test {
protected:
    kel::TypeDeclaration const& type(om::Oid id) {
        return kel::Find<kel::TypeDeclaration>(store.model, id);
    }

    TestStore store;
    ParserBase types{store.model};
};

TEST_F(ParserBaseBuiltinsTest, DataTypesAreEqualWhateverTheirText) {
    auto const& text = type(kel::constructDataTypeDeclaration(store.model, "Text", "$char*$"));
    auto const& number = type(kel::constructDataTypeDeclaration(store.model, "Number", "$long$"));
    EXPECT_TRUE(ParserBase::isEqualType(text, number));
    EXPECT_TRUE(ParserBase::isDataType(types.getDataType()));
    EXPECT_FALSE(ParserBase::isEqualType(text, types.getIntType()));
    EXPECT_EQ(types.getDataType().getName(), "$data$");
}

TEST_F(ParserBaseBuiltinsTest, OtherTypesEqualOnlyThemselves) {
    auto const& first = type(kel::constructEnumTypeDeclaration(store.model, "E", {}));
    auto const& second = type(kel::constructEnumTypeDeclaration(store.model, "E", {}));
    EXPECT_TRUE(ParserBase::isEqualType(first, first));
    EXPECT_FALSE(ParserBase::isEqualType(first, second));
    EXPECT_FALSE(ParserBase::isEqualType(types.getBoolType(), types.getIntType()));
}

TEST_F(ParserBaseBuiltinsTest, BoolIsTheStoresOwnAndKnownByItsName) {
    kel::TypeDeclaration const& boolType = types.getBoolType();
    EXPECT_EQ(&boolType, kel::GetBoolTypeDeclaration(store.model));
    EXPECT_TRUE(ParserBase::isBooleanType(boolType));
    EXPECT_FALSE(ParserBase::isBooleanType(types.getIntType()));
}

TEST_F(ParserBaseBuiltinsTest, ConstantTypesStayOutsideTheStore) {
    std::size_t const before = store.model.getRootObjectsVec().size();
    ParserBase fresh{store.model};
    EXPECT_EQ(store.model.tryFind(fresh.getIntType().getOid()), nullptr);
    EXPECT_EQ(store.model.tryFind(fresh.getDataType().getOid()), nullptr);
    EXPECT_EQ(store.model.getRootObjectsVec().size(), before);
}

} // namespace
} // namespace language
