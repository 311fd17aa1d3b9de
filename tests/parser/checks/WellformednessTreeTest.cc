// What the well-formedness pass changes in the tree, and what its triggers and
// labels are.
#include "ParsedSource.h"
#include "om/AsType.h"
#include "om/OMException.h"
#include "parser/checks/WellformednessChecker.h"
#include "parser/grammar/ParserBase.h"

#include <gmock/gmock.h>

namespace language::test {
namespace {

std::string const source = R"kel(interface I {
  in void e();
  in bool q();
  out void o();
  behaviour {
    bool b = true;
    on e: {}
    on q: reply(true);
    on optional: o;
    on inevitable: { b = false; }
  }
}
component C {
  provides I p;
  requires I r;
  behaviour {
    requires kel.async a;
    bool b = true;
    void f() { if (b) { b = false; } }
    on p.e(): f();
  }
}
)kel";

std::vector<std::string> names(kel::ConstEventInstanceVec const& triggers) {
    std::vector<std::string> result;
    for (kel::EventInstance const* trigger : triggers) {
        result.push_back(trigger->getName());
    }
    return result;
}

struct CheckedTree : ResolvedSource {
    CheckedTree() : ResolvedSource(source) {
        WellformednessChecker checker(store.model, nullptr);
        passed = checker.checkWellformedness();
    }
    bool passed = false;
};

TEST(WellformednessTreeTest, VoidFunctionGetsAReturnAtTheEndOfItsBody) {
    CheckedTree tree;
    ASSERT_TRUE(tree.passed);
    kel::CompoundStatement const& body = tree.function("C", "f").getStatement();
    kel::ConstBehaviourStatementVec statements = body.getStatementsVec();
    ASSERT_EQ(statements.size(), 2U);
    kel::ReturnStatement const* added = statements[1]->asReturnStatement();
    ASSERT_NE(added, nullptr);
    EXPECT_FALSE(added->hasExpression());
    // The body's closing brace stands on line 19, column 36.
    EXPECT_EQ(body.getEndLine(), 19);
    EXPECT_EQ(added->getBeginLine(), 19);
    EXPECT_EQ(added->getBeginColumn(), body.getEndColumn());
    EXPECT_EQ(added->getLine(), 19);
    EXPECT_EQ(added->getColumn(), body.getEndColumn());
    EXPECT_EQ(added->getFile().getName(), "t.kel");
}

TEST(WellformednessTreeTest, ModelingEventsKnowWhetherTheyAreSilent) {
    CheckedTree tree;
    ASSERT_TRUE(tree.passed);
    std::vector<kel::BooleanValue> silent;
    for (kel::BehaviourStatement const* statement :
         tree.behaviour("I").getStatement().getStatementsVec()) {
        silent.push_back(statement->asOnEventStatement()->getSilent());
    }
    EXPECT_THAT(silent, testing::ElementsAre(kel::boolUnknown, kel::boolUnknown, kel::boolFalse,
                                             kel::boolTrue));
}

TEST(WellformednessTreeTest, TriggersComeInThroughPortsAndInternals) {
    ResolvedSource tree(source);
    ParserBase base(tree.store.model);
    kel::ConstEventInstanceVec triggers = base.GetAllTriggers(tree.model("C"));
    // In events on the provided port, with the modeling events that the interface's
    // behaviour made, out events on the required one, and the timer's acknowledgement.
    EXPECT_THAT(names(triggers),
                testing::ElementsAre("p.e", "p.q", "p.optional", "p.inevitable", "r.o", "a.ack"));
    om::Oid const first = triggers.front()->getOid();
    base.ClearAllTriggers(triggers);
    EXPECT_TRUE(triggers.empty());
    EXPECT_EQ(tree.store.model.tryFind(first), nullptr);
}

TEST(WellformednessTreeTest, LabelsOfDeclarations) {
    ResolvedSource tree(source);
    kel::ComponentDeclaration const& component = *tree.model("C").asComponentDeclaration();
    EXPECT_EQ(WellformednessChecker::showClassName(component), "Component");
    EXPECT_EQ(WellformednessChecker::showClassName(*component.getPortsVec()[0]), "Port");
    EXPECT_EQ(WellformednessChecker::showClassName(*tree.behaviour("C").getInternalsVec()[0]),
              "Port");
    EXPECT_EQ(WellformednessChecker::showClassName(tree.function("C", "f")), "Function");
    EXPECT_EQ(WellformednessChecker::showClassName(tree.behaviour("C")), "Behaviour");
    EXPECT_EQ(WellformednessChecker::showClassName(*tree.behaviour("C").getVariablesVec()[0]),
              "Variable");
    kel::TypeDeclaration const* boolType = kel::GetBoolTypeDeclaration(tree.store.model);
    EXPECT_THROW(WellformednessChecker::showClassName(*boolType), om::OMException);
}

TEST(WellformednessTreeTest, LabelsOfStatements) {
    ResolvedSource tree(source);
    kel::ConstBehaviourStatementVec statements =
        tree.behaviour("I").getStatement().getStatementsVec();
    EXPECT_EQ(WellformednessChecker::showClassName(*statements[0]), "On event statement");
    EXPECT_EQ(WellformednessChecker::showClassName(tree.behaviour("I").getStatement()),
              "Compound statement");
    EXPECT_EQ(
        WellformednessChecker::showClassName(statements[1]->asOnEventStatement()->getStatement()),
        "Reply statement");
}

TEST(WellformednessTreeTest, UnresolvedFormsAreNoPartOfACheckedTree) {
    TestStore store;
    WellformednessChecker checker(store.model, nullptr);
    auto const& statement =
        om::AsType<kel::NameStatement>(*store.model.createRecursive(kel::NameStatement::ClassName));
    auto const& expression = statement.getExpression();
    EXPECT_THROW(WellformednessChecker::showClassName(statement), om::OMException);
    EXPECT_THROW(checker.checkValuedExpr(expression), om::OMException);
    EXPECT_THROW(checker.checkConstExpr(expression), om::OMException);
}

} // namespace
} // namespace language::test
