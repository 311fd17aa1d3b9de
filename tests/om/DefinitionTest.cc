#include "ErrorText.h"
#include "TestClasses.h"
#include "om/AssociationDefinition.h"
#include "om/CompositionDefinition.h"
#include "om/OMException.h"
#include "om/ObjectDefinition.h"
#include "om/ObjectModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace om {
namespace {

using AD = AssociationDefinition;

using test::errorOf;

AssociationValue ids(std::vector<Oid> const& list) { return test::valueOf<AssociationValue>(list); }
CompositionValue children(std::vector<Oid> const& list) {
    return test::valueOf<CompositionValue>(list);
}

TEST(PropertyDefinitionTest, DefaultsAndDeepCopies) {
    PropertyDefinition const none;
    EXPECT_EQ(none.getType(), 0);
    EXPECT_FALSE(none.getDefaultValue().hasImpl());
    EXPECT_EQ(none.getSerializedFlag(), sfSerialized);
    EXPECT_EQ(none.getUndoFlag(), ufNoUndo);

    PropertyDefinition const five = test::intProperty(5);
    PropertyDefinition copy = five;
    EXPECT_EQ(copy, five);
    EXPECT_NE(&copy.getDefaultValue().getImpl(), &five.getDefaultValue().getImpl());
    EXPECT_NE(five, test::intProperty(6));
    EXPECT_NE(five, none);
    EXPECT_NE(five,
              PropertyDefinition(test::IntType, test::IntValue(5), sfNotSerialized, ufNoUndo));
    EXPECT_NE(five, PropertyDefinition(test::IntType, test::IntValue(5), sfSerialized, ufUndo));
    EXPECT_EQ(none, PropertyDefinition());
}

TEST(PropertyDefinitionTest, DefaultMustFitTheType) {
    EXPECT_EQ(errorOf([] { PropertyDefinition(7, test::IntValue(0), sfSerialized, ufNoUndo); }),
              "Incorrect property type");
    PropertyDefinition const definition = test::intProperty(0);
    std::string error = "untouched";
    EXPECT_TRUE(definition.validate(PropertyValueBase(test::IntValue(3)), error));
    EXPECT_EQ(error, "untouched");
    EXPECT_EQ(errorOf([&] { definition.check(PropertyValueBase()); }),
              "Value implementation is NULL");
}

TEST(AssociationDefinitionTest, ConstructionRules) {
    AD const defaults;
    EXPECT_EQ(defaults.getAssociationType(), AD::atZeroOne);
    EXPECT_EQ(defaults.getClassName(), "");
    EXPECT_EQ(defaults.getMultiplicityMax(), 1u);
    EXPECT_EQ(errorOf([] { AD("", AD::atList, 1, sfSerialized); }),
              "className argument should not be empty");
    EXPECT_EQ(errorOf([] { AD("", AD::atZeroOne, 2, sfSerialized); }),
              "className argument should not be empty");
    EXPECT_EQ(errorOf([] { AD("X", AD::atZeroOne, 0, sfSerialized); }),
              "If type is atZeroOne then multiplicityMax should be 1");
    EXPECT_EQ(errorOf([] { AD("X", AD::atList, 0, sfSerialized); }), "no error");
}

TEST(AssociationDefinitionTest, ValidatesCountThenUniquenessWithoutModel) {
    struct Case {
        AD definition;
        AssociationValue value;
        std::string error;
    };
    std::vector<Case> const cases = {
        {AD("X", AD::atList, 0, sfSerialized), ids({1, 1, 2}), ""},
        {AD("X", AD::atSet, 0, sfSerialized), ids({1, 2, 1}),
         "Elements in set-type association not unique"},
        {AD("X", AD::atSet, 2, sfSerialized), ids({1, 1, 1}), "Too many elements in association"},
        {AD("X", AD::atZeroOne, 1, sfSerialized), ids({1, 2}), "Too many elements in association"},
        {AD("X", AD::atZeroOne, 1, sfSerialized), ids({}), ""},
        {AD("X", AD::atSet, 3, sfSerialized), ids({}), ""},
    };
    for (auto const& c : cases) {
        std::string error;
        EXPECT_EQ(c.definition.validate(nullptr, c.value, error), c.error.empty()) << c.error;
        EXPECT_EQ(error, c.error);
        EXPECT_EQ(errorOf([&] { c.definition.check(nullptr, c.value); }),
                  c.error.empty() ? "no error" : c.error);
    }
}

TEST(AssociationDefinitionTest, WithAModelLooksAtTheTargets) {
    test::Factory factory;
    ObjectModel model(factory);
    Oid const leaf = model.createRecursive(test::Leaf::ClassName)->getOid();
    Oid const node = model.createRecursive(test::Node::ClassName)->getOid();
    AD const toLeaf(test::Leaf::ClassName, AD::atList, 0, sfSerialized);
    AD const toAny(Object::ClassName, AD::atList, 0, sfSerialized);
    std::string error;
    EXPECT_TRUE(toLeaf.validate(&model, ids({leaf, leaf}), error));
    EXPECT_TRUE(toAny.validate(&model, ids({leaf, node}), error));
    EXPECT_FALSE(toLeaf.validate(&model, ids({leaf, 987654321, node}), error));
    EXPECT_EQ(error, "Association links to non-existent object id 987654321");
    EXPECT_FALSE(toLeaf.validate(&model, ids({node, 987654321}), error));
    EXPECT_EQ(error, "Association links to wrong class (test::Node instead of test::Leaf)");
    AD const one(test::Leaf::ClassName, AD::atZeroOne, 1, sfSerialized);
    EXPECT_FALSE(one.validate(&model, ids({node, 987654321}), error));
    EXPECT_EQ(error, "Too many elements in association") << "the first broken rule wins";
}

TEST(AssociationDefinitionTest, ComparesAllFieldsInOrder) {
    AD const a("A", AD::atList, 2, sfSerialized);
    EXPECT_EQ(a, AD("A", AD::atList, 2, sfSerialized));
    EXPECT_NE(a, AD("A", AD::atList, 2, sfNotSerialized));
    EXPECT_LT(AD("Z", AD::atZeroOne, 1, sfSerialized), a) << "type decides first";
    EXPECT_LT(a, AD("B", AD::atList, 1, sfSerialized));
    EXPECT_LT(a, AD("A", AD::atList, 3, sfSerialized));
    EXPECT_FALSE(a < a);
}

TEST(CompositionDefinitionTest, ConstructionRules) {
    CompositionDefinition const defaults;
    EXPECT_EQ(defaults.getMultiplicityMin(), 0u);
    EXPECT_EQ(defaults.getMultiplicityMax(), 0u);
    EXPECT_EQ(defaults.getSerializedFlag(), sfSerialized);
    EXPECT_EQ(errorOf([] { CompositionDefinition("", 2, 1, sfSerialized); }),
              "className should not be empty");
    EXPECT_EQ(errorOf([] { CompositionDefinition("X", 2, 1, sfSerialized); }),
              "multiplicityMax should be either 0 or >= multiplicityMin");
    EXPECT_EQ(errorOf([] { CompositionDefinition("X", 3, 0, sfSerialized); }), "no error");
}

TEST(CompositionDefinitionTest, ValidatesBoundsThenChildren) {
    test::Factory factory;
    ObjectModel model(factory);
    Oid const leaf = model.createRecursive(test::Leaf::ClassName)->getOid();
    Oid const node = model.createRecursive(test::Node::ClassName)->getOid();
    CompositionDefinition const atLeastThree("X", 3, 0, sfSerialized);
    CompositionDefinition const leaves(test::Leaf::ClassName, 1, 2, sfSerialized);
    std::string error = "untouched";
    EXPECT_TRUE(atLeastThree.validate(nullptr, children({4, 5, 6, 7}), error));
    EXPECT_EQ(error, "untouched");
    EXPECT_FALSE(atLeastThree.validate(nullptr, children({4, 5}), error));
    EXPECT_EQ(error, "Too few elements in composition");
    EXPECT_FALSE(leaves.validate(&model, children({leaf, 987654321, 5}), error));
    EXPECT_EQ(error, "Too many elements in composition");
    EXPECT_TRUE(leaves.validate(nullptr, children({987654321}), error));
    EXPECT_FALSE(leaves.validate(&model, children({leaf, 987654321}), error));
    EXPECT_EQ(error, "Composition links to non-existent object id 987654321");
    EXPECT_FALSE(leaves.validate(&model, children({node}), error));
    EXPECT_EQ(error, "Composition links to wrong class (test::Node instead of test::Leaf)");
    EXPECT_EQ(errorOf([&] { leaves.check(&model, children({})); }),
              "Too few elements in composition");
}

TEST(CompositionDefinitionTest, ComparesAllFieldsInOrder) {
    CompositionDefinition const a("A", 1, 2, sfSerialized);
    EXPECT_EQ(a, CompositionDefinition("A", 1, 2, sfSerialized));
    EXPECT_NE(a, CompositionDefinition("A", 1, 0, sfSerialized));
    EXPECT_LT(a, CompositionDefinition("B", 0, 0, sfSerialized));
    EXPECT_LT(a, CompositionDefinition("A", 2, 2, sfSerialized));
    EXPECT_LT(a, CompositionDefinition("A", 1, 3, sfSerialized));
    EXPECT_FALSE(a < a);
}

TEST(ObjectDefinitionTest, DerivedDefinitionHoldsAllMembersOfItsBases) {
    test::Tree const tree;
    ObjectDefinition const& definition = tree.getDefinition();
    std::vector<std::string> compositions;
    for (auto const& entry : definition.getCompositionDefs()) {
        compositions.push_back(entry.first);
    }
    EXPECT_THAT(compositions,
                ::testing::ElementsAre("Branches", "Children", "Optional", "Required"));
    EXPECT_TRUE(definition.hasProperty("Size"));
    EXPECT_TRUE(definition.hasAssociation("Buddy"));
    EXPECT_FALSE(definition.hasComposition("Size"));
    EXPECT_EQ(definition.getCompositionDef("Required").getMultiplicityMin(), 1u);
    EXPECT_EQ(definition.getClassName(), "test::Tree");
    EXPECT_EQ(definition.getClassNameForSerialization(), "test::Tree");
}

TEST(ObjectDefinitionTest, IsDerivedFromWalksUpToObject) {
    ObjectDefinition const& tree = test::Tree().getDefinition();
    for (std::string name : {"test::Tree", "test::Node", "om::Object"}) {
        EXPECT_TRUE(tree.isDerivedFrom(name)) << name;
    }
    EXPECT_FALSE(tree.isDerivedFrom("test::Leaf"));
    EXPECT_FALSE(test::Node().getDefinition().isDerivedFrom("test::Tree"));
    ObjectDefinition const base;
    EXPECT_EQ(base.getClassName(), "om::Object");
    EXPECT_TRUE(base.isDerivedFrom("om::Object"));
    EXPECT_FALSE(base.isDerivedFrom(""));
}

TEST(ObjectDefinitionTest, NameClashesAndUnknownNames) {
    ObjectDefinition definition;
    definition.defineProperty("M", test::intProperty(0));
    definition.defineComposition("M", CompositionDefinition("X", 0, 0, sfSerialized));
    definition.defineAssociation("M", AD("X", AD::atZeroOne, 1, sfSerialized));
    EXPECT_EQ(errorOf([&] { definition.defineProperty("M", test::intProperty(1)); }),
              "A property named \"M\" already exists");
    EXPECT_EQ(errorOf([&] { definition.defineAssociation("M", AD()); }),
              "An association named \"M\" already exists");
    EXPECT_EQ(errorOf([&] { definition.defineComposition("M", CompositionDefinition()); }),
              "A composition named \"M\" already exists");
    EXPECT_EQ(errorOf([&] { definition.getPropertyDef("N"); }),
              "getPropertyDef(): property not found: \"N\"");
    EXPECT_EQ(errorOf([&] { definition.getAssociationDef("N"); }),
              "getAssociationDef(): association not found: \"N\"");
    EXPECT_EQ(errorOf([&] { definition.getCompositionDef("N"); }),
              "getCompositionDef(): composition not found: \"N\"");
    EXPECT_EQ(definition.getPropertyDef("M"), test::intProperty(0));
}

} // namespace
} // namespace om
