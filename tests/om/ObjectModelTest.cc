#include "om/ObjectModel.h"
#include "ErrorText.h"
#include "ModelFixture.h"
#include "om/ObjectVisitor.h"

#include <gmock/gmock.h>

namespace om {
namespace {

using test::errorOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ObjectModelTest : public test::ModelFixture {};

TEST_F(ObjectModelTest, CreateRecursiveMakesTheRequiredChildrenOnly) {
    Oid const tree = create("test::Tree");
    Oid const required = childIn(tree, "Required");
    Oid const branch = childIn(tree, "Branches");
    EXPECT_THAT(model.getRootOids(), ElementsAre(tree));
    EXPECT_EQ(model.getParentOid(required), tree);
    EXPECT_EQ(model.getParentOid(branch), tree);
    EXPECT_EQ(model.find(tree)->getComposition("Optional").size(), 0u);
    EXPECT_EQ(model.find(required)->getClassName(), "test::Leaf");
    EXPECT_EQ(model.find(tree)->tryGetOwner(), &model);
    EXPECT_EQ(&model.getFactory(), &factory);
    EXPECT_EQ(errorOf([&] { model.createRecursive("test::Nothing"); }),
              "Unkown class name \"test::Nothing\"");
    expectConsistentIndexes();
}

TEST_F(ObjectModelTest, FindRootTakesTheFirstAcceptedRootInIdOrder) {
    Oid const node = create("test::Node");
    Oid const firstLeaf = create("test::Leaf");
    Oid const secondLeaf = create("test::Leaf");
    addChild(node, "Optional", firstLeaf);
    auto const isLeaf = [](Object const& object) { return object.getClassName() == "test::Leaf"; };
    ASSERT_NE(model.findRoot(isLeaf), nullptr);
    EXPECT_EQ(model.findRoot(isLeaf)->getOid(), secondLeaf) << "a child is no root";
    EXPECT_EQ(model.findRoot([](Object const&) { return false; }), nullptr);
}

TEST_F(ObjectModelTest, LookupsAndTheirMessages) {
    Oid const leaf = create("test::Leaf");
    Oid const unknown = leaf + 1000;
    EXPECT_EQ(model.find(leaf), model.tryFind(leaf));
    EXPECT_EQ(model.findRef(leaf), model.tryFind(leaf));
    EXPECT_EQ(model.tryFind(unknown), nullptr);
    EXPECT_EQ(model.tryFind(NULL_OID), nullptr);
    std::string const id = Oid2String(unknown);
    EXPECT_EQ(errorOf([&] { model.find(unknown); }), "find: Object with id " + id + " not found");
    EXPECT_EQ(errorOf([&] { model.findRef(unknown); }),
              "findRef: Object with id " + id + " not found");
    EXPECT_EQ(errorOf([&] { model.getParentOid(unknown); }),
              "getParentOid: Object with id " + id + " not found");
    EXPECT_EQ(errorOf([&] { model.getUsers(unknown); }),
              "getUsers: Object with id " + id + " not found");
    EXPECT_EQ(errorOf([&] { model.getUserOids(unknown); }),
              "getUserOids: Object with id " + id + " not found");
    Object const* none = nullptr;
    EXPECT_EQ(errorOf([&] { model.getParentOid(none); }), "Object is NULL");
    EXPECT_EQ(errorOf([&] { model.getTreeVec(none); }), "Object is NULL");
    EXPECT_EQ(errorOf([&] { model.tryGetParentOfType(none, "x"); }), "Object is NULL");
}

TEST_F(ObjectModelTest, RootsHaveNoParent) {
    Oid const node = create("test::Node");
    Object const& object = *model.find(node);
    EXPECT_EQ(model.tryGetParent(node), nullptr);
    EXPECT_EQ(object.tryGetParent(), nullptr);
    EXPECT_FALSE(object.hasParent());
    EXPECT_EQ(errorOf([&] { model.getParent(&object); }), "find: Object with id 0 not found");
    EXPECT_EQ(errorOf([&] { object.getParentOfType("test::Node"); }),
              "find: Object with id 0 not found");
    EXPECT_EQ(model.tryGetParentOfType(object, "test::Node"), nullptr);
    EXPECT_EQ(model.getParentOfTypeOid(node, "om::Object"), NULL_OID);
}

TEST_F(ObjectModelTest, ParentOfTypeLooksAtAncestorsOnly) {
    Oid const tree = create("test::Tree");
    Oid const node = create("test::Node");
    addChild(tree, "Children", node);
    Oid const leaf = childIn(node, "Required");
    EXPECT_EQ(model.getParentOfTypeOid(node, "test::Node"), tree) << "a Tree is a Node";
    EXPECT_EQ(model.getParentOfTypeOid(leaf, "test::Node"), node);
    EXPECT_EQ(model.getParentOfType(model.find(leaf), "test::Tree"), model.find(tree));
    EXPECT_EQ(model.find(leaf)->getParentOfTypeOid("test::Tree"), tree);
    EXPECT_EQ(model.find(tree)->tryGetParentOfType("test::Tree"), nullptr);
    EXPECT_EQ(model.find(leaf)->getParent(), model.find(node));
}

TEST_F(ObjectModelTest, TreesInPreOrderAndVisitsInIdOrder) {
    Oid const node = create("test::Node");
    Oid const required = childIn(node, "Required");
    Oid const early = create("test::Leaf");
    Oid const late = create("test::Leaf");
    addChild(node, "Optional", early);
    addChild(node, "Children", late);
    std::vector<Oid> preOrder;
    for (Object const* object : model.getTreeVec(node)) {
        preOrder.push_back(object->getOid());
    }
    EXPECT_THAT(preOrder, ElementsAre(node, late, early, required)) << "by composition name";
    EXPECT_THAT(model.getTreeOids(node), ElementsAre(node, required, early, late));
    EXPECT_EQ(model.getTreeSet(model.find(node)).size(), 4u);

    struct Recorder : ObjectVisitor {
        std::vector<std::pair<Oid, int>> visits;
        void visit(Object const& object) override {
            visits.emplace_back(object.getOid(), getLevel());
        }
    } recorder;
    model.find(node)->accept(recorder);
    EXPECT_THAT(recorder.visits, ElementsAre(std::pair{node, 0}, std::pair{required, 1},
                                             std::pair{early, 1}, std::pair{late, 1}));
    EXPECT_EQ(recorder.getLevel(), 0);
}

TEST_F(ObjectModelTest, DanglingChildIsSkippedByVisitsButNotByTrees) {
    Oid const node = create("test::Node");
    Oid const dangling = node + 1000;
    model.findRef(node)->getCompositionRef("Children").push_back(dangling);
    struct Counter : ObjectVisitor {
        int visits = 0;
        void visit(Object const&) override { ++visits; }
    } counter;
    model.find(node)->accept(counter);
    EXPECT_EQ(counter.visits, 2);
    EXPECT_EQ(errorOf([&] { model.getTreeVec(node); }),
              "find: Object with id " + Oid2String(dangling) + " not found");
}

TEST_F(ObjectModelTest, PositionInTheParent) {
    Oid const parent = create("test::Node");
    Oid const first = create("test::Leaf");
    Oid const second = create("test::Node");
    addChild(parent, "Children", first);
    addChild(parent, "Children", second);
    Object const& child = *model.find(second);
    EXPECT_EQ(child.getParentComposition(), "Children");
    EXPECT_EQ(child.getIndexInParentComposition(), 1u);
    std::unique_ptr<Object> parentClone = model.find(parent)->clone();
    EXPECT_TRUE(child.hasParent(*parentClone)) << "ids count, not addresses";
    EXPECT_FALSE(child.hasParent(*model.find(first)));
    Oid const sibling = childIn(parent, "Required");
    addChild(second, "Children", create("test::Node"));
    Object const& deep = *model.find(childIn(second, "Children"));
    EXPECT_TRUE(deep.hasParentRecursively(*parentClone));
    EXPECT_FALSE(deep.hasParentRecursively(*model.find(sibling)));
    EXPECT_FALSE(deep.hasParentRecursively(deep));

    model.findRef(parent)->getCompositionRef("Children").erase(second);
    EXPECT_EQ(errorOf([&] { child.getParentComposition(); }),
              "getParentComposition(): object not present in its own parent??");
    EXPECT_EQ(errorOf([&] { child.getIndexInParentComposition(); }),
              "getIndexInParentComposition(): object not present in its own parent??");
}

TEST_F(ObjectModelTest, MemberObjectsGoThroughTheOwner) {
    Oid const node = create("test::Node");
    Oid const leaf = create("test::Leaf");
    link(node, "Links", leaf);
    link(node, "Links", leaf);
    Object const& object = *model.find(node);
    EXPECT_THAT(object.getAssociationObjects("Links"),
                ElementsAre(model.find(leaf), model.find(leaf)));
    EXPECT_THAT(object.getAssociationAsObjectSet("Links"), ElementsAre(model.find(leaf)));
    EXPECT_THAT(object.getCompositionObjects("Required"),
                ElementsAre(model.find(childIn(node, "Required"))));
    EXPECT_THAT(object.getCompositionAsObjectSet("Children"), IsEmpty());
    EXPECT_THAT(model.find(leaf)->getUsers(), ElementsAre(&object));
    EXPECT_THAT(model.find(leaf)->getUserOids(), ElementsAre(node));
    link(node, "Link", leaf + 1000);
    EXPECT_EQ(errorOf([&] { object.getAssociationObjects("Link"); }),
              "find: Object with id " + Oid2String(leaf + 1000) + " not found");
}

TEST_F(ObjectModelTest, RootsComeInAscendingIdOrder) {
    std::vector<Oid> ids;
    for (char const* name : {"test::Leaf", "test::Tree", "test::Node", "test::Leaf"}) {
        ids.push_back(create(name));
    }
    std::vector<Oid> rootIds;
    for (Object const* root : model.getRootObjectsVec()) {
        rootIds.push_back(root->getOid());
    }
    EXPECT_EQ(rootIds, ids);
    EXPECT_EQ(model.getRootObjectsSet().size(), 4u);
    EXPECT_TRUE(model.getRootObjectsSet().contains(model.find(ids[1])));
}

TEST_F(ObjectModelTest, ClearEmptiesTheStore) {
    Oid const node = create("test::Node");
    model.clear();
    EXPECT_EQ(model.tryFind(node), nullptr);
    EXPECT_THAT(model.getRootOids(), IsEmpty());
    EXPECT_EQ(errorOf([&] { model.getParentOid(node); }),
              "getParentOid: Object with id " + Oid2String(node) + " not found");
    EXPECT_TRUE(model.equalUpToId(model));
}

} // namespace
} // namespace om
