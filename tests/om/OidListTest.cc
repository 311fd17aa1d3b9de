#include "TestClasses.h"
#include "om/AssociationValue.h"
#include "om/CompositionValue.h"
#include "om/OMException.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace om {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

using test::valueOf;

template <class Value, class Operation>
void expectFailsUnchanged(Value& value, Operation operation, std::string const& message) {
    Value const before = value;
    bool const wasVector = value.isVector();
    try {
        operation(value);
        ADD_FAILURE() << "expected: " << message;
    } catch (OMException const& error) {
        EXPECT_EQ(std::string(error.what()), message);
    }
    EXPECT_EQ(value, before);
    EXPECT_EQ(value.isVector(), wasVector);
}

template <class Value> class OidListTest : public ::testing::Test {};

using ValueTypes = ::testing::Types<AssociationValue, CompositionValue>;
TYPED_TEST_SUITE(OidListTest, ValueTypes);

TYPED_TEST(OidListTest, StaysInPlaceUntilTheSecondId) {
    static_assert(sizeof(TypeParam) == 2 * sizeof(Oid));
    TypeParam value;
    EXPECT_EQ(value.size(), 0u);
    EXPECT_EQ(value.get(), NULL_OID);
    value.push_back(5);
    EXPECT_FALSE(value.isVector());
    EXPECT_EQ(value.get(), 5);
    value.push_back(6);
    EXPECT_TRUE(value.isVector());
    EXPECT_THAT(value.asOidVec(), ElementsAre(5, 6));
}

TYPED_TEST(OidListTest, ClearKeepsTheFormClearCompletelyDoesNot) {
    auto value = valueOf<TypeParam>({1, 2});
    value.clear();
    EXPECT_TRUE(value.isVector());
    EXPECT_EQ(value.size(), 0u);
    EXPECT_EQ(value.get(), NULL_OID);
    value.push_back(9);
    EXPECT_TRUE(value.isVector());
    EXPECT_EQ(value.get(), 9);
    value.clearCompletely();
    EXPECT_FALSE(value.isVector());
    EXPECT_EQ(value.size(), 0u);
}

TYPED_TEST(OidListTest, FormIsInvisibleToComparison) {
    auto single = valueOf<TypeParam>({4});
    auto vector = valueOf<TypeParam>({4, 5});
    vector.eraseAt(1);
    ASSERT_TRUE(vector.isVector());
    EXPECT_EQ(single, vector);
    TypeParam emptyVector;
    emptyVector.convertToVector();
    EXPECT_EQ(emptyVector, TypeParam());
    EXPECT_FALSE(emptyVector < TypeParam());
}

TYPED_TEST(OidListTest, OrdersBySizeFirst) {
    EXPECT_LT(valueOf<TypeParam>({9}), valueOf<TypeParam>({1, 2}));
    EXPECT_LT(valueOf<TypeParam>({1, 2}), valueOf<TypeParam>({1, 3}));
    EXPECT_LT(valueOf<TypeParam>({-5}), valueOf<TypeParam>({3}));
    EXPECT_FALSE(valueOf<TypeParam>({1, 2}) < valueOf<TypeParam>({1, 2}));
    EXPECT_NE(valueOf<TypeParam>({1, 2}), valueOf<TypeParam>({2, 1}));
}

TYPED_TEST(OidListTest, CopiesAreDeepAndTakeTheSourceForm) {
    auto vector = valueOf<TypeParam>({1, 2, 3});
    TypeParam copy = vector;
    copy.setAt(0, 7);
    EXPECT_THAT(vector.asOidVec(), ElementsAre(1, 2, 3));
    auto const single = valueOf<TypeParam>({8});
    copy = single;
    EXPECT_FALSE(copy.isVector()) << "the vector is freed";
    EXPECT_EQ(copy.get(), 8);
    copy = vector;
    EXPECT_TRUE(copy.isVector());
    EXPECT_EQ(copy, vector);
    TypeParam moved = std::move(copy);
    EXPECT_EQ(moved, vector);
}

TYPED_TEST(OidListTest, InsertAtPositions) {
    auto value = valueOf<TypeParam>({2});
    value.insertAt(0, 1);
    value.insertAt(2, 4);
    value.insertAt(2, 3);
    EXPECT_THAT(value.asOidVec(), ElementsAre(1, 2, 3, 4));
    TypeParam empty;
    empty.insertAt(0, 6);
    EXPECT_FALSE(empty.isVector());
    EXPECT_EQ(empty.get(), 6);
}

TYPED_TEST(OidListTest, EraseKeepsOrderOfTheRest) {
    auto value = valueOf<TypeParam>({1, 2, 3});
    EXPECT_EQ(value.erase(2), 1u);
    EXPECT_EQ(value.erase(42), 0u);
    EXPECT_THAT(value.asOidVec(), ElementsAre(1, 3));
    auto single = valueOf<TypeParam>({5});
    EXPECT_EQ(single.erase(NULL_OID), 0u);
    EXPECT_EQ(single.erase(5), 1u);
    EXPECT_EQ(single.size(), 0u);
    auto one = valueOf<TypeParam>({1, 2});
    one.eraseAt(0);
    one.eraseAt(0);
    EXPECT_TRUE(one.isVector());
    EXPECT_EQ(one.size(), 0u);
}

TYPED_TEST(OidListTest, SwapSetAndLookups) {
    auto value = valueOf<TypeParam>({1, 2, 3});
    value.swap(0, 2);
    value.swap(1, 1);
    EXPECT_THAT(value.asOidVec(), ElementsAre(3, 2, 1));
    EXPECT_EQ(value.indexOf(1), 2u);
    EXPECT_EQ(value.at(0), 3);
    EXPECT_TRUE(value.contains(2));
    EXPECT_EQ(value.count(4), 0u);
    EXPECT_THAT(std::vector<Oid>(value.begin(), value.end()), ElementsAre(3, 2, 1));
    value.set(4);
    EXPECT_FALSE(value.isVector());
    EXPECT_EQ(value.get(), 4);
    value.set(NULL_OID);
    EXPECT_EQ(value.size(), 0u);
    EXPECT_THAT(value.asOidVec(), IsEmpty());
}

TYPED_TEST(OidListTest, InsertReportsWhetherItAppended) {
    auto value = valueOf<TypeParam>({1});
    EXPECT_TRUE(value.insert(2));
    EXPECT_FALSE(value.insert(1));
    EXPECT_THAT(value.asOidVec(), ElementsAre(1, 2));
}

TYPED_TEST(OidListTest, ConvertToVectorKeepsTheId) {
    auto value = valueOf<TypeParam>({3});
    value.convertToVector();
    EXPECT_TRUE(value.isVector());
    EXPECT_THAT(value.asOidVec(), ElementsAre(3));
}

TYPED_TEST(OidListTest, FailuresLeaveTheValueUnchanged) {
    std::string const name = TypeParam::typeName;
    for (auto ids : {std::vector<Oid>{}, std::vector<Oid>{1}, std::vector<Oid>{1, 2}}) {
        auto value = valueOf<TypeParam>(ids);
        Oid const size = static_cast<Oid>(ids.size());
        auto const index = static_cast<typename TypeParam::Index>(size);
        expectFailsUnchanged(
            value, [&](auto& v) { v.at(index); }, "Index out of range");
        expectFailsUnchanged(
            value, [&](auto& v) { v.eraseAt(index); }, "Index out of range");
        expectFailsUnchanged(
            value, [&](auto& v) { v.setAt(index, 9); }, "Index out of range");
        expectFailsUnchanged(
            value, [&](auto& v) { v.insertAt(index + 1, NULL_OID); }, "Index out of range");
        expectFailsUnchanged(
            value, [&](auto& v) { v.insertAt(index, NULL_OID); }, "id may not be NULL_OID");
        expectFailsUnchanged(
            value, [&](auto& v) { v.push_back(NULL_OID); }, "id may not be NULL_OID");
        expectFailsUnchanged(
            value, [&](auto& v) { v.insert(NULL_OID); }, "id may not be NULL_OID");
        expectFailsUnchanged(
            value, [&](auto& v) { v.swap(index, 0); }, "index1 out of range");
        expectFailsUnchanged(
            value, [&](auto& v) { v.indexOf(77); }, name + "::indexOf(): OID not found");
        if (size > 0) {
            expectFailsUnchanged(
                value, [&](auto& v) { v.setAt(0, NULL_OID); }, "id cannot be NULL_OID");
            expectFailsUnchanged(
                value, [&](auto& v) { v.swap(0, index); }, "index2 out of range");
        }
    }
    auto vector = valueOf<TypeParam>({1, 2});
    expectFailsUnchanged(
        vector, [](auto& v) { v.get(); }, "Count must be <= 1");
    expectFailsUnchanged(
        vector, [](auto& v) { v.convertToVector(); }, name + " is already a vector");
}

TYPED_TEST(OidListTest, AssignIsClearThenPushBackOfEachId) {
    struct Case {
        std::vector<Oid> before;
        std::vector<Oid> ids;
    };
    for (Case const& c : std::vector<Case>{{{}, {}},
                                           {{}, {3}},
                                           {{}, {3, 4}},
                                           {{1}, {}},
                                           {{1}, {3, 4}},
                                           {{1, 2}, {}},
                                           {{1, 2}, {3}}}) {
        auto assigned = valueOf<TypeParam>(c.before);
        auto pushed = assigned;
        assigned.assign(c.ids);
        pushed.clear();
        for (Oid const id : c.ids) {
            pushed.push_back(id);
        }
        EXPECT_THAT(assigned.asOidVec(), ElementsAreArray(c.ids));
        EXPECT_EQ(assigned.isVector(), pushed.isVector());
    }
    auto value = valueOf<TypeParam>({1, 2});
    expectFailsUnchanged(
        value,
        [](auto& v) {
            v.assign({3, NULL_OID});
        },
        "id may not be NULL_OID");
}

TEST(AssociationValueTest, MayHoldAnIdMoreThanOnce) {
    auto value = valueOf<AssociationValue>({4, 1, 4});
    value.push_back(4);
    value.insertAt(0, 1);
    value.setAt(1, 1);
    EXPECT_THAT(value.asOidVec(), ElementsAre(1, 1, 1, 4, 4));
    auto assigned = value;
    assigned.assign({7, 7});
    EXPECT_THAT(assigned.asOidVec(), ElementsAre(7, 7));
    EXPECT_EQ(value.count(4), 2u);
    EXPECT_EQ(value.indexOf(4), 3u);
    EXPECT_EQ(value.erase(1), 3u);
    EXPECT_THAT(value.asOidVec(), ElementsAre(4, 4));
}

TEST(CompositionValueTest, RefusesAnIdTwiceInTheAddingOperations) {
    auto value = valueOf<CompositionValue>({1, 2});
    expectFailsUnchanged(
        value, [](auto& v) { v.push_back(2); }, "id not unique");
    expectFailsUnchanged(
        value, [](auto& v) { v.insertAt(0, 1); }, "id not unique");
    expectFailsUnchanged(
        value, [](auto& v) { v.setAt(0, 2); }, "id not unique");
    expectFailsUnchanged(
        value,
        [](auto& v) {
            v.assign({5, 6, 7, 8, 9, 5});
        },
        "id not unique");
    auto single = valueOf<CompositionValue>({1});
    expectFailsUnchanged(
        single, [](auto& v) { v.push_back(1); }, "id not unique");
    value.setAt(1, 2);
    value.swap(0, 1);
    EXPECT_THAT(value.asOidVec(), ElementsAre(2, 1));
    EXPECT_FALSE(value.empty());
    EXPECT_TRUE(CompositionValue().empty());
}

} // namespace
} // namespace om
