// The generated accessors, casts and typed vectors on small trees in a store.
#include "ErrorText.h"
#include "StoreFixture.h"

#include "metamodel/PropCast.h"
#include "om/OMException.h"

#include <gtest/gtest.h>

namespace kel {
namespace {

using GeneratedClassesTest = test::StoreFixture;

TEST_F(GeneratedClassesTest, PropertiesByName) {
    EventDeclaration event;
    event.setProperty(EventDeclaration::DirectionProperty,
                      om::PropertyValueBase(PropertyValue(edirOut)));
    event.setProperty(Named::NameProperty, om::PropertyValueBase(PropertyValue("e")));
    EXPECT_EQ(event.getDirection(), edirOut);
    EXPECT_EQ(PropCast(event.getProperty("Name")).getString(), "e");
    EXPECT_EQ(PropCast(event.getProperty("BeginLine")).getInt(), 0);
    EXPECT_THROW(event.setProperty("Direction", om::PropertyValueBase(PropertyValue(3))),
                 om::OMException);
    EXPECT_THROW(event.getProperty("Nothing"), om::OMException);
}

TEST_F(GeneratedClassesTest, CopiesCompareByProperties) {
    auto const& original = named<Namespace>("n");
    Namespace copy(original);
    EXPECT_EQ(copy, original);
    copy.setName("m");
    EXPECT_NE(copy, original);
    auto const clone = original.clone();
    EXPECT_EQ(clone->getClassName(), "kel::Namespace");
    EXPECT_EQ(*clone, original);
}

TEST_F(GeneratedClassesTest, BaseClassCopyUpdatesOnlyBaseProperties) {
    auto const& variable = named<VariableDeclaration>("v");
    Location location(variable);
    location.setLine(5);
    model.update(location);
    EXPECT_EQ(variable.getLine(), 5);
    EXPECT_EQ(variable.getName(), "v");
}

TEST_F(GeneratedClassesTest, RequiredAndOptionalSingleCompositions) {
    auto const& ifStatement = make<IfStatement>();
    EXPECT_NE(ifStatement.getThenStatementOid(), om::NULL_OID);
    EXPECT_EQ(ifStatement.getThenStatement().getClassName(), "kel::BehaviourStatement");
    EXPECT_FALSE(ifStatement.hasElseStatement());
    EXPECT_EQ(ifStatement.tryGetElseStatement(), nullptr);

    auto const& otherwise = make<ReturnStatement>();
    change(ifStatement, [&](IfStatement& copy) { copy.setElseStatement(otherwise); });
    EXPECT_TRUE(ifStatement.hasElseStatement());
    EXPECT_EQ(ifStatement.tryGetElseStatement(), &otherwise);
    EXPECT_EQ(ifStatement.getElseStatementOid(), otherwise.getOid());
    EXPECT_EQ(otherwise.getParentOid(), ifStatement.getOid());

    change(ifStatement, [](IfStatement& copy) { copy.clearElseStatement(); });
    EXPECT_FALSE(ifStatement.hasElseStatement());
}

TEST_F(GeneratedClassesTest, AssociationsCheckTheirTarget) {
    auto const& reference = make<TypeReference>();
    auto const& type = named<EnumTypeDeclaration>("E");
    auto const& expression = make<IntConstantExpression>();
    TypeReference copy(reference);
    EXPECT_THROW(copy.setDeclaration(expression.getOid()), om::OMException);
    copy.setDeclaration(type.getOid());
    model.update(copy);
    EXPECT_TRUE(reference.hasDeclaration());
    EXPECT_EQ(&reference.getDeclaration(), &type);
    EXPECT_EQ(reference.tryGetDeclaration(), &type);
}

TEST_F(GeneratedClassesTest, UnboundedCompositionsKeepTheirOrder) {
    auto const& compound = make<CompoundStatement>();
    auto const& first = make<ReturnStatement>();
    auto const& second = make<IfStatement>();
    auto const& third = make<ReplyStatement>();
    change(compound, [&](CompoundStatement& copy) {
        copy.addToStatements(std::vector<om::Oid>{first.getOid(), second.getOid()});
        copy.addToStatements(third.getOid());
        copy.addToStatements(first.getOid()); // already there: no second entry
    });
    EXPECT_EQ(compound.getStatementsSize(), 3u);
    EXPECT_TRUE(compound.hasStatements());
    EXPECT_TRUE(compound.isMemberOfStatements(second.getOid()));
    EXPECT_EQ(compound.getStatements(), (ConstBehaviourStatementVec{&first, &second, &third}));
    EXPECT_EQ(compound.getStatementsVec(), compound.getStatements());
    EXPECT_EQ(compound.getStatementsSet().size(), 3u);

    auto const& fourth = make<ReturnStatement>();
    change(compound, [&](CompoundStatement& copy) {
        // Held ids and repeated ones are left out, as one by one.
        copy.addToStatements(
            std::vector<om::Oid>{third.getOid(), fourth.getOid(), fourth.getOid()});
    });
    EXPECT_EQ(compound.getStatements(),
              (ConstBehaviourStatementVec{&first, &second, &third, &fourth}));
    change(compound, [&](CompoundStatement& copy) { copy.removeFromStatements(fourth.getOid()); });
    change(compound, [&](CompoundStatement& copy) { copy.removeFromStatements(first.getOid()); });
    EXPECT_EQ(compound.getStatements(), (ConstBehaviourStatementVec{&second, &third}));
}

TEST_F(GeneratedClassesTest, CastsReachDirectSubclassesOnly) {
    auto const& space = named<Namespace>("n");
    Location const& location = space;
    EXPECT_EQ(location.asNamed(), &space);
    EXPECT_EQ(location.asRoot(), nullptr);
    Named const& asNamed = space;
    EXPECT_EQ(asNamed.asNamespace(), &space);
    EXPECT_EQ(asNamed.asPortDeclaration(), nullptr);
}

TEST_F(GeneratedClassesTest, GetObjFindsDirectChildrenInKeyOrder) {
    auto const& outer = make<IfStatement>();
    auto const& thenIf = make<IfStatement>();
    auto const& elseIf = make<IfStatement>();
    auto const& condition = make<BooleanConstantExpression>();
    change(outer, [&](IfStatement& copy) {
        copy.setThenStatement(thenIf);
        copy.setElseStatement(elseIf);
        copy.setExpression(condition);
    });
    // ElseStatement sorts before ThenStatement; grandchildren do not count.
    EXPECT_EQ(outer.getObjIfStatement(), (ConstIfStatementVec{&elseIf, &thenIf}));
    EXPECT_EQ(outer.getObjExpression(), (ConstExpressionVec{&condition}));
    EXPECT_EQ(outer.getObjBooleanConstantExpression().size(), 1u);
    EXPECT_TRUE(outer.getObjReturnStatement().empty());
    EXPECT_EQ(outer.getObjBehaviourStatement().size(), 2u);
}

TEST_F(GeneratedClassesTest, ToPtrWantsAtMostOneElement) {
    auto const& a = make<IfStatement>();
    auto const& b = make<IfStatement>();
    EXPECT_EQ(ConstIfStatementVec{}.toPtr(), nullptr);
    EXPECT_EQ(a.toConstVec().toPtr(), &a);
    EXPECT_EQ(::test::errorOf([&] {
                  ConstIfStatementVec{&a, &b}.toPtr();
              }),
              "toPtr(): More than one object in ConstIfStatementVec.");
}

TEST_F(GeneratedClassesTest, VectorCastsFilterAndUpcast) {
    auto const& n1 = named<Namespace>("a");
    auto const& port = named<PortDeclaration>("p");
    auto const& n2 = named<Namespace>("b");
    ConstNamedVec const mixed{&n1, &port, &n2};
    EXPECT_EQ(mixed.asNamespace(), (ConstNamespaceVec{&n1, &n2}));
    EXPECT_EQ(mixed.asPortDeclaration(), (ConstPortDeclarationVec{&port}));
    EXPECT_EQ(ConstNamespaceVec({&n1}).asLocation(), (ConstLocationVec{&n1}));
}

TEST_F(GeneratedClassesTest, VectorGettersJoinOrSkip) {
    auto const& withElse = make<IfStatement>();
    auto const& withoutElse = make<IfStatement>();
    auto const& otherwise = make<ReturnStatement>();
    change(withElse, [&](IfStatement& copy) { copy.setElseStatement(otherwise); });
    ConstIfStatementVec const both{&withElse, &withoutElse};
    EXPECT_EQ(both.getThenStatement(),
              (ConstBehaviourStatementVec{&withElse.getThenStatement(),
                                          &withoutElse.getThenStatement()}));
    EXPECT_EQ(both.getElseStatement(), (ConstBehaviourStatementVec{&otherwise}));
    EXPECT_EQ(both.getElseStatementOid(), (std::vector<om::Oid>{otherwise.getOid()}));

    auto const& c1 = make<CompoundStatement>();
    auto const& c2 = make<CompoundStatement>();
    auto const& s1 = make<ReturnStatement>();
    auto const& s2 = make<ReturnStatement>();
    auto const& s3 = make<ReturnStatement>();
    change(c1, [&](CompoundStatement& copy) { copy.setStatements({s1.getOid(), s2.getOid()}); });
    change(c2, [&](CompoundStatement& copy) { copy.setStatements({s3.getOid()}); });
    ConstCompoundStatementVec const compounds{&c1, &c2};
    EXPECT_EQ(compounds.getStatements(), (ConstBehaviourStatementVec{&s1, &s2, &s3}));
    EXPECT_EQ(compounds.getStatementsOid(),
              (std::vector<om::Oid>{s1.getOid(), s2.getOid(), s3.getOid()}));
}

TEST_F(GeneratedClassesTest, VectorGettersOfTheDirectBase) {
    auto const& parameter = make<ParameterDeclaration>();
    auto const vec = parameter.toConstVec();
    EXPECT_EQ(vec.getType(), (ConstTypeReferenceVec{&parameter.getType()}));
    EXPECT_TRUE(vec.getInitialValue().empty());
    auto const& internal = make<InternalDeclaration>();
    EXPECT_EQ(internal.toConstVec().getInterface().size(), 1u);
}

} // namespace
} // namespace kel
