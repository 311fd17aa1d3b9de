#include "ErrorText.h"
#include "ModelFixture.h"
#include "om/ObjectModel.h"

#include <gmock/gmock.h>

namespace om {
namespace {

using test::errorOf;
using ::testing::ElementsAre;

class ObjectModelInsertTest : public test::ModelFixture {
protected:
    // A new Node holding `required` and the children, naming `target`.
    std::unique_ptr<test::Node> newNode(Oid required, std::vector<Oid> const& children,
                                        Oid target) {
        auto node = std::make_unique<test::Node>();
        node->setOwner(&model);
        node->getCompositionRef("Required").push_back(required);
        node->getCompositionRef("Children").assign(children);
        node->getAssociationRef("Link").push_back(target);
        return node;
    }
};

// What createRecursive and an update would leave: the children come to the
// new object, also one taken from another parent, and the target knows its user.
TEST_F(ObjectModelInsertTest, LeavesTheStoreAsCreateAndUpdateWould) {
    Oid const leaf = create("test::Leaf");
    Oid const target = create("test::Leaf");
    Oid const other = create("test::Node");
    Oid const moved = create("test::Leaf");
    addChild(other, "Children", moved);
    auto node = newNode(leaf, {moved}, target);
    Oid const id = node->getOid();
    Object const& stored = model.insert(std::move(node));
    EXPECT_EQ(model.find(id), &stored);
    EXPECT_EQ(stored.tryGetOwner(), &model);
    EXPECT_EQ(model.getParentOid(leaf), id);
    EXPECT_EQ(model.getParentOid(moved), id);
    EXPECT_EQ(model.find(other)->getComposition("Children").size(), 0u);
    EXPECT_THAT(model.getUserOids(target), ElementsAre(id));
    EXPECT_THAT(model.getUserOids(id), ::testing::IsEmpty());
    EXPECT_THAT(model.getRootOids(), ElementsAre(target, other, id));
    expectConsistentIndexes();
}

TEST_F(ObjectModelInsertTest, RefusesMissingRequiredChildrenTakenIdsAndForeignObjects) {
    Oid const leaf = create("test::Leaf");
    auto incomplete = std::make_unique<test::Node>();
    EXPECT_EQ(errorOf([&] { model.insert(std::move(incomplete)); }),
              "Object of class test::Node lacks a required child in \"Required\"");

    auto twin = newNode(leaf, {}, leaf);
    twin->setOid(leaf);
    EXPECT_EQ(errorOf([&] { model.insert(std::move(twin)); }),
              "Trying to add object with OID that already exists in the object model");

    ObjectModel otherModel(factory);
    auto foreign = newNode(leaf, {}, leaf);
    foreign->setOwner(&otherModel);
    EXPECT_EQ(errorOf([&] { model.insert(std::move(foreign)); }),
              "Object still belongs to another object model");
    EXPECT_THAT(model.getRootOids(), ElementsAre(leaf));
    EXPECT_THAT(model.getUserOids(leaf), ::testing::IsEmpty());
}

} // namespace
} // namespace om
