// Rules of statements on trees that no source can give: unbound references,
// names the resolver left, statements of an unknown class; and the order of
// assignments, declarations, guards, ifs and triggers.
#include "ErrorText.h"
#include "TypeTreeFixture.h"

#include <gmock/gmock.h>

namespace language::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TypeCheckerStatementsTest : public TypeTreeFixture {
protected:
    Oid assign(Oid variable, Oid value, int line, int column) {
        Oid id = kel::constructAssignmentBehaviourStatement(model, nameOf(variable), value);
        bind(find<kel::AssignmentStatement>(id).getVariable(), variable);
        return at(id, line, column);
    }
    Oid guarded(Oid expression, int line, int column) {
        Oid guard = at(kel::constructExpressionGuard(model, expression), line, column);
        return kel::constructGuardedStatement(model, guard,
                                              kel::constructCompoundBehaviourStatement(model, {}));
    }
    Oid ifStatement(Oid condition, Oid then) {
        return kel::constructIfStatement(model, condition, then, om::NULL_OID);
    }
    Oid unboundVariable(int line, int column) {
        return at(model.createRecursive(kel::VariableExpression::ClassName)->getOid(), line,
                  column);
    }

    Oid b = variable("b", boolType);
    Oid s = variable("s", smallType);
};

TEST_F(TypeCheckerStatementsTest, AssignmentOfAnotherTypeOrOfNoTypeIsReportedAtTheStatement) {
    // 2: b = 1;  3: b = nowhere;  4: s = 7;
    Oid compound = kel::constructCompoundBehaviourStatement(
        model, {assign(b, integer(2, 5), 2, 1), assign(b, unresolvedName(3, 5), 3, 1),
                assign(s, integer(4, 5), 4, 1)});
    EXPECT_FALSE(checkStatement(compound));
    EXPECT_THAT(errors(), ElementsAre("t.kel:2:1: Variable and expression types do not match: 'b'",
                                      "t.kel:3:1: Expression not properly typed: 'b'"));
}

TEST_F(TypeCheckerStatementsTest, AssignmentToAnUnboundVariableIsLeftToTheResolver) {
    Oid id = kel::constructAssignmentBehaviourStatement(model, "x", integer(1, 5));
    EXPECT_TRUE(checkStatement(id));
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(TypeCheckerStatementsTest, LocalDeclarationReportsTheMismatchAtTheVariable) {
    // 2: bool c = 1;  3: bool d = nowhere;  4: Unknown e = nowhere;
    Oid c = at(variable("c", boolType, integer(2, 10)), 2, 6);
    Oid d = at(variable("d", boolType, unresolvedName(3, 10)), 3, 6);
    Oid e =
        at(kel::constructVariableDeclaration(model, "Unknown", "e", unresolvedName(4, 13)), 4, 9);
    OidVec statements;
    for (auto [declaration, line] : {std::pair{c, 2}, std::pair{d, 3}, std::pair{e, 4}}) {
        statements.push_back(
            at(kel::constructVariableDeclarationStatement(model, declaration), line, 1));
    }
    EXPECT_FALSE(checkStatement(kel::constructCompoundBehaviourStatement(model, statements)));
    EXPECT_THAT(errors(),
                ElementsAre("t.kel:2:6: type mismatch: 'bool' expected, found: 'int'",
                            "t.kel:3:1: cannot determine type of right hand side, expected: 'bool'",
                            "t.kel:4:1: cannot determine type of right hand side"));
}

TEST_F(TypeCheckerStatementsTest, AGuardMustBeBooleanUnlessItFailedAlready) {
    // 2: [1] {}  3: [nowhere] {}  4: [not 1] {}  5: [<unbound>] {}  6: [otherwise] {}
    Oid otherwise =
        kel::constructGuardedStatement(model, kel::constructOtherwiseGuard(model),
                                       kel::constructCompoundBehaviourStatement(model, {}));
    Oid compound = kel::constructCompoundBehaviourStatement(
        model, {guarded(integer(2, 2), 2, 2), guarded(unresolvedName(3, 2), 3, 2),
                guarded(negation(integer(4, 6), 4, 2), 4, 2), guarded(unboundVariable(5, 2), 5, 2),
                otherwise});
    EXPECT_FALSE(checkStatement(compound));
    EXPECT_THAT(errors(), ElementsAre("t.kel:2:2: Boolean guard expected",
                                      "t.kel:3:2: Boolean guard expected",
                                      "t.kel:4:2: 'not' requires a boolean argument"));
}

TEST_F(TypeCheckerStatementsTest, AnIfConditionWithoutBooleanTypeIsAlwaysReported) {
    // 2: if (<unbound>) b = 1;  the branch is checked too
    Oid statement = ifStatement(unboundVariable(2, 5), assign(b, integer(2, 19), 2, 15));
    EXPECT_FALSE(checkStatement(statement));
    EXPECT_THAT(errors(),
                ElementsAre("t.kel:2:5: Boolean guard expected",
                            "t.kel:2:15: Variable and expression types do not match: 'b'"));
}

TEST_F(TypeCheckerStatementsTest, TheElseBranchAndNestedStatementsAreChecked) {
    Oid inner = kel::constructBlockingStatement(model, assign(s, boolean(3, 5), 3, 1));
    Oid statement = kel::constructIfStatement(
        model, boolean(1, 5), kel::constructCompoundBehaviourStatement(model, {}), inner);
    EXPECT_FALSE(checkStatement(statement));
    EXPECT_THAT(errors(),
                ElementsAre("t.kel:3:1: Variable and expression types do not match: 's'"));
}

TEST_F(TypeCheckerStatementsTest, TriggerAssignmentsAreCheckedBeforeTheBody) {
    // 2: on e(y <- nowhere, x <- true): s = true;
    auto trigger = [&](Oid variable, Oid value, int column) {
        Oid id =
            at(model.createRecursive(kel::AssignmentExpression::ClassName)->getOid(), 2, column);
        edit<kel::AssignmentExpression>(id, [&](kel::AssignmentExpression& copy) {
            copy.setValue(find<kel::Expression>(value));
        });
        bind(find<kel::AssignmentExpression>(id).getVariable(), variable);
        return id;
    };
    Oid x = variable("x", smallType);
    Oid y = variable("y", boolType);
    Oid instance = kel::constructEventInstance(
        model, "", "e", true,
        {trigger(y, unresolvedName(2, 11), 6), trigger(x, boolean(2, 25), 20)});
    Oid on = kel::constructOnEventStatement(model, instance, assign(s, boolean(2, 36), 2, 32));
    EXPECT_FALSE(checkStatement(on));
    EXPECT_THAT(errors(),
                ElementsAre("t.kel:2:6: Expression not properly typed: 'y'",
                            "t.kel:2:20: Variable and expression types do not match: 'x'",
                            "t.kel:2:32: Variable and expression types do not match: 's'"));
}

TEST_F(TypeCheckerStatementsTest, CallsAndActionsAsStatementsAreChecked) {
    Oid f = function("f", "void", {parameter("a", boolType)});
    Oid callStatement = model.createRecursive(kel::FunctionCallStatement::ClassName)->getOid();
    edit<kel::FunctionCallStatement>(callStatement, [&](kel::FunctionCallStatement& copy) {
        copy.setExpression(find<kel::FunctionCallExpression>(call(f, {integer(2, 3)}, 2, 1)));
    });
    Oid e = event("e", "void", {parameter("a", boolType)});
    Oid actionStatement = model.createRecursive(kel::ActionStatement::ClassName)->getOid();
    edit<kel::ActionStatement>(actionStatement, [&](kel::ActionStatement& copy) {
        copy.setExpression(find<kel::ActionExpression>(action(e, {integer(3, 3)}, 3, 1)));
    });
    Oid name = kel::constructNameStatement(model, "nowhere", false, {});
    EXPECT_FALSE(checkStatement(
        kel::constructCompoundBehaviourStatement(model, {callStatement, actionStatement, name})));
    EXPECT_THAT(errors(),
                ElementsAre("t.kel:2:3: argument does not match Parameter Type",
                            "t.kel:3:3: Parameter value does not match with expected type"));
}

TEST_F(TypeCheckerStatementsTest, AStatementOfAnUnknownClassIsABrokenTree) {
    Oid plain = model.createRecursive(kel::BehaviourStatement::ClassName)->getOid();
    EXPECT_EQ(::test::errorOf([&] {
                  checkStatement(kel::constructCompoundBehaviourStatement(model, {plain}));
              }),
              "unexpected statement type in checkExpressionTypes: kel::BehaviourStatement");
}

} // namespace
} // namespace language::test
