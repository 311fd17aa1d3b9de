// The predicates over events, statements and variables.
#include "StoreFixture.h"

#include "metamodel/BuiltinDeclarations.h"
#include "metamodel/DeclarationConstructors.h"
#include "metamodel/ExpressionConstructors.h"
#include "metamodel/StatementConstructors.h"
#include "metamodel/TreePredicates.h"

#include <gtest/gtest.h>

namespace kel {
namespace {

class TreePredicatesTest : public test::StoreFixture {
protected:
    EventDeclaration const& event(std::string const& name) {
        return find<EventDeclaration>(constructEventDeclaration(model, edirIn, "void", name, {}));
    }

    // An instance of `eventName` on `portName`, resolved to the given declarations.
    EventInstance const& resolved(std::string const& portName, EventDeclaration const& declaration,
                                  PortDeclaration const* port) {
        auto const& instance = find<EventInstance>(
            constructEventInstance(model, portName, declaration.getName(), false));
        change(instance.getEvent(),
               [&](EventReference& copy) { copy.setDeclaration(declaration.getOid()); });
        if (port != nullptr) {
            change(instance.getPort(),
                   [&](PortReference& copy) { copy.setDeclaration(port->getOid()); });
        }
        return instance;
    }

    PortDeclaration const& port(std::string const& name) {
        return find<PortDeclaration>(
            constructPortDeclaration(model, "I", name, idirProvided, false, false));
    }

    om::Oid ret() { return constructReturnStatement(model, 0); }

    CompoundStatement const& compound(OidVec const& ids) {
        return find<CompoundStatement>(constructCompoundBehaviourStatement(model, ids));
    }

    om::Oid onEvent(std::string const& name) {
        return constructOnEventStatement(model, constructEventInstance(model, "", name, false),
                                         ret());
    }
};

TEST_F(TreePredicatesTest, BuiltinEventsByName) {
    for (std::string const name : {"illegal", "optional", "inevitable"}) {
        EXPECT_TRUE(IsBuiltin(event(name))) << name;
    }
    EXPECT_FALSE(IsBuiltin(event("Illegal")));
    EXPECT_FALSE(IsBuiltin(event("e")));
}

TEST_F(TreePredicatesTest, OnlyResolvedReferencesAreBuiltin) {
    auto const& unresolved = find<EventInstance>(constructOptionalInstance(model));
    EXPECT_FALSE(IsBuiltin(unresolved));
    auto const& optional = resolved("", event("optional"), nullptr);
    EXPECT_TRUE(IsBuiltin(optional.getEvent()));
    EXPECT_TRUE(IsBuiltin(optional));
    auto const& plain = resolved("", event("e"), nullptr);
    auto const& on = find<OnEventStatement>(
        constructOnEventStatement(model, {plain.getOid(), optional.getOid()}, ret()));
    EXPECT_TRUE(IsBuiltin(on));
    EXPECT_EQ(TryGetBuiltinEventInstance(on), &optional);
    EXPECT_EQ(TryGetEventInstance(on, "e"), &plain);
    EXPECT_EQ(TryGetEventInstance(on, "f"), nullptr);
}

TEST_F(TreePredicatesTest, IllegalMeansTheStoresIllegalEvent) {
    root();
    auto const& illegal = *GetIllegalEvent(model);
    auto const& other = event("illegal"); // same name, other declaration
    EXPECT_TRUE(IsIllegal(resolved("", illegal, nullptr)));
    EXPECT_FALSE(IsIllegal(resolved("", other, nullptr)));
    EXPECT_FALSE(IsIllegal(find<EventInstance>(constructIllegalInstance(model))));
    EXPECT_TRUE(IsDefaultInterface(*GetDefaultInterface(model)));
    EXPECT_FALSE(IsDefaultInterface(
        find<InterfaceDeclaration>(constructInterfaceDeclaration(model, "", 0))));
}

TEST_F(TreePredicatesTest, IllegalStatementsByName) {
    EXPECT_TRUE(IsIllegal(find<BehaviourStatement>(constructIllegalStatement(model))));
    EXPECT_FALSE(IsIllegal(find<BehaviourStatement>(ret())));
}

TEST_F(TreePredicatesTest, ImperativeStatements) {
    auto const variable = constructVariableDeclaration(model, "bool", "v", 0);
    std::vector<om::Oid> const imperative{
        constructIllegalStatement(model),
        constructAssignmentBehaviourStatement(model, "v", 0),
        constructVariableDeclarationStatement(model, variable),
        constructIfStatement(model, 0, ret(), 0),
        constructReplyStatement(model, "", 0),
        ret(),
        make<FunctionCallStatement>().getOid(),
    };
    for (auto const id : imperative) {
        EXPECT_TRUE(IsImperative(find<BehaviourStatement>(id))) << model.find(id)->getClassName();
    }
    std::vector<om::Oid> const other{onEvent("e"), constructBlockingStatement(model, ret()),
                                     constructGuardedStatement(model, 0, ret()),
                                     compound({}).getOid(),
                                     constructNameStatement(model, "f", true, {})};
    for (auto const id : other) {
        EXPECT_FALSE(IsImperative(find<BehaviourStatement>(id))) << model.find(id)->getClassName();
    }
}

TEST_F(TreePredicatesTest, DeclarativeCompounds) {
    EXPECT_FALSE(IsDeclarative(compound({})));
    EXPECT_FALSE(IsDeclarative(compound({ret(), ret()})));
    auto const guarded = constructGuardedStatement(model, 0, ret());
    EXPECT_TRUE(IsDeclarative(compound({constructBlockingStatement(model, guarded)})));
    EXPECT_TRUE(IsDeclarative(compound({ret(), onEvent("e")})));
    EXPECT_TRUE(IsDeclarative(compound({compound({onEvent("e")}).getOid()})));
    // Only the first nested compound decides.
    EXPECT_FALSE(
        IsDeclarative(compound({compound({ret()}).getOid(), compound({onEvent("e")}).getOid()})));
    // A blocking statement is opened one level only.
    auto const twice =
        constructBlockingStatement(model, constructBlockingStatement(model, onEvent("e")));
    EXPECT_FALSE(IsDeclarative(compound({twice})));
}

TEST_F(TreePredicatesTest, DataVariablesHaveAnExternType) {
    auto const& variable =
        find<VariableDeclaration>(constructVariableDeclaration(model, "D", "v", 0));
    EXPECT_FALSE(IsDataVariable(variable)); // unresolved
    EXPECT_TRUE(IsStateVariable(variable));
    auto const data = constructDataTypeDeclaration(model, "D", "$x$");
    change(variable.getType(), [&](TypeReference& copy) { copy.setDeclaration(data); });
    EXPECT_TRUE(IsDataVariable(variable));
    EXPECT_FALSE(IsStateVariable(variable));
}

TEST_F(TreePredicatesTest, EqualInstancesShareEventAndPort) {
    auto const& e = event("e");
    auto const& f = event("f");
    auto const& p = port("p");
    auto const& q = port("q");
    EXPECT_TRUE(IsEqual(resolved("p", e, &p), resolved("p", e, &p)));
    EXPECT_TRUE(IsEqual(resolved("", e, nullptr), resolved("", e, nullptr)));
    EXPECT_FALSE(IsEqual(resolved("p", e, &p), resolved("q", e, &q)));
    EXPECT_FALSE(IsEqual(resolved("p", e, &p), resolved("p", f, &p)));
    EXPECT_FALSE(IsEqual(resolved("p", e, &p), resolved("", e, nullptr)));
    EXPECT_FALSE(IsEqual(resolved("p", e, nullptr), resolved("p", e, nullptr))); // ports unresolved
}

TEST_F(TreePredicatesTest, ActionEventInstancesOfThreeStatementKinds) {
    auto const& illegal = find<ActionStatement>(constructIllegalStatement(model));
    EXPECT_EQ(tryGetActionEventInstance(illegal), &illegal.getExpression().getEvent());

    auto const action = make<ActionExpression>().getOid();
    auto const& assignment =
        find<BehaviourStatement>(constructAssignmentBehaviourStatement(model, "v", action));
    EXPECT_EQ(tryGetActionEventInstance(assignment), &find<ActionExpression>(action).getEvent());

    auto const initial = make<ActionExpression>().getOid();
    auto const variable = constructVariableDeclaration(model, "bool", "v", initial);
    auto const& declaration =
        find<BehaviourStatement>(constructVariableDeclarationStatement(model, variable));
    EXPECT_EQ(tryGetActionEventInstance(declaration), &find<ActionExpression>(initial).getEvent());

    auto const& plainAssignment = find<BehaviourStatement>(constructAssignmentBehaviourStatement(
        model, "v", constructIntConstantExpression(model, 1)));
    EXPECT_EQ(tryGetActionEventInstance(plainAssignment), nullptr);
    EXPECT_EQ(tryGetActionEventInstance(find<BehaviourStatement>(ret())), nullptr);
}

TEST_F(TreePredicatesTest, OnEventStatementsByNameRepeatPerInstance) {
    auto const twice = constructOnEventStatement(model,
                                                 {constructEventInstance(model, "p", "e", false),
                                                  constructEventInstance(model, "p", "e", false)},
                                                 ret());
    auto const other = onEvent("f");
    auto const once =
        constructOnEventStatement(model, constructEventInstance(model, "p", "e", false), ret());
    ConstOnEventStatementVec const statements{&find<OnEventStatement>(twice),
                                              &find<OnEventStatement>(other),
                                              &find<OnEventStatement>(once)};
    auto const found = FindOnEventStatementsByName(statements, "p.e");
    EXPECT_EQ(found, (ConstOnEventStatementVec{statements[0], statements[0], statements[2]}));
}

} // namespace
} // namespace kel
