// What the generated classes rely on beyond the schema: members in the same
// slots in every class below their own, class kinds that make a cast one
// comparison, walks over lists that build no vector, and properties by name
// on plain fields.
#include "StoreFixture.h"

#include "metamodel/FactoryTable.h"
#include "metamodel/PropCast.h"
#include "metamodel/StatementConstructors.h"
#include "om/AsType.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <ranges>
#include <set>
#include <string>
#include <vector>

namespace kel {
namespace {

using GeneratedLayoutTest = test::StoreFixture;

// The names of `names` in slot order.
std::vector<std::string> InSlotOrder(om::MemberNames const& names) {
    std::vector<std::string> result;
    for (om::MemberNames::Slot slot = 0; slot < names.size(); ++slot) {
        result.push_back(names.name(slot));
    }
    return result;
}

bool StartsWith(std::vector<std::string> const& whole, std::vector<std::string> const& part) {
    return whole.size() >= part.size() && std::equal(part.begin(), part.end(), whole.begin());
}

TEST_F(GeneratedLayoutTest, EveryClassHoldsTheMembersOfItsBasesInTheirSlots) {
    int pairs = 0;
    for (auto const& derived : FactoryEntries()) {
        auto const& lower = factory.create(*derived.className)->getDefinition();
        for (auto const& base : FactoryEntries()) {
            if (!lower.isDerivedFrom(*base.className)) {
                continue;
            }
            auto const& upper = factory.create(*base.className)->getDefinition();
            EXPECT_TRUE(StartsWith(InSlotOrder(lower.getAssociationNames()),
                                   InSlotOrder(upper.getAssociationNames())))
                << *derived.className << " below " << *base.className;
            EXPECT_TRUE(StartsWith(InSlotOrder(lower.getCompositionNames()),
                                   InSlotOrder(upper.getCompositionNames())))
                << *derived.className << " below " << *base.className;
            ++pairs;
        }
    }
    EXPECT_GT(pairs, 74) << "each class with itself, and its bases";
}

// How many classes lie at or below `base`.
std::uint32_t ClassesFrom(std::string const& base, Factory& factory) {
    std::uint32_t count = 0;
    for (auto const& entry : FactoryEntries()) {
        count += factory.create(*entry.className)->getDefinition().isDerivedFrom(base) ? 1 : 0;
    }
    return count;
}

TEST_F(GeneratedLayoutTest, AClassAndThoseBelowItAreOneRangeOfKinds) {
    std::set<std::uint32_t> kinds;
    for (auto const& lowerEntry : FactoryEntries()) {
        auto const lower = factory.create(*lowerEntry.className);
        EXPECT_TRUE(kinds.insert(lower->classKind()).second) << *lowerEntry.className;
        EXPECT_NE(lower->classKind(), om::Object::FirstKind) << "kept for a plain object";
        for (auto const& upperEntry : FactoryEntries()) {
            auto const first = factory.create(*upperEntry.className)->classKind();
            auto const last = first + ClassesFrom(*upperEntry.className, factory) - 1;
            EXPECT_EQ(lower->classKind() >= first && lower->classKind() <= last,
                      lower->getDefinition().isDerivedFrom(*upperEntry.className))
                << *lowerEntry.className << " and " << *upperEntry.className;
        }
    }
    EXPECT_EQ(Expression::LastKind - Expression::FirstKind + 1,
              ClassesFrom(Expression::ClassName, factory));
    EXPECT_EQ(BehaviourStatement::LastKind - BehaviourStatement::FirstKind + 1,
              ClassesFrom(BehaviourStatement::ClassName, factory));
    EXPECT_EQ(Location::LastKind - Location::FirstKind + 1,
              ClassesFrom(Location::ClassName, factory));
}

TEST_F(GeneratedLayoutTest, CastsFollowTheKinds) {
    auto const& equality = make<IsEqualExpression>();
    om::Object const& object = equality;
    EXPECT_EQ(om::TryAs<Expression>(&object), &equality);
    EXPECT_EQ(om::TryAs<BehaviourStatement>(&object), nullptr);
    EXPECT_EQ(om::TryAs<Expression>(nullptr), nullptr);
    EXPECT_EQ(static_cast<Expression const&>(equality).asIsEqualExpression(), &equality);
    EXPECT_EQ(static_cast<Expression const&>(equality).asIsLessExpression(), nullptr);
    EXPECT_TRUE(om::IsA<om::Object>(om::Object()));
    EXPECT_FALSE(om::IsA<Location>(om::Object()));
}

TEST_F(GeneratedLayoutTest, ViewsWalkTheObjectsThatTheListGettersReturn) {
    std::vector<om::Oid> ids;
    for (int i = 0; i < 5; ++i) {
        ids.push_back(constructReturnStatement(model, om::NULL_OID));
    }
    auto const& block =
        find<CompoundStatement>(constructCompoundBehaviourStatement(model, ids));
    auto const view = block.getStatementsView();
    auto const vector = block.getStatements();
    EXPECT_EQ(std::vector<BehaviourStatement const*>(view.begin(), view.end()),
              std::vector<BehaviourStatement const*>(vector.begin(), vector.end()));
    auto const reversed = std::views::reverse(view);
    EXPECT_EQ(std::vector<BehaviourStatement const*>(reversed.begin(), reversed.end()),
              std::vector<BehaviourStatement const*>(vector.rbegin(), vector.rend()));
    ASSERT_EQ(view.size(), 5u);
    EXPECT_EQ(view[3], vector[3]);
    EXPECT_TRUE(find<CompoundStatement>(constructCompoundBehaviourStatement(model, {}))
                    .getStatementsView()
                    .empty());
}

TEST_F(GeneratedLayoutTest, APropertyByNameShowsTheFieldAtEachRequest) {
    Location location;
    location.setLine(4);
    auto const& line = location.getProperty(Location::LineProperty);
    EXPECT_EQ(PropCast(line).getInt(), 4);
    location.setLine(5);
    location.setColumn(9);
    EXPECT_EQ(PropCast(location.getProperty(Location::LineProperty)).getInt(), 5);
    EXPECT_EQ(PropCast(location.getProperty(Location::ColumnProperty)).getInt(), 9);
    location.setProperty(Location::LineProperty, om::PropertyValueBase(PropertyValue(6)));
    EXPECT_EQ(location.getLine(), 6);
    EXPECT_EQ(location.getColumn(), 9);
}

} // namespace
} // namespace kel
