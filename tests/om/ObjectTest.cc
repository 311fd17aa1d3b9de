#include "om/Object.h"
#include "ErrorText.h"
#include "TestClasses.h"
#include "om/AsType.h"
#include "om/ObjectModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace om {
namespace {

using test::errorOf;
using test::intOf;
using test::IntValue;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> namesOf(auto const& map) {
    std::vector<std::string> names;
    for (auto const& entry : map) {
        names.push_back(entry.first);
        EXPECT_EQ(entry.second.size(), 0u) << entry.first;
    }
    return names;
}

TEST(ObjectTest, NewObjectHasAnEmptyValuePerMemberOfItsClassAndBases) {
    test::Tree const tree;
    EXPECT_THAT(namesOf(tree.getAssociations()), ElementsAre("Buddy", "Link", "Links"));
    EXPECT_THAT(namesOf(tree.getCompositions()),
                ElementsAre("Branches", "Children", "Optional", "Required"));
    EXPECT_EQ(tree.getSize(), 7);
    EXPECT_EQ(tree.getExtra(), 0);
    EXPECT_EQ(tree.tryGetOwner(), nullptr);
    EXPECT_EQ(tree.getClassName(), "test::Tree");
    EXPECT_TRUE(tree.isDerivedFrom("test::Node"));
}

TEST(ObjectTest, EveryObjectGetsTheNextId) {
    Object const first;
    test::Leaf const second;
    Object const third(true);
    EXPECT_EQ(second.getOid(), first.getOid() + 1);
    EXPECT_EQ(third.getOid(), first.getOid() + 2);
    EXPECT_THAT(first.getAssociations(), IsEmpty());
    EXPECT_EQ(first.getClassName(), "om::Object");
    EXPECT_EQ(&first.getDefinition(), Object::Definition);
    EXPECT_THAT(test::Leaf(true).getAssociations(), IsEmpty()) << "the flag skips the members";
}

TEST(ObjectTest, MemberTypePrefersPropertyThenCompositionThenAssociation) {
    struct Clash : Object {
        ObjectDefinition const& getDefinition() const override {
            // Made once and never freed, like every class definition.
            static ObjectDefinition const* definition = [] {
                auto* d = new ObjectDefinition();
                d->defineProperty("P", test::intProperty(0));
                d->defineComposition("P", CompositionDefinition("X", 0, 0, sfSerialized));
                d->defineComposition("C", CompositionDefinition("X", 0, 0, sfSerialized));
                d->defineAssociation("C", test::association("X"));
                d->defineAssociation("A", test::association("X"));
                return d;
            }();
            return *definition;
        }
    } const clash;
    EXPECT_EQ(clash.getMemberType("P"), Object::mtProperty);
    EXPECT_EQ(clash.getMemberType("C"), Object::mtComposition);
    EXPECT_EQ(clash.getMemberType("A"), Object::mtAssociation);
    EXPECT_EQ(clash.getMemberType("X"), Object::mtNone);
}

TEST(ObjectTest, PropertiesByNameFollowTheClassChain) {
    test::Tree tree;
    tree.setProperty("Size", PropertyValueBase(IntValue(3)));
    tree.setProperty("Extra", PropertyValueBase(IntValue(4)));
    EXPECT_EQ(tree.getSize(), 3);
    EXPECT_EQ(intOf(tree.getProperty("Extra")), 4);
    EXPECT_EQ(errorOf([&] { tree.getProperty("Weight"); }), "Property \"Weight\" not found");
    EXPECT_EQ(errorOf([&] { tree.setProperty("", PropertyValueBase()); }),
              "Property \"\" not found");
}

TEST(ObjectTest, UnknownMemberNames) {
    test::Node node;
    EXPECT_EQ(errorOf([&] { node.getAssociation("Nope"); }), "Association \"Nope\" not found");
    EXPECT_EQ(errorOf([&] { node.getAssociationRef("Nope"); }), "Association \"Nope\" not found");
    EXPECT_EQ(errorOf([&] { node.setAssociation("Nope", {}); }), "Association \"Nope\" not found");
    EXPECT_EQ(errorOf([&] { node.getComposition("Link"); }), "Composition \"Link\" not found");
    EXPECT_EQ(errorOf([&] { node.getCompositionRef("Link"); }), "Composition \"Link\" not found");
    EXPECT_EQ(errorOf([&] { node.setComposition("Link", {}); }), "Composition \"Link\" not found");
}

TEST(ObjectTest, SettersCheckBoundsButNotTargetsAndKeepTheOldValueOnFailure) {
    test::Node node;
    node.setComposition("Required", test::valueOf<CompositionValue>({987654321}));
    EXPECT_EQ(errorOf([&] { node.setComposition("Required", {}); }),
              "Too few elements in composition");
    EXPECT_EQ(errorOf([&] {
                  node.setComposition("Optional", test::valueOf<CompositionValue>({5, 6}));
              }),
              "Too many elements in composition");
    EXPECT_EQ(node.getComposition("Required").get(), 987654321);
    EXPECT_EQ(node.getComposition("Optional").size(), 0u);
    AssociationValue two;
    two.push_back(1);
    two.push_back(1);
    EXPECT_EQ(errorOf([&] { node.setAssociation("Link", two); }),
              "Too many elements in association");
    node.setAssociation("Links", two);
    EXPECT_EQ(node.getAssociation("Links"), two);
    node.getCompositionRef("Required").clear();
    EXPECT_EQ(node.getComposition("Required").size(), 0u) << "the reference is unchecked";
}

TEST(ObjectTest, IdSetsAndRemovalOverAllMembers) {
    test::Node node;
    node.getAssociationRef("Link").push_back(8);
    node.getAssociationRef("Links").push_back(9);
    node.getAssociationRef("Links").push_back(8);
    node.getCompositionRef("Required").push_back(30);
    node.getCompositionRef("Children").push_back(40);
    node.getCompositionRef("Children").push_back(20);
    EXPECT_THAT(node.getAllAssociations(), ElementsAre(8, 9));
    EXPECT_THAT(node.getAllChildren(), ElementsAre(20, 30, 40));
    EXPECT_THAT(node.getCompositionAsOidSet("Children"), ElementsAre(20, 40));
    EXPECT_THAT(node.getAssociationAsOidSet("Links"), ElementsAre(8, 9));
    EXPECT_EQ(node.findCompositionWithObject(30), "Required");
    EXPECT_EQ(node.findCompositionWithObject(99), "");
    node.removeAssociation(8);
    EXPECT_THAT(node.getAllAssociations(), ElementsAre(9));
    node.removeChild(20);
    EXPECT_THAT(node.getComposition("Children").asOidVec(), ElementsAre(40));
}

TEST(ObjectTest, CloneEqualsItsSourceUntilOneChanges) {
    test::Factory factory;
    ObjectModel model(factory);
    test::Tree tree;
    tree.getCompositionRef("Children").push_back(5);
    std::unique_ptr<Object> clone = tree.clone();
    EXPECT_EQ(*clone, tree);
    EXPECT_NE(dynamic_cast<test::Tree const*>(clone.get()), nullptr);
    clone->setOwner(&model);
    EXPECT_NE(*clone, tree);
    EXPECT_TRUE(clone->equalExceptOwner(tree));
    test::Tree changed = tree;
    changed.setExtra(1);
    EXPECT_FALSE(changed.equalExceptOwnerAndOid(tree));
    changed = tree;
    changed.getCompositionRef("Children").push_back(6);
    EXPECT_FALSE(changed.equalExceptOwnerAndOid(tree));
    changed = tree;
    changed.getAssociationRef("Buddy").push_back(6);
    EXPECT_FALSE(changed.equalExceptOwnerAndOid(tree));
    changed = tree;
    EXPECT_EQ(changed, tree);
}

TEST(ObjectTest, EqualityFormsLookAtDifferentParts) {
    test::Node const a;
    test::Node const b;
    EXPECT_TRUE(a.equalExceptOwnerAndOid(b));
    EXPECT_FALSE(a.equalExceptOwner(b));
    EXPECT_NE(a, b);
    test::Tree const tree;
    EXPECT_FALSE(a.equalExceptOwnerAndOid(tree));
    EXPECT_FALSE(tree.equalExceptOwnerAndOid(a));
    test::Node reordered = a;
    reordered.getCompositionRef("Children").push_back(1);
    reordered.getCompositionRef("Children").push_back(2);
    test::Node other = a;
    other.getCompositionRef("Children").push_back(2);
    other.getCompositionRef("Children").push_back(1);
    EXPECT_FALSE(reordered.equalExceptOwner(other)) << "the order of ids counts";
}

TEST(ObjectTest, ConservativeAssignFromABaseClassKeepsTheDerivedMembers) {
    test::Tree tree;
    tree.setExtra(5);
    tree.getCompositionRef("Branches").push_back(11);
    tree.getAssociationRef("Buddy").push_back(12);
    tree.getCompositionRef("Children").push_back(13);
    test::Node node;
    node.setSize(2);
    node.getAssociationRef("Link").push_back(14);
    tree.conservativeAssign(node, false);
    EXPECT_EQ(tree.getOid(), node.getOid());
    EXPECT_EQ(tree.getSize(), 2);
    EXPECT_EQ(tree.getExtra(), 5);
    EXPECT_EQ(tree.getComposition("Branches").get(), 11);
    EXPECT_EQ(tree.getAssociation("Buddy").get(), 12);
    EXPECT_EQ(tree.getComposition("Children").size(), 0u);
    EXPECT_EQ(tree.getAssociation("Link").get(), 14);
    EXPECT_EQ(tree.getClassName(), "test::Tree");
}

TEST(ObjectTest, ValidateChecksIdThenAssociationsThenCompositions) {
    test::Factory factory;
    ObjectModel model(factory);
    test::Node node;
    std::string error = "untouched";
    node.getCompositionRef("Required").push_back(987654321);
    EXPECT_TRUE(node.validate(error)) << "without owner the targets are not looked at";
    EXPECT_EQ(error, "untouched");
    node.setOwner(&model);
    EXPECT_FALSE(node.validate(error));
    EXPECT_EQ(error, "Composition links to non-existent object id 987654321");
    node.getAssociationRef("Link").push_back(987654322);
    EXPECT_EQ(errorOf([&] { node.check(); }),
              "Association links to non-existent object id 987654322");
    node.setOid(NULL_OID);
    EXPECT_EQ(errorOf([&] { node.check(); }), "Object has NULL_OID as OID");
}

TEST(ObjectTest, FreeObjectHasNoOwnerToAsk) {
    test::Node node;
    node.getAssociationRef("Link").push_back(3);
    for (auto operation : std::vector<std::function<void()>>{
             [&] { node.getOwner(); }, [&] { node.getParentOid(); }, [&] { node.tryGetParent(); },
             [&] { node.getUsers(); }, [&] { node.getParentOfType("x"); },
             [&] { node.getAssociationObjects("Link"); },
             [&] { node.getIndexInParentComposition(); }}) {
        EXPECT_EQ(errorOf(operation), "Owner is 0");
    }
}

TEST(AsTypeTest, CastsOrFails) {
    test::Tree const tree;
    Object const& object = tree;
    EXPECT_EQ(&AsType<test::Node>(object), &tree);
    EXPECT_EQ(errorOf([&] { AsType<test::Leaf>(object); }),
              "AsType(): Object is not of the requested type.");
}

} // namespace
} // namespace om
