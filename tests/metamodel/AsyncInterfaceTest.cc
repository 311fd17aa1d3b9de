// The interface behind "kel.async" internal ports.
#include "StoreFixture.h"

#include "metamodel/AsyncInterface.h"
#include "metamodel/BuiltinDeclarations.h"
#include "metamodel/DeclarationConstructors.h"

#include <gtest/gtest.h>

#include <regex>

namespace kel {
namespace {

class AsyncInterfaceTest : public test::StoreFixture {
protected:
    void SetUp() override {
        auto const& file = addFile("main.kel");
        // The parser gives every node a place in the source; copies take it over.
        auto const parameter = constructFormalParameter(model, pdirIn, "int", "x");
        place(place(find<ParameterDeclaration>(parameter), file, 10).getType(), file, 10);
        auto const internalId = constructInternalDeclaration(model, "kel.async", "a", {parameter});
        internal = &place(find<InternalDeclaration>(internalId), file, 11);
    }

    InterfaceDeclaration const& makeAsync() {
        return getAsyncInterfaceDeclaration(model, *internal, internal->getParameters());
    }

    // The on-event statements of the guarded block, as "event -> statement class".
    static std::vector<std::string> Block(GuardedStatement const& guarded) {
        std::vector<std::string> lines;
        auto const& body = dynamic_cast<CompoundStatement const&>(guarded.getStatement());
        for (auto const* on : body.getStatements().asOnEventStatement()) {
            lines.push_back(on->getEvents().toPtr()->getName() + " -> " +
                            on->getStatement().getClassName());
        }
        return lines;
    }

    InternalDeclaration const* internal = nullptr;
};

TEST_F(AsyncInterfaceTest, EveryCallMakesANewlyNamedInterfaceInNamespaceKel) {
    // The suffix lives as long as the process: "__i" at its first call, one
    // "i" more at each further call.
    auto const& first = makeAsync();
    auto const& second = makeAsync();
    EXPECT_TRUE(std::regex_match(first.getName(), std::regex("async__i+")));
    EXPECT_EQ(second.getName(), first.getName() + "i");
    EXPECT_EQ(GetKelNamespace(model)->getModels(), (ConstModelDeclarationVec{&first, &second}));

    EXPECT_EQ(makeAsync().getName(), second.getName() + "i");
}

TEST_F(AsyncInterfaceTest, EventsReqAckClrWithCopiedParameters) {
    auto const& interface = makeAsync();
    auto const events = interface.getEvents();
    ASSERT_EQ(events.size(), 3u);
    std::vector<std::pair<std::string, EventDirection>> const expected{
        {"req", edirIn}, {"ack", edirOut}, {"clr", edirIn}};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(events[i]->getName(), expected[i].first);
        EXPECT_EQ(events[i]->getDirection(), expected[i].second);
        EXPECT_FALSE(events[i]->hasReturnType());
    }
    auto const original = internal->getParameters().toPtr();
    auto const* req = events[0]->getParameters().toPtr();
    auto const* ack = events[1]->getParameters().toPtr();
    ASSERT_NE(req, nullptr);
    ASSERT_NE(ack, nullptr);
    EXPECT_NE(req, original);
    EXPECT_NE(req, ack);
    EXPECT_EQ(req->getName(), "x");
    EXPECT_EQ(ack->getType().getName(), "int");
    EXPECT_FALSE(events[2]->hasParameters());

    auto const& again = makeAsync();
    EXPECT_NE(again.getEvents()[0]->getParameters().toPtr(), req);
}

TEST_F(AsyncInterfaceTest, BehaviourHoldsIdleAndTwoGuardedBlocks) {
    auto const& behaviour = makeAsync().getBehaviour();
    EXPECT_EQ(behaviour.getName(), "");
    auto const* idle = behaviour.getVariables().toPtr();
    ASSERT_NE(idle, nullptr);
    EXPECT_EQ(idle->getName(), "idle");
    EXPECT_EQ(idle->getType().getName(), "bool");
    EXPECT_EQ(dynamic_cast<BooleanConstantExpression const&>(idle->getInitialValue()).getValue(),
              boolTrue);

    auto const blocks = behaviour.getStatement().getStatements().asGuardedStatement();
    ASSERT_EQ(blocks.size(), 2u);
    ASSERT_EQ(behaviour.getStatement().getStatementsSize(), 2u);

    auto const& idleGuard = dynamic_cast<ExpressionGuard const&>(blocks[0]->getGuard());
    auto const& idleName = dynamic_cast<NameExpression const&>(idleGuard.getExpression());
    EXPECT_EQ(idleName.getName(), "idle");
    EXPECT_FALSE(idleName.getParentheses());
    EXPECT_EQ(Block(*blocks[0]), (std::vector<std::string>{"req -> kel::AssignmentStatement",
                                                           "clr -> kel::ActionStatement"}));

    auto const& busyGuard = dynamic_cast<ExpressionGuard const&>(blocks[1]->getGuard());
    auto const& negation = dynamic_cast<BooleanNotExpression const&>(busyGuard.getExpression());
    EXPECT_EQ(dynamic_cast<NameExpression const&>(negation.getExpr()).getName(), "idle");
    EXPECT_EQ(
        Block(*blocks[1]),
        (std::vector<std::string>{"clr -> kel::ActionStatement", "clr -> kel::AssignmentStatement",
                                  "inevitable -> kel::CompoundStatement"}));
}

TEST_F(AsyncInterfaceTest, TheInevitableStepAcknowledgesAndTurnsIdle) {
    auto const& behaviour = makeAsync().getBehaviour();
    auto const busy = behaviour.getStatement().getStatements().asGuardedStatement()[1];
    auto const ons = dynamic_cast<CompoundStatement const&>(busy->getStatement())
                         .getStatements()
                         .asOnEventStatement();
    auto const& inevitable = *ons[2]->getEvents().toPtr();
    EXPECT_FALSE(inevitable.hasPort());
    EXPECT_EQ(inevitable.getEvent().getName(), "inevitable");

    auto const body =
        dynamic_cast<CompoundStatement const&>(ons[2]->getStatement()).getStatements();
    ASSERT_EQ(body.size(), 2u);
    auto const& ack = dynamic_cast<NameStatement const&>(*body[0]);
    EXPECT_EQ(ack.getExpression().getName(), "ack");
    EXPECT_FALSE(ack.getExpression().getParentheses());
    EXPECT_FALSE(ack.getExpression().hasArguments());
    auto const& assignment = dynamic_cast<AssignmentStatement const&>(*body[1]);
    EXPECT_EQ(assignment.getVariable().getName(), "idle");
    EXPECT_EQ(dynamic_cast<BooleanConstantExpression const&>(assignment.getValue()).getValue(),
              boolTrue);

    auto const& setBusy = dynamic_cast<AssignmentStatement const&>(
        dynamic_cast<CompoundStatement const&>(
            behaviour.getStatement().getStatements().asGuardedStatement()[0]->getStatement())
            .getStatements()
            .asOnEventStatement()[0]
            ->getStatement());
    EXPECT_EQ(dynamic_cast<BooleanConstantExpression const&>(setBusy.getValue()).getValue(),
              boolFalse);
}

TEST_F(AsyncInterfaceTest, EveryObjectStandsAtTheInternalDeclaration) {
    auto const& interface = makeAsync();
    auto const tree = model.getTreeVec(interface);
    EXPECT_GT(tree.size(), 40u);
    for (auto const* object : tree) {
        auto const& location = dynamic_cast<Location const&>(*object);
        EXPECT_EQ(location.getLine(), 11) << object->getClassName();
        EXPECT_EQ(location.getEndColumn(), 9) << object->getClassName();
        EXPECT_EQ(location.getFileOid(), internal->getFileOid()) << object->getClassName();
    }
}

} // namespace
} // namespace kel
