#include "om/PropertyValueBase.h"
#include "TestClasses.h"
#include "om/OMException.h"
#include "om/PropertyDefinition.h"

#include <gtest/gtest.h>

namespace om {
namespace {

using test::intOf;
using test::IntValue;

TEST(PropertyValueBaseTest, CopiesAreDeep) {
    PropertyValueBase original{IntValue(3)};
    PropertyValueBase copy = original;
    copy = PropertyValueBase(IntValue(4));
    EXPECT_EQ(intOf(original), 3);
    EXPECT_EQ(intOf(copy), 4);
    EXPECT_NE(&original.getImpl(), &copy.getImpl());
}

TEST(PropertyValueBaseTest, AssignmentCoversEveryPresence) {
    PropertyValueBase present{IntValue(1)};
    PropertyValueImpl const* implBefore = &present.getImpl();
    PropertyValueBase const two{IntValue(2)};
    present = two;
    EXPECT_EQ(&present.getImpl(), implBefore) << "both present: assign in place";
    EXPECT_EQ(intOf(present), 2);

    PropertyValueBase empty;
    empty = present;
    EXPECT_EQ(intOf(empty), 2);
    PropertyValueBase const none;
    present = none;
    EXPECT_FALSE(present.hasImpl());

    PropertyValueBase& self = empty;
    empty = self;
    EXPECT_EQ(intOf(empty), 2);
}

TEST(PropertyValueBaseTest, EqualityAndOrderTreatEmptyAsSmallest) {
    PropertyValueBase const none;
    PropertyValueBase const one{IntValue(1)};
    PropertyValueBase const two{IntValue(2)};
    EXPECT_EQ(none, PropertyValueBase());
    EXPECT_NE(none, one);
    EXPECT_EQ(one, PropertyValueBase(IntValue(1)));
    EXPECT_NE(one, two);
    EXPECT_TRUE(none < one);
    EXPECT_FALSE(one < none);
    EXPECT_FALSE(none < none);
    EXPECT_TRUE(one < two);
    EXPECT_FALSE(two < one);
}

TEST(PropertyValueBaseTest, EmptyHandleFailsValidationAndAccess) {
    PropertyValueBase empty;
    std::string error = "untouched";
    EXPECT_FALSE(empty.validate(PropertyDefinition(), error));
    EXPECT_EQ(error, "Value implementation is NULL");
    try {
        empty.getImpl();
        FAIL();
    } catch (OMException const& e) {
        EXPECT_STREQ(e.what(), "PropertyValueBase::getImpl() impl is NULL");
    }
    PropertyValueBase const& constEmpty = empty;
    EXPECT_THROW(constEmpty.getImpl(), OMException);
}

TEST(PropertyValueBaseTest, ValidationGoesToTheImplementation) {
    PropertyValueBase const value{IntValue(1)};
    std::string error;
    EXPECT_TRUE(value.validate(test::intProperty(0), error));
    EXPECT_FALSE(value.validate(PropertyDefinition(), error));
    EXPECT_EQ(error, "Incorrect property type");
}

} // namespace
} // namespace om
