#include "ErrorText.h"
#include "ModelFixture.h"
#include "om/ObjectModel.h"

#include <gmock/gmock.h>

namespace om {
namespace {

using test::errorOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ObjectModelDestroyTest : public test::ModelFixture {};

TEST_F(ObjectModelDestroyTest, UnknownId) {
    Oid const node = create("test::Node");
    EXPECT_EQ(errorOf([&] { model.destroyRecursive(node + 1000); }),
              "findRef: Object with id " + Oid2String(node + 1000) + " not found");
}

TEST_F(ObjectModelDestroyTest, RequiredChildAtItsMinimumStays) {
    Oid const node = create("test::Node");
    Oid const required = childIn(node, "Required");
    EXPECT_EQ(errorOf([&] { model.destroyRecursive(required); }),
              "Cannot remove object " + Oid2String(required) +
                  " because its parent cannot lose another child without becoming invalid");
    EXPECT_NE(model.tryFind(required), nullptr);
    EXPECT_EQ(model.find(node)->getComposition("Required").get(), required);

    model.destroyRecursiveImpl(required);
    EXPECT_EQ(model.tryFind(required), nullptr);
    EXPECT_EQ(model.find(node)->getComposition("Required").size(), 0u);
    expectConsistentIndexes();
}

TEST_F(ObjectModelDestroyTest, AboveTheMinimumAChildMayGo) {
    Oid const tree = create("test::Tree");
    Oid const first = childIn(tree, "Branches");
    Oid const second = create("test::Leaf");
    addChild(tree, "Branches", second);
    model.destroyRecursive(first);
    EXPECT_THAT(model.find(tree)->getComposition("Branches").asOidVec(), ElementsAre(second));
    EXPECT_THROW(model.destroyRecursive(second), OMException);
    Oid const optional = create("test::Leaf");
    addChild(tree, "Optional", optional);
    model.destroyRecursive(optional);
    EXPECT_EQ(model.find(tree)->getComposition("Optional").size(), 0u);
    expectConsistentIndexes();
}

TEST_F(ObjectModelDestroyTest, AssociationsFromOutsideAreClearedInsideLeftAlone) {
    Oid const root = create("test::Node");
    Oid const doomed = create("test::Node");
    addChild(root, "Children", doomed);
    Oid const inner = childIn(doomed, "Required");
    Oid const outsider = create("test::Node");
    link(inner, "Target", doomed);
    link(outsider, "Link", doomed);
    link(outsider, "Links", inner);
    link(outsider, "Links", doomed);
    link(doomed, "Link", outsider);
    Object const* innerObject = model.find(inner);

    model.destroyRecursive(doomed);

    Object const& kept = *model.find(outsider);
    EXPECT_EQ(kept.getAssociation("Link").size(), 0u);
    EXPECT_EQ(kept.getAssociation("Links").size(), 0u);
    EXPECT_THAT(model.getUserOids(outsider), IsEmpty());
    EXPECT_EQ(model.find(root)->getComposition("Children").size(), 0u);
    EXPECT_EQ(innerObject->getAssociation("Target").get(), doomed)
        << "users inside the subtree are not touched";
    EXPECT_EQ(innerObject->tryGetOwner(), &model);
    EXPECT_THAT(model.getRootOids(), ElementsAre(root, outsider));
    for (Oid const gone : {doomed, inner}) {
        EXPECT_EQ(model.tryFind(gone), nullptr);
        EXPECT_THROW(model.getParentOid(gone), OMException);
        EXPECT_THROW(model.getUserOids(gone), OMException);
    }
    expectConsistentIndexes();
}

TEST_F(ObjectModelDestroyTest, RootGoesWithItsWholeTree) {
    Oid const tree = create("test::Tree");
    Oid const keep = create("test::Leaf");
    std::set<Oid> const treeIds = model.getTreeOids(tree);
    model.destroyRecursive(tree);
    EXPECT_THAT(model.getRootOids(), ElementsAre(keep));
    for (Oid const id : treeIds) {
        EXPECT_EQ(model.tryFind(id), nullptr);
    }
    expectConsistentIndexes();
}

// A chain far deeper than the call stack could follow in recursion.
TEST_F(ObjectModelDestroyTest, DeepChainIsWalkedAndDestroyed) {
    constexpr std::size_t depth = 100000;
    Oid const top = create("test::Node");
    Oid bottom = top;
    for (std::size_t i = 1; i < depth; ++i) {
        Oid const next = create("test::Node");
        addChild(bottom, "Optional", next);
        bottom = next;
    }
    EXPECT_EQ(model.getTreeVec(top).size(), 2 * depth) << "each node has its required leaf";
    ObjectModel::ConstObjectVec const tree = model.getTreeVec(top);
    EXPECT_EQ(tree[1]->getOid(), childIn(top, "Optional")) << "pre-order, by composition name";
    EXPECT_EQ(tree.back()->getOid(), childIn(top, "Required"));
    model.destroyRecursive(top);
    EXPECT_EQ(model.tryFind(bottom), nullptr);
    EXPECT_THAT(model.getRootOids(), IsEmpty());
}

} // namespace
} // namespace om
