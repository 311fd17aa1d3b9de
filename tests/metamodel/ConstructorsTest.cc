// The construction helpers: each builds one node with the children and
// member values that its table row asks for.
#include "StoreFixture.h"

#include "metamodel/DeclarationConstructors.h"
#include "metamodel/ExpressionConstructors.h"
#include "metamodel/Locations.h"
#include "metamodel/ResolvedConstructors.h"
#include "metamodel/StatementConstructors.h"
#include "om/OMException.h"

#include <gtest/gtest.h>

namespace kel {
namespace {

class ConstructorsTest : public test::StoreFixture {
protected:
    om::Oid parameter(std::string const& name) {
        return constructFormalParameter(model, pdirIn, "int", name);
    }
};

TEST_F(ConstructorsTest, IdsMustNameObjectsOfTheMembersClass) {
    auto const expression = constructIntConstantExpression(model, 1);
    auto const statement = constructReturnStatement(model, 0);
    EXPECT_THROW(constructEventDeclaration(model, edirIn, "void", "e", {expression}),
                 om::OMException);
    EXPECT_THROW(constructGuardedStatement(model, expression, statement), om::OMException);
    EXPECT_THROW(constructIfStatement(model, statement, statement, 0), om::OMException);
    EXPECT_THROW(constructEventInstance(model, "p", "e", true, {statement}), om::OMException);
    EXPECT_THROW(constructReturnStatement(model, 424242), om::OMException);
}

TEST_F(ConstructorsTest, FunctionsAndBehavioursGetAnEmptyCompound) {
    auto const& function = find<FunctionDeclaration>(
        constructFunctionDeclaration(model, "void", "f", {parameter("x")}));
    EXPECT_FALSE(function.hasReturnType());
    EXPECT_EQ(function.getParametersSize(), 1u);
    EXPECT_FALSE(function.getStatement().hasStatements());
    auto const& typed =
        find<FunctionDeclaration>(constructFunctionDeclaration(model, "bool", "g", {}));
    EXPECT_EQ(typed.getReturnType().getName(), "bool");
    auto const& behaviour = find<Behaviour>(constructBehaviour(model, "b"));
    EXPECT_EQ(behaviour.getName(), "b");
    EXPECT_FALSE(behaviour.getStatement().hasStatements());
}

TEST_F(ConstructorsTest, InternalsAreRequiredPorts) {
    auto const& internal = find<InternalDeclaration>(
        constructInternalDeclaration(model, "kel.async", "q", {parameter("x")}));
    EXPECT_EQ(internal.getDirection(), idirRequired);
    EXPECT_EQ(internal.getInterface().getName(), "kel.async");
    EXPECT_EQ(internal.getParametersSize(), 1u);
}

TEST_F(ConstructorsTest, BuiltinInstancesAndTheIllegalStatement) {
    struct Row {
        om::Oid (*construct)(om::ObjectModel&);
        std::string name;
    };
    for (auto const& row :
         {Row{constructIllegalInstance, "illegal"}, Row{constructOptionalInstance, "optional"},
          Row{constructInevitableInstance, "inevitable"}}) {
        auto const& instance = find<EventInstance>(row.construct(model));
        EXPECT_EQ(instance.getName(), row.name);
        EXPECT_EQ(instance.getEvent().getName(), row.name);
        EXPECT_FALSE(instance.hasPort());
    }
    auto const& statement = find<ActionStatement>(constructIllegalStatement(model));
    EXPECT_EQ(statement.getExpression().getEvent().getName(), "illegal");
}

TEST_F(ConstructorsTest, CompoundWrapsVariableDeclarationsInPlace) {
    auto const& file = addFile("f.kel");
    auto const first = constructReturnStatement(model, 0);
    auto const& variable = place(
        find<VariableDeclaration>(constructVariableDeclaration(model, "bool", "v", 0)), file, 7);
    auto const last = constructReturnStatement(model, 0);
    auto const& compound = find<CompoundStatement>(
        constructCompoundBehaviourStatement(model, {first, variable.getOid(), last}));
    auto const statements = compound.getStatements();
    ASSERT_EQ(statements.size(), 3u);
    EXPECT_EQ(statements[0]->getOid(), first);
    EXPECT_EQ(statements[2]->getOid(), last);
    auto const* wrapper = statements[1]->asVariableDeclarationStatement();
    ASSERT_NE(wrapper, nullptr);
    EXPECT_EQ(&wrapper->getVariable(), &variable);
    EXPECT_EQ(wrapper->getLine(), 7);
    EXPECT_EQ(&wrapper->getFile(), &file);
}

// Any text but "false" is true.
TEST_F(ConstructorsTest, BooleanConstantsAndAssignmentExpressions) {
    for (auto [text, value] : {std::pair{"true", boolTrue}, std::pair{"false", boolFalse},
                               std::pair{"maybe", boolTrue}}) {
        EXPECT_EQ(find<BooleanConstantExpression>(constructBoolConstantExpression(model, text))
                      .getValue(),
                  value)
            << text;
    }
    auto const& assignment =
        find<AssignmentExpression>(constructAssignmentExpression(model, "v", "w"));
    EXPECT_EQ(assignment.getVariable().getName(), "v");
    auto const* value = dynamic_cast<NameExpression const*>(&assignment.getValue());
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->getName(), "w");
    EXPECT_FALSE(value->getParentheses());
}

TEST_F(ConstructorsTest, LocationsAreCopiedWithTheFileOfTheSameName) {
    auto const& file = addFile("main.kel");
    auto const& source = place(named<Namespace>("n"), file, 3);
    auto const& target = make<ReturnStatement>();
    UpdateLocation(target.getOid(), source);
    EXPECT_EQ(target.getLine(), 3);
    EXPECT_EQ(target.getColumn(), 2);
    EXPECT_EQ(target.getBeginLine(), 3);
    EXPECT_EQ(target.getBeginColumn(), 1);
    EXPECT_EQ(target.getEndLine(), 4);
    EXPECT_EQ(target.getEndColumn(), 9);
    EXPECT_EQ(&target.getFile(), &file);

    Namespace copy(named<Namespace>("m"));
    CopyNameAndLocation(copy, source);
    EXPECT_EQ(copy.getName(), "n");
    EXPECT_EQ(copy.getFileOid(), file.getOid());
}

TEST_F(ConstructorsTest, ResolvedEventInstances) {
    auto const& file = addFile("f.kel");
    auto const& event = place(
        find<EventDeclaration>(constructEventDeclaration(model, edirIn, "void", "e", {})), file, 5);
    auto const& port = place(find<PortDeclaration>(constructPortDeclaration(
                                 model, "I", "p", idirProvided, false, false)),
                             file, 9);

    auto const& bare = find<EventInstance>(ConstructEventInstance(model, event));
    EXPECT_EQ(bare.getName(), "e");
    EXPECT_EQ(&bare.getEvent().getDeclaration(), &event);
    EXPECT_EQ(bare.getEvent().getLine(), 5);
    EXPECT_EQ(bare.getLine(), 5);
    EXPECT_FALSE(bare.hasPort());

    auto const& onPort = find<EventInstance>(ConstructEventInstance(model, event, port));
    EXPECT_EQ(onPort.getName(), "p.e");
    EXPECT_EQ(&onPort.getPort().getDeclaration(), &port);
    EXPECT_EQ(onPort.getPort().getName(), "p");
    EXPECT_EQ(onPort.getLine(), 9);

    DestructEventInstance(model, onPort);
    EXPECT_EQ(model.tryFind(onPort.getOid()), nullptr);
}

TEST_F(ConstructorsTest, EnumConstantsReferToTheirValue) {
    auto const& value = find<EnumValueDeclaration>(constructEnumValueDeclaration(model, "ok"));
    auto const& constant =
        find<EnumConstantExpression>(ConstructEnumConstantExpression(model, value));
    EXPECT_EQ(constant.getValue().getName(), "ok");
    EXPECT_EQ(&constant.getValue().getDeclaration(), &value);
}

TEST_F(ConstructorsTest, CopiedParametersAreNewObjects) {
    auto const& file = addFile("f.kel");
    auto const& original = place(
        find<ParameterDeclaration>(constructFormalParameter(model, pdirOut, "T", "x")), file, 2);
    place(original.getType(), file, 6);
    auto const ids = copyParameters(model, original.toConstVec());
    ASSERT_EQ(ids.size(), 1u);
    EXPECT_NE(ids[0], original.getOid());
    auto const& copy = find<ParameterDeclaration>(ids[0]);
    EXPECT_EQ(copy.getName(), "x");
    EXPECT_EQ(copy.getDirection(), pdirOut);
    EXPECT_EQ(copy.getLine(), 2);
    EXPECT_NE(copy.getTypeOid(), original.getTypeOid());
    EXPECT_EQ(copy.getType().getName(), "T");
    EXPECT_EQ(copy.getType().getLine(), 6);
}

} // namespace
} // namespace kel
