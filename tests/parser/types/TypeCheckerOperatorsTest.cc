// Types and messages of operators, constants and plain expressions.
#include "TypeTreeFixture.h"

#include <gmock/gmock.h>

namespace language::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TypeCheckerOperatorsTest : public TypeTreeFixture {};

struct OperatorCase {
    Construct construct;
    std::string symbol;
    std::string resultType;
};

std::vector<OperatorCase> const integerOperators{
    {kel::constructPlusExpression, "+", "int"},
    {kel::constructMinusExpression, "-", "int"},
    {kel::constructIsLessExpression, "<", "bool"},
    {kel::constructIsLessEqualExpression, "<=", "bool"},
    {kel::constructIsGreaterExpression, ">", "bool"},
    {kel::constructIsGreaterEqualExpression, ">=", "bool"},
};

TEST_F(TypeCheckerOperatorsTest, IntegerOperatorsReportEachBooleanOperandAndKeepTheirType) {
    for (OperatorCase const& op : integerOperators) {
        checker.clearErrors();
        bool ok = true;
        // 4: true <op> true, the operator at column 7
        Oid expression = binary(op.construct, boolean(4, 2), boolean(4, 10), 4, 7);
        EXPECT_EQ(typeOf(expression, ok), op.resultType) << op.symbol;
        EXPECT_FALSE(ok);
        EXPECT_THAT(errors(),
                    ElementsAre("t.kel:4:7: '" + op.symbol + "' requires an int first argument",
                                "t.kel:4:7: '" + op.symbol + "' requires an int second argument"));
    }
}

TEST_F(TypeCheckerOperatorsTest, BooleanOperatorsReportEachIntegerOperand) {
    for (auto [construct, symbol] :
         {std::pair<Construct, std::string>{kel::constructAndExpression, "&&"},
          std::pair<Construct, std::string>{kel::constructOrExpression, "||"}}) {
        checker.clearErrors();
        bool ok = true;
        EXPECT_EQ(typeOf(binary(construct, integer(3, 1), boolean(3, 6), 3, 3), ok), "bool");
        EXPECT_EQ(typeOf(binary(construct, boolean(5, 1), integer(5, 9), 5, 6), ok), "bool");
        EXPECT_FALSE(ok);
        EXPECT_THAT(errors(), ElementsAre("t.kel:3:3: '" + std::string(symbol) +
                                              "' requires a boolean first argument",
                                          "t.kel:5:6: '" + std::string(symbol) +
                                              "' requires a boolean second argument"));
    }
}

TEST_F(TypeCheckerOperatorsTest, OperandErrorsComeBeforeTheOperatorsOwnAndDoNotSpread) {
    bool ok = true;
    // 6: (true + true) < 1 && 2
    Oid sum = binary(kel::constructPlusExpression, boolean(6, 2), boolean(6, 9), 6, 7);
    Oid less = binary(kel::constructIsLessExpression, sum, integer(6, 17), 6, 15);
    Oid both = binary(kel::constructAndExpression, less, integer(6, 22), 6, 19);
    EXPECT_EQ(typeOf(both, ok), "bool");
    EXPECT_THAT(errors(), ElementsAre("t.kel:6:7: '+' requires an int first argument",
                                      "t.kel:6:7: '+' requires an int second argument",
                                      "t.kel:6:19: '&&' requires a boolean second argument"));
}

TEST_F(TypeCheckerOperatorsTest, AnOperandOfUnknownTypeIsNotCheckedNorFailed) {
    bool ok = true;
    // 2: nowhere + true
    EXPECT_EQ(
        typeOf(binary(kel::constructPlusExpression, unresolvedName(2, 1), boolean(2, 11), 2, 9),
               ok),
        "int");
    EXPECT_THAT(errors(), ElementsAre("t.kel:2:9: '+' requires an int second argument"));
    ok = true;
    EXPECT_EQ(typeOf(negation(unresolvedName(3, 2), 3, 1), ok), "bool");
    EXPECT_TRUE(ok);
    EXPECT_EQ(errors().size(), 1u);
}

struct EqualityCase {
    std::string name;
    int left; // 0 data, 1 int constant, 2 enum constant, 3 subrange variable, 4 unknown name
    int right;
    std::vector<std::string> messages;
};

TEST_F(TypeCheckerOperatorsTest, EqualityRejectsDataTypesAndDifferentTypes) {
    std::vector<EqualityCase> const cases{
        {"data and int",
         0,
         1,
         {"data type argument not allowed as first argument in '=='",
          "'==' requires two arguments of equal type"}},
        {"int and data",
         1,
         0,
         {"data type argument not allowed as second argument in '=='",
          "'==' requires two arguments of equal type"}},
        {"data and data",
         0,
         0,
         {"data type argument not allowed as first argument in '=='",
          "data type argument not allowed as second argument in '=='"}},
        {"enum and int", 2, 1, {"'==' requires two arguments of equal type"}},
        {"subrange and int", 3, 1, {}},
        {"enum and enum", 2, 2, {}},
        {"unknown and data", 4, 0, {}},
        {"data and unknown", 0, 4, {}},
    };
    Oid small = variable("s", smallType);
    auto operand = [&](int kind) {
        switch (kind) {
        case 0:
            return data(1, 1);
        case 1:
            return integer(1, 1);
        case 2:
            return color(1, 1);
        case 3:
            return use(small, 1, 1);
        default:
            return unresolvedName(1, 1);
        }
    };
    for (auto [construct, symbol] :
         {std::pair<Construct, std::string>{kel::constructIsEqualExpression, "=="},
          std::pair<Construct, std::string>{kel::constructIsNotEqualExpression, "!="}}) {
        for (EqualityCase const& c : cases) {
            checker.clearErrors();
            bool ok = true;
            EXPECT_EQ(typeOf(binary(construct, operand(c.left), operand(c.right), 8, 4), ok),
                      "bool");
            std::vector<std::string> expected;
            for (std::string message : c.messages) {
                message.replace(message.find("=="), 2, symbol);
                expected.push_back("t.kel:8:4: " + message);
            }
            EXPECT_EQ(errors(), expected) << c.name << " " << symbol;
            EXPECT_EQ(ok, expected.empty()) << c.name << " " << symbol;
        }
    }
}

TEST_F(TypeCheckerOperatorsTest, ConstantsHaveTheirBuiltinTypes) {
    bool ok = true;
    EXPECT_EQ(typeOf(integer(1, 1), ok), "int");
    EXPECT_EQ(typeOf(boolean(1, 1), ok), "bool");
    EXPECT_EQ(typeOf(data(1, 1), ok), "$data$");
    EXPECT_EQ(typeOf(color(1, 1), ok), "Color");
    Oid enumValue = model.createRecursive(kel::EnumVariableValueExpression::ClassName)->getOid();
    EXPECT_EQ(typeOf(enumValue, ok), "bool");
    EXPECT_EQ(typeOf(unresolvedName(1, 1), ok), "null");
    EXPECT_TRUE(ok);
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(TypeCheckerOperatorsTest, UnboundReferencesFailWithoutAMessage) {
    for (std::string const& className :
         {kel::VariableExpression::ClassName, kel::EnumConstantExpression::ClassName,
          kel::FunctionCallExpression::ClassName, kel::ActionExpression::ClassName,
          kel::Expression::ClassName}) {
        bool ok = true;
        EXPECT_EQ(typeOf(model.createRecursive(className)->getOid(), ok), "null") << className;
        EXPECT_FALSE(ok) << className;
    }
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(TypeCheckerOperatorsTest, AnAssignmentIsNoValue) {
    bool ok = true;
    Oid assignment = at(kel::constructAssignmentExpression(model, "x", "y"), 9, 3);
    EXPECT_EQ(typeOf(binary(kel::constructIsEqualExpression, assignment, integer(9, 10), 9, 8), ok),
              "bool");
    EXPECT_FALSE(ok);
    EXPECT_THAT(errors(), ElementsAre("t.kel:9:3: '<-' is not allowed here"));
}

} // namespace
} // namespace language::test
