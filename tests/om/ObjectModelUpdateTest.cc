#include "ErrorText.h"
#include "ModelFixture.h"
#include "om/ObjectModel.h"

#include <gmock/gmock.h>

namespace om {
namespace {

using test::errorOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ObjectModelUpdateTest : public test::ModelFixture {};

TEST_F(ObjectModelUpdateTest, RefusesTheStoredObjectItself) {
    Oid const node = create("test::Node");
    Object const& again = *model.find(node);
    EXPECT_EQ(errorOf([&] { model.update(again); }),
              "The object given to update() should be a clone. Clone the object, THEN change "
              "it, and the call update() on the ObjectModel. At this time, the validity of the "
              "Object Model is no longer guaranteed.");
}

TEST_F(ObjectModelUpdateTest, RefusesUnknownIdsForeignOwnersAndOtherClasses) {
    Oid const node = create("test::Node");
    test::Node stranger;
    EXPECT_EQ(errorOf([&] { model.update(stranger); }),
              "findRef: Object with id " + Oid2String(stranger.getOid()) + " not found");

    test::Node orphan = copyOf<test::Node>(node);
    orphan.setOwner(nullptr);
    EXPECT_EQ(errorOf([&] { model.update(orphan); }),
              "You are not allowed to change the owner of objects");
    ObjectModel other(factory);
    orphan.setOwner(&other);
    EXPECT_EQ(errorOf([&] { model.update(orphan); }),
              "You are not allowed to change the owner of objects");

    test::Tree derived;
    derived.setOid(node);
    derived.setOwner(&model);
    EXPECT_EQ(errorOf([&] { model.update(derived); }),
              "You cannot replace an object by one of a different class unless it is a base "
              "class (\"test::Node\" became \"test::Tree\"");
    test::Leaf unrelated;
    unrelated.setOid(node);
    unrelated.setOwner(&model);
    EXPECT_EQ(errorOf([&] { model.update(unrelated); }),
              "You cannot replace an object by one of a different class unless it is a base "
              "class (\"test::Node\" became \"test::Leaf\"");
    EXPECT_EQ(model.find(node)->getClassName(), "test::Node");
}

TEST_F(ObjectModelUpdateTest, KeepsTheAddressAndAcceptsABaseClassCopy) {
    Oid const tree = create("test::Tree");
    Object const* stored = model.find(tree);
    test::Tree changed = copyOf<test::Tree>(tree);
    changed.setExtra(3);
    model.update(changed);
    EXPECT_EQ(model.find(tree), stored);
    EXPECT_EQ(AsType<test::Tree>(*stored).getExtra(), 3);

    test::Node base = copyOf<test::Node>(tree);
    base.setSize(11);
    model.update(base);
    EXPECT_EQ(model.find(tree), stored);
    EXPECT_EQ(stored->getClassName(), "test::Tree");
    EXPECT_EQ(AsType<test::Tree>(*stored).getSize(), 11);
    EXPECT_EQ(AsType<test::Tree>(*stored).getExtra(), 3) << "the derived property stays";
    EXPECT_EQ(stored->getComposition("Branches").size(), 1u);
    expectConsistentIndexes();
}

TEST_F(ObjectModelUpdateTest, PropertyChangeLeavesTheIndexesAlone) {
    Oid const node = create("test::Node");
    Oid const leaf = create("test::Leaf");
    link(node, "Link", leaf);
    Oid const required = childIn(node, "Required");
    test::Node changed = copyOf<test::Node>(node);
    changed.setSize(1);
    model.update(changed);
    EXPECT_THAT(model.getUserOids(leaf), ElementsAre(node));
    EXPECT_THAT(model.getUserOids(node), IsEmpty());
    EXPECT_EQ(model.getParentOid(required), node);
    EXPECT_THAT(model.getRootOids(), ElementsAre(node, leaf));
    EXPECT_EQ(AsType<test::Node>(*model.find(node)).getSize(), 1);
}

TEST_F(ObjectModelUpdateTest, MovedAssociationMovesTheUser) {
    Oid const user = create("test::Node");
    Oid const a = create("test::Leaf");
    Oid const b = create("test::Leaf");
    link(user, "Link", a);
    test::Node changed = copyOf<test::Node>(user);
    changed.getAssociationRef("Link").set(b);
    model.update(changed);
    EXPECT_THAT(model.getUserOids(a), IsEmpty());
    EXPECT_THAT(model.getUserOids(b), ElementsAre(user));
    expectConsistentIndexes();
}

TEST_F(ObjectModelUpdateTest, UsersAreTakenOverSetsOfTargets) {
    Oid const user = create("test::Node");
    Oid const target = create("test::Leaf");
    link(user, "Link", target);
    link(user, "Links", target);
    link(user, "Links", target);
    EXPECT_THAT(model.getUserOids(target), ElementsAre(user));
    test::Node changed = copyOf<test::Node>(user);
    changed.getAssociationRef("Link").clear();
    model.update(changed);
    EXPECT_THAT(model.getUserOids(target), ElementsAre(user)) << "still named by Links";
    changed.getAssociationRef("Links").clear();
    model.update(changed);
    EXPECT_THAT(model.getUserOids(target), IsEmpty());
}

TEST_F(ObjectModelUpdateTest, DroppingOneOfTwoEqualLinksKeepsTheUser) {
    Oid const user = create("test::Node");
    Oid const target = create("test::Leaf");
    Oid const other = create("test::Leaf");
    for (Oid const id : {target, other, target}) {
        link(user, "Links", id);
    }
    test::Node changed = copyOf<test::Node>(user);
    changed.getAssociationRef("Links").eraseAt(2);
    model.update(changed);
    EXPECT_THAT(model.getUserOids(target), ElementsAre(user));
    expectConsistentIndexes();
}

TEST_F(ObjectModelUpdateTest, ATargetNeedNotExist) {
    Oid const user = create("test::Node");
    Oid const missing = user + 1000;
    link(user, "Link", missing);
    EXPECT_THAT(model.getUserOids(missing), ElementsAre(user));
    EXPECT_EQ(model.tryFind(missing), nullptr);
}

TEST_F(ObjectModelUpdateTest, GainedChildLeavesTheRoots) {
    Oid const node = create("test::Node");
    Oid const leaf = create("test::Leaf");
    addChild(node, "Optional", leaf);
    EXPECT_EQ(model.getParentOid(leaf), node);
    EXPECT_THAT(model.getRootOids(), ElementsAre(node));
    expectConsistentIndexes();
}

TEST_F(ObjectModelUpdateTest, ChildMovesFromAnotherParentWithItsSubtree) {
    Oid const a = create("test::Node");
    Oid const b = create("test::Node");
    Oid const moving = create("test::Node");
    addChild(a, "Children", moving);
    Oid const grandChild = childIn(moving, "Required");
    addChild(b, "Children", moving);
    EXPECT_EQ(model.find(a)->getComposition("Children").size(), 0u);
    EXPECT_THAT(model.find(b)->getComposition("Children").asOidVec(), ElementsAre(moving));
    EXPECT_EQ(model.getParentOid(moving), b);
    EXPECT_EQ(model.getParentOid(grandChild), moving);
    EXPECT_THAT(model.getRootOids(), ElementsAre(a, b));
    expectConsistentIndexes();
}

TEST_F(ObjectModelUpdateTest, ChildMovesBetweenCompositionsOfItsParent) {
    Oid const node = create("test::Node");
    Oid const leaf = create("test::Leaf");
    addChild(node, "Children", leaf);
    test::Node changed = copyOf<test::Node>(node);
    changed.getCompositionRef("Children").clear();
    changed.getCompositionRef("Optional").set(leaf);
    model.update(changed);
    EXPECT_NE(model.tryFind(leaf), nullptr);
    EXPECT_EQ(model.getParentOid(leaf), node);
    expectConsistentIndexes();
}

TEST_F(ObjectModelUpdateTest, ReplacingOneChildAmongManyDestroysOnlyThatOne) {
    Oid const node = create("test::Node");
    std::vector<Oid> leaves;
    for (int i = 0; i < 50; ++i) {
        leaves.push_back(create("test::Leaf"));
        addChild(node, "Children", leaves.back());
    }
    Oid const replacement = create("test::Leaf");
    test::Node changed = copyOf<test::Node>(node);
    changed.getCompositionRef("Children").setAt(25, replacement);
    model.update(changed);
    EXPECT_EQ(model.tryFind(leaves[25]), nullptr);
    EXPECT_EQ(model.getParentOid(replacement), node);
    for (Oid const kept : {leaves[0], leaves[24], leaves[26], leaves[49]}) {
        EXPECT_EQ(model.getParentOid(kept), node) << kept;
    }
    EXPECT_THAT(model.getRootOids(), ElementsAre(node));
    expectConsistentIndexes();
}

TEST_F(ObjectModelUpdateTest, DroppedChildIsDestroyedWhateverTheMinimum) {
    Oid const node = create("test::Node");
    Oid const outer = create("test::Node");
    addChild(node, "Children", outer);
    Oid const inner = childIn(outer, "Required");
    Oid const watcher = create("test::Leaf");
    link(watcher, "Target", inner);
    Object const* dropped = model.find(outer);
    test::Node changed = copyOf<test::Node>(node);
    changed.getCompositionRef("Children").clear();
    changed.getCompositionRef("Required").clear();
    Oid const required = childIn(node, "Required");
    model.update(changed);
    for (Oid const gone : {outer, inner, required}) {
        EXPECT_EQ(model.tryFind(gone), nullptr) << gone;
    }
    EXPECT_EQ(model.find(watcher)->getAssociation("Target").size(), 0u);
    EXPECT_EQ(dropped->getOid(), outer) << "a destroyed object stays readable";
    EXPECT_THAT(model.getRootOids(), ElementsAre(node, watcher));
    expectConsistentIndexes();
}

TEST_F(ObjectModelUpdateTest, UnknownNewChildFailsAfterTheUsersChanged) {
    Oid const node = create("test::Node");
    Oid const target = create("test::Leaf");
    Oid const missing = target + 1000;
    test::Node changed = copyOf<test::Node>(node);
    changed.getAssociationRef("Link").push_back(target);
    changed.getCompositionRef("Children").push_back(missing);
    EXPECT_EQ(errorOf([&] { model.update(changed); }),
              "findRef: Object with id " + Oid2String(missing) + " not found");
    EXPECT_THAT(model.getUserOids(target), ElementsAre(node)) << "no rollback";
    EXPECT_EQ(model.find(node)->getAssociation("Link").size(), 0u) << "not assigned";
}

} // namespace
} // namespace om
