// Arguments of function calls and of actions, and the types that they yield.
#include "TypeTreeFixture.h"

#include <gmock/gmock.h>

namespace language::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TypeCheckerCallsTest : public TypeTreeFixture {
protected:
    // bool f(Small a, bool b)
    Oid f = function("f", "bool", {parameter("a", smallType), parameter("b", boolType)});
};

TEST_F(TypeCheckerCallsTest, ErrorsInsideAnArgumentComeFirstAndAUnknownTypePasses) {
    bool ok = true;
    // 4: f(true + 1, nowhere)
    Oid sum = binary(kel::constructPlusExpression, boolean(4, 3), integer(4, 10), 4, 8);
    typeOf(call(f, {sum, unresolvedName(4, 13)}, 4, 1), ok);
    EXPECT_THAT(errors(), ElementsAre("t.kel:4:8: '+' requires an int first argument"));
}

TEST_F(TypeCheckerCallsTest, AVoidFunctionYieldsNoType) {
    bool ok = true;
    EXPECT_EQ(typeOf(call(function("g", "void", {}), {}, 1, 1), ok), "null");
    EXPECT_TRUE(ok);
}

class TypeCheckerActionsTest : public TypeTreeFixture {
protected:
    // in bool e(Small a, bool b)
    Oid e = event("e", "bool", {parameter("a", smallType), parameter("b", boolType)});
};

TEST_F(TypeCheckerActionsTest, AnArgumentWithoutTypeIsReportedUnlessItFailedAlready) {
    bool ok = true;
    Oid unbound = model.createRecursive(kel::VariableExpression::ClassName)->getOid();
    // 4: e(nowhere, <unbound variable>)
    typeOf(action(e, {unresolvedName(4, 3), at(unbound, 4, 12)}, 4, 1), ok);
    EXPECT_FALSE(ok);
    EXPECT_THAT(errors(), ElementsAre("t.kel:4:3: Expression not properly typed"));
}

TEST_F(TypeCheckerActionsTest, TheNumberOfArgumentsIsNoMatterOfTypes) {
    bool ok = true;
    typeOf(action(e, {integer(1, 3)}, 1, 1), ok);
    typeOf(action(e, {integer(2, 3), boolean(2, 6), integer(2, 12)}, 2, 1), ok);
    EXPECT_TRUE(ok);
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(TypeCheckerActionsTest, AnEventThatReturnsADataTypeGivesTheActionThatType) {
    bool ok = true;
    EXPECT_EQ(typeOf(action(event("m", "Msg", {}), {}, 1, 1), ok), "Msg");
    EXPECT_EQ(typeOf(action(event("v", "void", {}), {}, 1, 1), ok), "null");
    EXPECT_TRUE(ok);
}

} // namespace
} // namespace language::test
