#include "LoadedSource.h"

#include "ErrorText.h"

#include "interpreter/StateVector.h"

#include "metamodel/Behaviour.h"
#include "metamodel/EnumTypeDeclaration.h"
#include "metamodel/FunctionDeclaration.h"
#include "metamodel/InterfaceDeclaration.h"
#include "metamodel/Kel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace interpreter::test {
namespace {

using testing::ElementsAre;
using testing::Pair;
using ::test::errorOf;

LoadedSource const& Source() {
    static LoadedSource const source(R"(
extern Msg $char*$;
interface E {
    enum Color { red, green };
    enum Other { red, blue };
    subint Small { 0..3 };
    in void e();
    in void g();
    in bool v();
    out void o();
    behaviour {
        Color c = Color.green;
        Small s = 1;
        bool t = true;
        on e: {
            Small three = s + 2;
            Small zero = three - 3;
            bool f = !t;
            bool less = s < three;
            bool lessEqual = s <= 0;
            bool greater = three > s;
            bool greaterEqual = zero >= s;
            bool both = t && f;
            bool either = f || t;
            bool isGreen = c.green;
            bool isRed = c.red;
            bool same = c == Color.green;
            bool differs = s != three;
            Color copy = c;
        }
        on g: {
            Small big = s + 3;
        }
        on v: reply(true);
        on optional: o;
    }
}
component C {
    provides E p;
    requires E r;
    requires external E x;
    behaviour {
        bool b = false;
        Msg m = $0$;
        void f(E.Small n) { E.Small k = n; }
        [b] on p.e(): {}
        [otherwise] on p.g(): {}
        [!b] {
            [b] on r.o(): {}
            [otherwise] on x.o(): {}
        }
    }
}
component D {
    provides E p;
    requires E r;
    behaviour {
        bool h() { return true; }
        on p.e(): {
            bool called = h();
            bool acted = r.v();
            Msg m = $0$;
        }
    }
}
)");
    return source;
}

kel::CompoundStatement const& BodyOf(kel::ModelDeclaration const& model, std::size_t index) {
    auto const& on = model.getBehaviour().getStatement().getStatements()[index]->asOnEventStatement();
    return *on->getStatement().asCompoundStatement();
}

// Runs the declarations of a block in a frame of their own, as the stepping
// would.
void Declare(StateVector& vector, kel::CompoundStatement const& block) {
    vector.OpenContext(block);
    for (auto const* statement : block.getStatements()) {
        auto const& variable = statement->asVariableDeclarationStatement()->getVariable();
        vector.DeclareStateVariable(variable, *vector.EvaluateExpression(variable.getInitialValue()));
    }
}

kel::EnumValueDeclaration const& EnumValue(std::string const& type, std::string const& name) {
    for (auto const* declaration : Source().model("E").asInterfaceDeclaration()->getTypes()) {
        if (declaration->getName() == type) {
            for (auto const* value : declaration->asEnumTypeDeclaration()->getValues()) {
                if (value->getName() == name) {
                    return *value;
                }
            }
        }
    }
    throw std::logic_error("no enum value " + name);
}

TEST(StateVectorTest, EvaluatesEveryKindOfExpression) {
    StateVector vector(Source().run("E"));
    Declare(vector, BodyOf(Source().model("E"), 0));
    // The inner frame first.
    EXPECT_THAT(vector.ToVarValPairVec(),
                ElementsAre(Pair("three", "3"), Pair("zero", "0"), Pair("f", "false"),
                            Pair("less", "true"), Pair("lessEqual", "false"),
                            Pair("greater", "true"), Pair("greaterEqual", "false"),
                            Pair("both", "false"), Pair("either", "true"),
                            Pair("isGreen", "true"), Pair("isRed", "false"),
                            Pair("same", "true"), Pair("differs", "true"),
                            Pair("copy", "Color.green"), Pair("c", "Color.green"),
                            Pair("s", "1"), Pair("t", "true")));
}

TEST(StateVectorTest, AValueOutOfRangeIsStoredAndReported) {
    StateVector vector(Source().run("E"));
    auto const& block = BodyOf(Source().model("E"), 1);
    auto const& big = block.getStatements()[0]->asVariableDeclarationStatement()->getVariable();
    vector.OpenContext(block);
    auto const value = vector.EvaluateExpression(big.getInitialValue());
    EXPECT_EQ(errorOf<std::out_of_range>([&] { vector.DeclareStateVariable(big, *value); }),
              "Range error for variable big");
    EXPECT_EQ(vector.getValue(big.getOid())->str(), "4");
    EXPECT_FALSE(vector.IsValid(big));
    // The upper bound itself is in range.
    vector.AssignStateVariable(big, IntStateVariableValue(3));
    EXPECT_TRUE(vector.IsValid(big));
}

TEST(StateVectorTest, TheNearestFrameWinsAndLeavesWithItsContext) {
    auto const& behaviour = Source().model("C").getBehaviour();
    auto const& function = *behaviour.getFunctions()[0];
    auto const& parameter = *function.getParameters()[0];
    auto const& b = *behaviour.getVariables()[0];
    StateVector vector(Source().run("C"));

    vector.OpenContext(function.getStatement());
    vector.DeclareStateVariable(parameter, IntStateVariableValue(2));
    EXPECT_EQ(vector.getValue(parameter.getOid())->str(), "2");
    // A second frame holding the same id hides the first, for reads and writes.
    vector.OpenContext(function.getStatement());
    vector.DeclareStateVariable(parameter);
    EXPECT_FALSE(vector.hasValue(parameter.getOid()));
    vector.setValue(parameter.getOid(), std::make_unique<IntStateVariableValue>(1));
    EXPECT_EQ(vector.getValue(parameter.getOid())->str(), "1");
    vector.CloseContext();
    EXPECT_EQ(vector.getValue(parameter.getOid())->str(), "2");
    EXPECT_EQ(vector.getValue(b.getOid())->str(), "false");
    vector.CloseContext();
    EXPECT_EQ(vector.getValue(parameter.getOid()), nullptr);
    // A variable that no frame holds is not stored.
    vector.setValue(parameter.getOid(), std::make_unique<IntStateVariableValue>(1));
    EXPECT_EQ(vector.getValue(parameter.getOid()), nullptr);
}

std::vector<std::string> GuardTexts(kel::ConstGuardedStatementVec const& statements) {
    std::vector<std::string> texts;
    for (auto const* statement : statements) {
        auto const* on = statement->getStatement().asOnEventStatement();
        texts.push_back(on == nullptr ? "{}" : on->getEvents()[0]->getName());
    }
    return texts;
}

TEST(StateVectorTest, OtherwiseGuardsCountOnlyWhenNoGuardHolds) {
    auto const& top = Source().model("C").getBehaviour().getStatement().getStatements();
    auto const& nested = top[2]->asGuardedStatement()->getStatement().asCompoundStatement()
                             ->getStatements();
    auto const& b = *Source().model("C").getBehaviour().getVariables()[0];
    StateVector vector(Source().run("C"));
    EXPECT_THAT(GuardTexts(vector.passableGuardedStatements(top)), ElementsAre("{}"));
    vector.AssignStateVariable(b, BoolStateVariableValue(true));
    EXPECT_THAT(GuardTexts(vector.passableGuardedStatements(top)), ElementsAre("p.e"));
    // However many there are, in order.
    kel::ConstBehaviourStatementVec const otherwise{top[1], nested[1]};
    EXPECT_THAT(GuardTexts(vector.passableGuardedStatements(otherwise)), ElementsAre("p.g", "x.o"));
    kel::ConstBehaviourStatementVec const falseOnly{top[2]};
    EXPECT_TRUE(vector.passableGuardedStatements(falseOnly).empty());
}

TEST(StateVectorTest, ArmedGuardsAreTheGuardsThatHoldDownToTheEvents) {
    auto const& top = Source().model("C").getBehaviour().getStatement().getStatements();
    auto const& outer = *top[2]->asGuardedStatement();
    auto const& nested = outer.getStatement().asCompoundStatement()->getStatements();
    StateVector vector(Source().run("C"));
    EXPECT_THAT(vector.ArmedGuards(),
                ElementsAre(&outer.getGuard(), &nested[1]->asGuardedStatement()->getGuard()));
}

TEST(StateVectorTest, TheQueueShowsWhereTheRunHasOne) {
    // A data variable has no value of its own.
    StateVector component(Source().run("C"));
    component.queue = {"r.e", "p.g"};
    EXPECT_THAT(component.ToVarValPairVec(),
                ElementsAre(Pair("receive.queue", "r.e, p.g"), Pair("b", "false")));
    StateVector external(Source().runOfPort("C", "x"));
    external.queue = {"e"};
    EXPECT_THAT(external.ToVarValPairVec().front(), Pair("external.delay", "e"));
    EXPECT_EQ(external.getQueueFront(), "e");

    StateVector required(Source().runOfPort("C", "r"));
    required.queue = {"e"};
    EXPECT_EQ(required.ToVarValPairVec().front().first, "c");
    EXPECT_EQ(required.getQueueFront(), "");
}

TEST(StateVectorTest, ALaterVectorRepeatsAnEarlierOneWithAtMostOneMoreCopyOfItsFrames) {
    auto const& function = *Source().model("C").getBehaviour().getFunctions()[0];
    auto const& parameter = *function.getParameters()[0];
    StateVector base(Source().run("C"));
    StateVector queued(base);
    queued.queue = {"r.e"};
    EXPECT_TRUE(base <= queued);

    StateVector oneCall(base);
    oneCall.OpenContext(function.getStatement());
    oneCall.DeclareStateVariable(parameter, IntStateVariableValue(1));
    StateVector twoCalls(oneCall);
    twoCalls.OpenContext(function.getStatement());
    twoCalls.DeclareStateVariable(parameter, IntStateVariableValue(1));
    StateVector threeCalls(twoCalls);
    threeCalls.OpenContext(function.getStatement());
    threeCalls.DeclareStateVariable(parameter, IntStateVariableValue(1));

    EXPECT_TRUE(oneCall <= twoCalls);
    EXPECT_FALSE(twoCalls <= oneCall);
    // More than twice the frames: no repetition of one round.
    EXPECT_FALSE(oneCall <= threeCalls);
    EXPECT_TRUE(twoCalls <= threeCalls);
    // The extra frame must look like the innermost one.
    StateVector otherArgument(oneCall);
    otherArgument.OpenContext(function.getStatement());
    otherArgument.DeclareStateVariable(parameter, IntStateVariableValue(2));
    EXPECT_FALSE(oneCall <= otherArgument);
}

TEST(StateVectorTest, AFrameEqualsOneThatHoldsMoreWhereTheyShareVariables) {
    auto const& function = *Source().model("C").getBehaviour().getFunctions()[0];
    auto const& parameter = *function.getParameters()[0];
    auto const& local = function.getStatement().getStatements()[0]
                            ->asVariableDeclarationStatement()->getVariable();
    StateVector vector(Source().run("C"));
    vector.OpenContext(function.getStatement());
    vector.DeclareStateVariable(parameter, IntStateVariableValue(1));
    StateVector::VariableFrame const less = vector.frame(0);
    vector.DeclareStateVariable(local);
    StateVector::VariableFrame const more = vector.frame(0);
    EXPECT_TRUE(vector.IsEqualFrame(less, more));
    EXPECT_FALSE(vector.IsEqualFrame(more, less));
}

TEST(StateVariableValueTest, ComparisonsRefuseWhatTheyCannotDecide) {
    BoolStateVariableValue const unknown(kel::boolUnknown);
    EXPECT_EQ(errorOf<std::runtime_error>([&] { return unknown == BoolStateVariableValue(true); }),
              "Invalid use of BooleanValue boolUnknown");
    EXPECT_TRUE(unknown == static_cast<StateVariableValue const&>(unknown));
    EnumStateVariableValue const red(EnumValue("Color", "red"));
    EnumStateVariableValue const otherRed(EnumValue("Other", "red"));
    EXPECT_EQ(errorOf<std::runtime_error>([&] { return red == otherRed; }),
              "Incompatible enum types in assignment");
    EXPECT_TRUE(red != EnumStateVariableValue(EnumValue("Color", "green")));
}

TEST(StateVariableValueTest, TextsOfValues) {
    EnumStateVariableValue const green(EnumValue("Color", "green"));
    EXPECT_EQ(green.str(), "Color.green");
    EXPECT_EQ(green.netName(), "Color_green");
    EXPECT_EQ(BoolStateVariableValue(kel::boolUnknown).str(), "unknown");
    EXPECT_EQ(BoolStateVariableValue().netName(), "false");
    EXPECT_EQ(IntStateVariableValue(-7).netName(), "-7");
    // Arithmetic wraps; the range rule catches it later.
    auto const max = IntStateVariableValue(2147483647) + IntStateVariableValue(1);
    EXPECT_EQ(max.value, -2147483647 - 1);
}

TEST(StateVectorTest, ExpressionsThatMustBeExecutedAreNotEvaluated) {
    StateVector vector(Source().run("D"));
    auto const& statements = BodyOf(Source().model("D"), 0).getStatements();
    std::vector<std::string> messages;
    for (auto const* statement : statements) {
        auto const& variable = statement->asVariableDeclarationStatement()->getVariable();
        try {
            vector.EvaluateExpression(variable.getInitialValue());
        } catch (std::runtime_error const& error) {
            messages.push_back(error.what());
        }
    }
    EXPECT_THAT(messages,
                ElementsAre("FunctionCallExpression must be executed. No in-place evaluation.",
                            "ActionExpression must be executed. No in-place evaluation.",
                            "DataExpression can not be evaluated."));
}

} // namespace
} // namespace interpreter::test
