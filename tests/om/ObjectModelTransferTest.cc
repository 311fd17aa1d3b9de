#include "ErrorText.h"
#include "ModelFixture.h"
#include "om/ObjectModel.h"
#include "om/ObjectVectorIndexes.h"

#include <gmock/gmock.h>

#include <functional>

namespace om {
namespace {

using test::errorOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ObjectModelTransferTest : public test::ModelFixture {
protected:
    // A free Node whose required Leaf and optional Leaf come next in the vector.
    ObjectModel::OwnedObjects freeNodeTree() {
        ObjectModel::OwnedObjects objects;
        auto node = std::make_unique<test::Node>();
        auto required = std::make_unique<test::Leaf>();
        auto optional = std::make_unique<test::Leaf>();
        node->getCompositionRef("Required").push_back(required->getOid());
        node->getCompositionRef("Optional").push_back(optional->getOid());
        objects.push_back(std::move(node));
        objects.push_back(std::move(required));
        objects.push_back(std::move(optional));
        return objects;
    }

    std::vector<Object*> pointersOf(ObjectModel::OwnedObjects const& objects) {
        std::vector<Object*> pointers;
        for (auto const& object : objects) {
            pointers.push_back(object.get());
        }
        return pointers;
    }
};

TEST_F(ObjectModelTransferTest, AddsATreeThatNamesAStoredObject) {
    Oid const stored = create("test::Leaf");
    auto objects = freeNodeTree();
    Oid const node = objects[0]->getOid();
    Oid const required = objects[1]->getOid();
    Object const* nodeObject = objects[0].get();
    objects[2]->getAssociationRef("Target").push_back(stored);
    objects[1]->getAssociationRef("Target").push_back(node);
    model.addObjects(objects);
    EXPECT_THAT(objects, IsEmpty());
    EXPECT_EQ(model.find(node), nodeObject);
    EXPECT_EQ(nodeObject->tryGetOwner(), &model);
    EXPECT_EQ(model.getParentOid(required), node);
    EXPECT_THAT(model.getRootOids(), ElementsAre(stored, node));
    EXPECT_THAT(model.getUserOids(stored), ElementsAre(node + 2));
    EXPECT_THAT(model.getUserOids(node), ElementsAre(required));
    expectConsistentIndexes();
}

TEST_F(ObjectModelTransferTest, EmptyVectorDoesNothing) {
    Oid const stored = create("test::Node");
    ObjectModel::OwnedObjects none;
    model.addObjects(none);
    EXPECT_THAT(model.getRootOids(), ElementsAre(stored));
}

TEST_F(ObjectModelTransferTest, EveryCheckLeavesStoreAndVectorUnchanged) {
    Oid const stored = create("test::Leaf");
    ObjectModel other(factory);
    using Spoil = std::function<void(ObjectModel::OwnedObjects&)>;
    struct Case {
        Spoil spoil;
        std::string message;
    };
    std::vector<Case> const cases = {
        {[](auto& o) { o[0]->setOid(NULL_OID); }, "Added object cannot have NULL OID"},
        {[&](auto& o) { o[0]->setOid(stored); },
         "Trying to add object with OID that already exists in the object model"},
        {[](auto& o) { o.push_back(o[2]->clone()); },
         "Trying to add object with OID that is not unique in the added vector"},
        {[&](auto& o) { o[1]->setOwner(&other); }, "Object still belongs to another object model"},
        {[](auto& o) {
             auto base = std::make_unique<Object>();
             o[0]->getCompositionRef("Children").push_back(base->getOid());
             o.push_back(std::move(base));
         },
         "Object is of a class unknown to the objectmodel factory"},
        {[](auto& o) {
             auto second = std::make_unique<test::Node>();
             second->getCompositionRef("Children").push_back(o[1]->getOid());
             o.push_back(std::move(second));
         },
         "Child has multiple parents or there is a cyclic parent-child relation"},
        {[](auto& o) { o[0]->getCompositionRef("Children").push_back(o[0]->getOid() + 1000); },
         "Undefined child reference within added "},
        {[](auto& o) { o[2]->getAssociationRef("Target").push_back(o[0]->getOid() + 1000); }, ""},
        {[](auto& o) { o[0]->getAssociationRef("Link").push_back(o[0]->getOid() + 1000); }, ""},
    };
    for (auto const& c : cases) {
        auto objects = freeNodeTree();
        Oid const node = objects[0]->getOid();
        c.spoil(objects);
        std::string const expected =
            !c.message.empty()
                ? c.message
                : "Undefined associate reference " + Oid2String(node + 1000) +
                      " adding object of class " +
                      (objects[2]->getAssociation("Target").size() ? "test::Leaf" : "test::Node");
        auto const before = pointersOf(objects);
        EXPECT_EQ(errorOf([&] { model.addObjects(objects); }), expected);
        EXPECT_EQ(pointersOf(objects), before) << expected;
        EXPECT_THAT(model.getRootOids(), ElementsAre(stored)) << expected;
        EXPECT_EQ(model.tryFind(node), nullptr) << expected;
        EXPECT_THAT(model.getUserOids(stored), IsEmpty()) << expected;
        for (auto const& object : objects) {
            if (object->getOid() != stored && object->getOid() != NULL_OID) {
                EXPECT_THROW(model.getParentOid(object->getOid()), OMException) << expected;
            }
        }
    }
}

TEST_F(ObjectModelTransferTest, ChecksRunInOrderPerObject) {
    auto objects = freeNodeTree();
    objects[0]->setOwner(&model);
    objects[0]->getAssociationRef("Link").push_back(objects[0]->getOid() + 1000);
    objects[1]->setOid(NULL_OID);
    EXPECT_EQ(errorOf([&] { model.addObjects(objects); }),
              "Object still belongs to another object model")
        << "the first object's checks come before the second object's";
}

TEST_F(ObjectModelTransferTest, ObjectsThatHangFromNoRootStayWithTheCaller) {
    auto objects = freeNodeTree();
    auto a = std::make_unique<test::Node>();
    auto b = std::make_unique<test::Node>();
    a->getCompositionRef("Children").push_back(b->getOid());
    b->getCompositionRef("Children").push_back(a->getOid());
    Oid const aId = a->getOid();
    objects.push_back(std::move(a));
    objects.push_back(std::move(b));
    model.addObjects(objects);
    ASSERT_EQ(objects.size(), 2u);
    EXPECT_EQ(objects[0]->getOid(), aId);
    EXPECT_EQ(objects[0]->tryGetOwner(), nullptr);
    EXPECT_EQ(model.tryFind(aId), nullptr);
    EXPECT_EQ(model.getRootOids().size(), 1u);
}

TEST_F(ObjectModelTransferTest, RemoveObjectsHandsOverATreeInPreOrder) {
    Oid const node = create("test::Node");
    Oid const leaf = create("test::Leaf");
    addChild(node, "Children", leaf);
    Oid const required = childIn(node, "Required");
    ObjectModel::OwnedObjects out;
    out.push_back(std::make_unique<test::Leaf>());
    model.removeObjects(node, out);
    ASSERT_EQ(out.size(), 3u);
    EXPECT_EQ(out[0]->getOid(), node);
    EXPECT_EQ(out[1]->getOid(), leaf);
    EXPECT_EQ(out[2]->getOid(), required);
    for (auto const& object : out) {
        EXPECT_EQ(object->tryGetOwner(), nullptr);
        EXPECT_EQ(model.tryFind(object->getOid()), nullptr);
        EXPECT_THROW(model.getUserOids(object->getOid()), OMException);
        EXPECT_THROW(model.getParentOid(object->getOid()), OMException);
    }
    EXPECT_THAT(model.getRootOids(), IsEmpty());
}

TEST_F(ObjectModelTransferTest, TakeFromMovesATreeWithItsIds) {
    ObjectModel source(factory);
    Oid const tree = source.createRecursive("test::Tree")->getOid();
    std::set<Oid> const ids = source.getTreeOids(tree);
    Object const* treeObject = source.find(tree);
    model.takeFrom(source, tree);
    EXPECT_EQ(model.getTreeOids(tree), ids);
    EXPECT_EQ(model.find(tree), treeObject);
    for (Oid const id : ids) {
        EXPECT_EQ(source.tryFind(id), nullptr);
    }
    EXPECT_THAT(source.getRootOids(), IsEmpty());
    EXPECT_THAT(model.getRootOids(), ElementsAre(tree));
    expectConsistentIndexes();
}

TEST_F(ObjectModelTransferTest, FailedTakeFromLeavesTheTreeReadable) {
    ObjectModel source(factory);
    Oid const node = source.createRecursive("test::Node")->getOid();
    Object const* nodeObject = source.find(node);
    ObjectModel::OwnedObjects clones;
    clones.push_back(nodeObject->clone());
    clones.back()->setOwner(nullptr);
    clones.back()->getCompositionRef("Required").clear();
    model.addObjects(clones);
    EXPECT_EQ(errorOf([&] { model.takeFrom(source, node); }),
              "Trying to add object with OID that already exists in the object model");
    EXPECT_EQ(source.tryFind(node), nullptr);
    EXPECT_EQ(nodeObject->getOid(), node) << "kept by the source until it is cleared";
    EXPECT_NE(model.find(node), nodeObject);
}

TEST_F(ObjectModelTransferTest, EqualUpToIdComparesObjectsAndIndexes) {
    EXPECT_TRUE(model.equalUpToId(model));
    Oid const node = create("test::Node");
    link(node, "Link", childIn(node, "Required"));
    EXPECT_TRUE(model == model);

    ObjectModel copy(factory);
    ObjectModel::OwnedObjects clones;
    for (Object const* object : model.getTreeVec(node)) {
        clones.push_back(object->clone());
        clones.back()->setOwner(nullptr);
    }
    copy.addObjects(clones);
    EXPECT_TRUE(model.equalUpToId(copy));
    EXPECT_TRUE(copy.equalUpToId(model));

    test::Node changed = AsType<test::Node>(*copy.find(node));
    changed.setSize(0);
    copy.update(changed);
    EXPECT_FALSE(model.equalUpToId(copy));
    EXPECT_FALSE(model.equalUpToId(ObjectModel(factory)));
}

TEST(ObjectVectorIndexesTest, FirstEntryStays) {
    test::Node parent;
    test::Node otherParent;
    test::Leaf child;
    test::Leaf twin;
    twin.setOid(child.getOid());
    parent.getCompositionRef("Children").push_back(child.getOid());
    otherParent.getCompositionRef("Children").push_back(child.getOid());
    std::vector<Object*> const objects = {&parent, &child, &otherParent, &twin};
    std::map<Oid, Object*> index;
    createIndex(objects, index);
    EXPECT_EQ(index.size(), 3u);
    EXPECT_EQ(index.at(child.getOid()), &child);
    std::map<Oid, Oid> child2parent;
    createChild2ParentMap(objects, child2parent);
    EXPECT_THAT(child2parent, ElementsAre(std::pair{child.getOid(), parent.getOid()}));
    std::set<Oid> roots;
    createRootObjectsSet(objects, child2parent, roots);
    EXPECT_THAT(roots, ElementsAre(parent.getOid(), otherParent.getOid()));
}

} // namespace
} // namespace om
