// The tagged property value: tags, typed access, comparison, validation and
// the casts from the framework's handle.
#include "metamodel/PropertyValue.h"
#include "ErrorText.h"
#include "metamodel/PropCast.h"
#include "om/OMException.h"
#include "om/PropertyDefinition.h"

#include <gtest/gtest.h>

#include <typeinfo>

namespace kel {
namespace {

TEST(PropertyValueTest, ConstructorsSetTagAndValue) {
    EXPECT_EQ(PropertyValue().getType(), ptUnknown);
    EXPECT_EQ(PropertyValue(7).getInt(), 7);
    EXPECT_TRUE(PropertyValue(true).getBool());
    EXPECT_EQ(PropertyValue(edirOut).getEventDirection(), edirOut);
    EXPECT_EQ(PropertyValue(idirRequired).getPortDirection(), idirRequired);
    EXPECT_EQ(PropertyValue(pdirInOut).getParameterDirection(), pdirInOut);
    EXPECT_EQ(PropertyValue(boolTrue).getBooleanValue(), boolTrue);
    EXPECT_EQ(PropertyValue(std::string("abc")).getString(), "abc");
    EXPECT_EQ(PropertyValue("xyz").getString(), "xyz");
    EXPECT_EQ(PropertyValue(ptString).getString(), "");
    EXPECT_EQ(PropertyValue(ptInt).getInt(), 0);
}

TEST(PropertyValueTest, CheckedGettersRefuseAnotherType) {
    PropertyValue const number(3);
    EXPECT_THROW(number.getBool(), om::OMException);
    EXPECT_THROW(number.getString(), om::OMException);
    EXPECT_THROW(PropertyValue(edirIn).getPortDirection(), om::OMException);
    try {
        number.getBool();
    } catch (om::OMException const& error) {
        EXPECT_STREQ(error.what(), "Incorrect property type");
    }
}

TEST(PropertyValueTest, AssignmentRetagsTheValue) {
    PropertyValue value("text");
    value = 5;
    EXPECT_EQ(value.getType(), ptInt);
    EXPECT_EQ(value.getInt(), 5);
    value = std::string("again");
    EXPECT_EQ(value.getType(), ptString);
    value = PropertyValue(false);
    EXPECT_EQ(value.getType(), ptBool);
    EXPECT_FALSE(value.getBool());
}

TEST(PropertyValueTest, CopiesAreIndependent) {
    PropertyValue original("one");
    PropertyValue copy(original);
    original = "two";
    EXPECT_EQ(copy.getString(), "one");
    auto const clone = copy.clone();
    copy.setUnchecked(std::string("three"));
    EXPECT_EQ(dynamic_cast<PropertyValue const&>(*clone).getString(), "one");
}

TEST(PropertyValueTest, EqualityNeedsEqualTagsAndContent) {
    EXPECT_EQ(PropertyValue(1), PropertyValue(1));
    EXPECT_NE(PropertyValue(1), PropertyValue(2));
    EXPECT_NE(PropertyValue(1), PropertyValue(edirIn)); // same number, other tag
    EXPECT_NE(PropertyValue(false), PropertyValue(0));
    EXPECT_EQ(PropertyValue(), PropertyValue());
    EXPECT_TRUE(PropertyValue("a").equals(PropertyValue("a")));
}

TEST(PropertyValueTest, OrderIsTagThenContent) {
    EXPECT_LT(PropertyValue("zzz"), PropertyValue(0)); // string tag 1 before int tag 2
    EXPECT_LT(PropertyValue("abc"), PropertyValue("abd"));
    EXPECT_LT(PropertyValue(-1), PropertyValue(1));
    EXPECT_LT(PropertyValue(true), PropertyValue(false));
    EXPECT_FALSE(PropertyValue(false) < PropertyValue(true));
    EXPECT_LT(PropertyValue(edirIn), PropertyValue(edirOut));
    EXPECT_TRUE(PropertyValue(1).less(PropertyValue(2)));
}

TEST(PropertyValueTest, ValidateComparesTheTagWithTheDefinition) {
    om::PropertyDefinition const definition(ptInt, PropertyValue(0), om::sfSerialized,
                                            om::ufNoUndo);
    std::string error;
    EXPECT_TRUE(PropertyValue(4).validate(definition, error));
    EXPECT_EQ(error, "");
    EXPECT_FALSE(PropertyValue(true).validate(definition, error));
    EXPECT_EQ(error, "Incorrect property type (bool instead of int)");
}

class OtherValue : public om::PropertyValueImpl {
public:
    std::unique_ptr<om::PropertyValueImpl> clone() const override {
        return std::make_unique<OtherValue>();
    }
    void assign(om::PropertyValueImpl const&) override {}
    bool equals(om::PropertyValueImpl const&) const override { return true; }
    bool less(om::PropertyValueImpl const&) const override { return false; }
    bool validate(om::PropertyDefinition const&, std::string&) const override { return true; }
};

TEST(PropertyValueTest, ForeignImplementationsAreRefused) {
    OtherValue const other;
    PropertyValue value(1);
    EXPECT_EQ(test::errorOf([&] { value.assign(other); }),
              "PropertyValue::assign: assigning different class??");
    EXPECT_EQ(test::errorOf([&] { value.equals(other); }),
              "PropertyValue::equals: different class??");
    EXPECT_EQ(test::errorOf([&] { value.less(other); }), "PropertyValue::less: different class??");
}

TEST(PropCastTest, ReachesThePropertyValueBehindAHandle) {
    om::PropertyValueBase handle(PropertyValue("name"));
    EXPECT_EQ(PropCast(handle).getString(), "name");
    PropCastRef(handle) = 12;
    EXPECT_EQ(PropCast(handle).getInt(), 12);
}

TEST(PropCastTest, ForeignOrEmptyHandlesFail) {
    om::PropertyValueBase const foreign(OtherValue{});
    EXPECT_THROW(PropCast(foreign), std::bad_cast);
    om::PropertyValueBase empty;
    EXPECT_THROW(PropCastRef(empty), om::OMException);
}

} // namespace
} // namespace kel
