// The declarations that every store holds, made on first demand, and the
// lookups of the root, files and models.
#include "ErrorText.h"
#include "StoreFixture.h"

#include "metamodel/BuiltinDeclarations.h"
#include "metamodel/DeclarationConstructors.h"

#include <gtest/gtest.h>

namespace kel {
namespace {

class BuiltinDeclarationsTest : public test::StoreFixture {
protected:
    om::ObjectModel const& constModel() { return model; }
};

TEST_F(BuiltinDeclarationsTest, AStoreWithoutRootHasNone) {
    make<Namespace>();
    EXPECT_EQ(::test::errorOf([&] { GetRoot(model); }),
              "ObjectModel does not seem to contain a root object");
}

TEST_F(BuiltinDeclarationsTest, ConstLookupsFindNothingInAFreshStore) {
    root();
    EXPECT_EQ(GetDefaultNamespace(constModel()), nullptr);
    EXPECT_EQ(GetKelNamespace(constModel()), nullptr);
    EXPECT_EQ(GetDefaultInterface(constModel()), nullptr);
    EXPECT_EQ(GetIllegalEvent(constModel()), nullptr);
    EXPECT_EQ(model.getTreeVec(root()).size(), 1u);
}

TEST_F(BuiltinDeclarationsTest, TheIllegalEventIsMadeWithItsContainers) {
    auto const& top = root();
    auto const* illegal = GetIllegalEvent(model);
    ASSERT_NE(illegal, nullptr);
    EXPECT_EQ(illegal->getName(), "illegal");
    EXPECT_EQ(illegal->getDirection(), edirOut);
    EXPECT_FALSE(illegal->hasReturnType());
    EXPECT_FALSE(illegal->hasParameters());

    auto const* space = GetDefaultNamespace(constModel());
    ASSERT_NE(space, nullptr);
    EXPECT_EQ(space->getName(), "");
    EXPECT_EQ(top.getNamespaces(), (ConstNamespaceVec{space}));
    auto const* interface = GetDefaultInterface(constModel());
    ASSERT_NE(interface, nullptr);
    EXPECT_EQ(interface->getName(), "");
    EXPECT_EQ(space->getModels().size(), 1u);
    EXPECT_EQ(interface->getEvents(), (ConstEventDeclarationVec{illegal}));
    EXPECT_EQ(GetIllegalEvent(constModel()), illegal);
}

TEST_F(BuiltinDeclarationsTest, ASecondDemandMakesNothing) {
    root();
    auto const* illegal = GetIllegalEvent(model);
    auto const* kel = GetKelNamespace(model);
    auto const* boolType = GetBoolTypeDeclaration(model);
    auto const objects = model.getTreeVec(root()).size();
    EXPECT_EQ(GetIllegalEvent(model), illegal);
    EXPECT_EQ(GetKelNamespace(model), kel);
    EXPECT_EQ(GetBoolTypeDeclaration(model), boolType);
    EXPECT_EQ(model.getTreeVec(root()).size(), objects);
}

TEST_F(BuiltinDeclarationsTest, KelNamespaceAndBoolLiveInTheDefaultNamespace) {
    root();
    auto const* kel = GetKelNamespace(model);
    auto const* boolType = GetBoolTypeDeclaration(model);
    auto const* space = GetDefaultNamespace(constModel());
    EXPECT_EQ(kel->getName(), "kel");
    EXPECT_EQ(kel->getParentOid(), space->getOid());
    EXPECT_EQ(boolType->getName(), "bool");
    EXPECT_EQ(boolType->getClassName(), "kel::TypeDeclaration");
    EXPECT_EQ(space->getTypes(), (ConstTypeDeclarationVec{boolType}));
    EXPECT_EQ(GetKelNamespace(constModel()), kel);
}

TEST_F(BuiltinDeclarationsTest, FilesAreFoundByName) {
    auto const& first = addFile("a.kel");
    addFile("b.kel");
    EXPECT_EQ(&GetFile(model, "a.kel"), &first);
    EXPECT_EQ(::test::errorOf([&] { GetFile(model, "c.kel"); }),
              "ObjectModel does not seem to contain File object with name c.kel");
}

TEST_F(BuiltinDeclarationsTest, ModelsAreFoundByTheirFile) {
    auto const& a = addFile("a.kel");
    auto const& b = addFile("b.kel");
    auto model1 = constructInterfaceDeclaration(model, "I", 0);
    auto model2 = constructInterfaceDeclaration(model, "J", 0);
    auto model3 = constructInterfaceDeclaration(model, "K", 0);
    change(find<InterfaceDeclaration>(model1),
           [&](InterfaceDeclaration& copy) { copy.setFile(a); });
    change(find<InterfaceDeclaration>(model2),
           [&](InterfaceDeclaration& copy) { copy.setFile(b); });
    change(find<InterfaceDeclaration>(model3),
           [&](InterfaceDeclaration& copy) { copy.setFile(a); });
    auto const space = constructInterfaceDeclaration(model, "", 0); // has no File
    change(*GetDefaultNamespace(model), [&](Namespace& copy) {
        copy.addToModels(std::vector<om::Oid>{model1, model2, space, model3});
    });

    EXPECT_EQ(FindModelByFileName(model, "a.kel")->getOid(), model3);
    auto const models = FindModelsByFileName(model, "a.kel");
    ASSERT_EQ(models.size(), 2u);
    EXPECT_EQ(models[0]->getOid(), model1);
    EXPECT_EQ(models[1]->getOid(), model3);
    EXPECT_EQ(FindModelByFileName(model, "none.kel"), nullptr);
}

} // namespace
} // namespace kel
