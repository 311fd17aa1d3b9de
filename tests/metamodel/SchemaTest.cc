// The generated definitions against the schema table: class names, bases,
// and the kind, target, bounds and default of each member.
#include "metamodel/Factory.h"
#include "metamodel/FactoryTable.h"
#include "metamodel/Kel.h"
#include "metamodel/PropCast.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kel {
namespace {

std::vector<std::string> const AllClassNames{
    "kel::File",
    "kel::Location",
    "kel::Named",
    "kel::Root",
    "kel::Namespace",
    "kel::NativeStatement",
    "kel::ModelDeclaration",
    "kel::ComponentDeclaration",
    "kel::ComponentReference",
    "kel::InterfaceDeclaration",
    "kel::InterfaceReference",
    "kel::PortDeclaration",
    "kel::PortReference",
    "kel::InternalDeclaration",
    "kel::EventDeclaration",
    "kel::EventReference",
    "kel::TypeDeclaration",
    "kel::TypeReference",
    "kel::EnumTypeDeclaration",
    "kel::EnumValueDeclaration",
    "kel::EnumValueReference",
    "kel::IntTypeDeclaration",
    "kel::DataTypeDeclaration",
    "kel::Behaviour",
    "kel::FunctionDeclaration",
    "kel::FunctionReference",
    "kel::VariableDeclaration",
    "kel::VariableReference",
    "kel::ParameterDeclaration",
    "kel::BehaviourStatement",
    "kel::VariableDeclarationStatement",
    "kel::GuardedStatement",
    "kel::CompoundStatement",
    "kel::OnEventStatement",
    "kel::BlockingStatement",
    "kel::EventInstance",
    "kel::AssignmentStatement",
    "kel::ActionStatement",
    "kel::IfStatement",
    "kel::FunctionCallStatement",
    "kel::ReplyStatement",
    "kel::ReturnStatement",
    "kel::NameStatement",
    "kel::Guard",
    "kel::ExpressionGuard",
    "kel::OtherwiseGuard",
    "kel::Expression",
    "kel::AssignmentExpression",
    "kel::EnumVariableValueExpression",
    "kel::VariableExpression",
    "kel::BooleanConstantExpression",
    "kel::BooleanNotExpression",
    "kel::BooleanAndExpression",
    "kel::BooleanOrExpression",
    "kel::IsEqualExpression",
    "kel::IsNotEqualExpression",
    "kel::IsLessExpression",
    "kel::IsLessEqualExpression",
    "kel::IsGreaterExpression",
    "kel::IsGreaterEqualExpression",
    "kel::PlusExpression",
    "kel::MinusExpression",
    "kel::EnumConstantExpression",
    "kel::IntConstantExpression",
    "kel::ActionExpression",
    "kel::FunctionCallExpression",
    "kel::DataExpression",
    "kel::NameExpression",
    "kel::System",
    "kel::ConstructorStatement",
    "kel::ComponentInstanceDeclaration",
    "kel::ComponentInstanceReference",
    "kel::BindingStatement",
    "kel::InterfaceInstance",
};

om::ObjectDefinition const& DefinitionOf(std::string const& className) {
    static Factory factory;
    return factory.create(className)->getDefinition();
}

TEST(SchemaTest, FactoryTableHoldsEveryClassInDefinitionOrder) {
    auto const entries = FactoryEntries();
    ASSERT_EQ(entries.size(), 74u);
    ASSERT_EQ(AllClassNames.size(), 74u);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        EXPECT_EQ(*entries[i].className, AllClassNames[i]);
    }
}

TEST(SchemaTest, EveryDefinitionNamesItsOwnClass) {
    for (auto const& name : AllClassNames) {
        auto const& definition = DefinitionOf(name);
        EXPECT_EQ(definition.getClassName(), name);
        EXPECT_EQ(definition.getClassNameForSerialization(), name);
        EXPECT_TRUE(definition.isDerivedFrom(name));
        EXPECT_TRUE(definition.isDerivedFrom("om::Object"));
    }
}

struct Ancestry {
    std::string className;
    std::vector<std::string> ancestors;
    std::vector<std::string> unrelated;
};

TEST(SchemaTest, BasesFollowTheClassTable) {
    std::vector<Ancestry> const rows{
        {"kel::File", {}, {"kel::Location"}},
        {"kel::Root", {"kel::Location"}, {"kel::Named"}},
        {"kel::InternalDeclaration",
         {"kel::PortDeclaration", "kel::Named", "kel::Location"},
         {"kel::PortReference"}},
        {"kel::ComponentDeclaration",
         {"kel::ModelDeclaration", "kel::Named", "kel::Location"},
         {"kel::InterfaceDeclaration"}},
        {"kel::ParameterDeclaration",
         {"kel::VariableDeclaration", "kel::Named"},
         {"kel::Expression"}},
        {"kel::IfStatement", {"kel::BehaviourStatement", "kel::Location"}, {"kel::Named"}},
        {"kel::EventInstance", {"kel::Named", "kel::Location"}, {"kel::BehaviourStatement"}},
        {"kel::OtherwiseGuard", {"kel::Guard", "kel::Location"}, {"kel::ExpressionGuard"}},
        {"kel::NameExpression", {"kel::Expression", "kel::Location"}, {"kel::NameStatement"}},
        {"kel::BindingStatement", {"kel::ConstructorStatement", "kel::Location"}, {"kel::System"}},
        {"kel::EnumValueDeclaration", {"kel::Named"}, {"kel::TypeDeclaration"}},
    };
    for (auto const& row : rows) {
        auto const& definition = DefinitionOf(row.className);
        for (auto const& ancestor : row.ancestors) {
            EXPECT_TRUE(definition.isDerivedFrom(ancestor)) << row.className << " " << ancestor;
        }
        for (auto const& other : row.unrelated) {
            EXPECT_FALSE(definition.isDerivedFrom(other)) << row.className << " " << other;
        }
    }
}

struct RelationRow {
    std::string className;
    std::string member;
    std::string target;
    std::uint64_t min;
    std::uint64_t max;
};

TEST(SchemaTest, CompositionsHaveTheirTargetsAndBounds) {
    std::vector<RelationRow> const rows{
        {"kel::Root", "Namespaces", "kel::Namespace", 0, 0},
        {"kel::Root", "Files", "kel::File", 0, 0},
        {"kel::Namespace", "Models", "kel::ModelDeclaration", 0, 0},
        {"kel::ComponentDeclaration", "Behaviour", "kel::Behaviour", 0, 1},
        {"kel::ComponentDeclaration", "System", "kel::System", 0, 1},
        {"kel::InternalDeclaration", "Interface", "kel::InterfaceReference", 1, 1},
        {"kel::Behaviour", "Statement", "kel::CompoundStatement", 1, 1},
        {"kel::ParameterDeclaration", "Type", "kel::TypeReference", 1, 1},
        {"kel::EventInstance", "Port", "kel::PortReference", 0, 1},
        {"kel::EventInstance", "Arguments", "kel::Expression", 0, 0},
        {"kel::IfStatement", "ElseStatement", "kel::BehaviourStatement", 0, 1},
        {"kel::BindingStatement", "Right", "kel::InterfaceInstance", 1, 1},
    };
    for (auto const& row : rows) {
        auto const& composition = DefinitionOf(row.className).getCompositionDef(row.member);
        EXPECT_EQ(composition.getClassName(), row.target) << row.className << "." << row.member;
        EXPECT_EQ(composition.getMultiplicityMin(), row.min) << row.className << "." << row.member;
        EXPECT_EQ(composition.getMultiplicityMax(), row.max) << row.className << "." << row.member;
        EXPECT_EQ(composition.getSerializedFlag(), om::sfSerialized);
    }
}

TEST(SchemaTest, AssociationsAreZeroOrOne) {
    std::vector<RelationRow> const rows{
        {"kel::Location", "File", "kel::File", 0, 1},
        {"kel::IfStatement", "File", "kel::File", 0, 1},
        {"kel::PortReference", "Declaration", "kel::PortDeclaration", 0, 1},
        {"kel::ComponentInstanceReference", "Declaration", "kel::ComponentInstanceDeclaration", 0,
         1},
        {"kel::TypeReference", "Declaration", "kel::TypeDeclaration", 0, 1},
    };
    for (auto const& row : rows) {
        auto const& association = DefinitionOf(row.className).getAssociationDef(row.member);
        EXPECT_EQ(association.getClassName(), row.target) << row.className;
        EXPECT_EQ(association.getAssociationType(), om::AssociationDefinition::atZeroOne);
        EXPECT_EQ(association.getMultiplicityMax(), 1u);
    }
}

struct PropertyRow {
    std::string className;
    std::string member;
    PropertyValue defaultValue;
};

TEST(SchemaTest, PropertiesHaveTheirTypesAndDefaults) {
    std::vector<PropertyRow> const rows{
        {"kel::File", "Name", PropertyValue("")},
        {"kel::Location", "EndColumn", PropertyValue(0)},
        {"kel::Namespace", "Name", PropertyValue("")},
        {"kel::ModelDeclaration", "Imported", PropertyValue(false)},
        {"kel::PortDeclaration", "Direction", PropertyValue(idirUnknown)},
        {"kel::InternalDeclaration", "External", PropertyValue(false)},
        {"kel::EventDeclaration", "Direction", PropertyValue(edirUnknown)},
        {"kel::ParameterDeclaration", "Direction", PropertyValue(pdirIn)},
        {"kel::OnEventStatement", "Silent", PropertyValue(boolUnknown)},
        {"kel::BooleanConstantExpression", "Value", PropertyValue(boolUnknown)},
        {"kel::IntTypeDeclaration", "MaxValue", PropertyValue(0)},
        {"kel::NameExpression", "Parentheses", PropertyValue(false)},
    };
    for (auto const& row : rows) {
        auto const& property = DefinitionOf(row.className).getPropertyDef(row.member);
        EXPECT_EQ(property.getType(), row.defaultValue.getType())
            << row.className << "." << row.member;
        EXPECT_EQ(PropCast(property.getDefaultValue()), row.defaultValue) << row.className;
        EXPECT_EQ(property.getSerializedFlag(), om::sfSerialized);
        EXPECT_EQ(property.getUndoFlag(), om::ufNoUndo);
    }
}

TEST(SchemaTest, ClassesHoldTheMembersOfTheirBasesAndNoOthers) {
    auto const& ifStatement = DefinitionOf("kel::IfStatement");
    EXPECT_EQ(ifStatement.getPropertyDefs().size(), 6u);
    EXPECT_EQ(ifStatement.getAssociationDefs().size(), 1u);
    EXPECT_EQ(ifStatement.getCompositionDefs().size(), 3u);

    auto const& component = DefinitionOf("kel::ComponentDeclaration");
    std::vector<std::string> propertyNames;
    for (auto const& [name, definition] : component.getPropertyDefs()) {
        propertyNames.push_back(name);
    }
    EXPECT_EQ(propertyNames,
              (std::vector<std::string>{"BeginColumn", "BeginLine", "Column", "EndColumn",
                                        "EndLine", "Foreign", "Imported", "Line", "Name"}));
    EXPECT_EQ(component.getCompositionDefs().size(), 3u);

    auto const& file = DefinitionOf("kel::File");
    EXPECT_EQ(file.getPropertyDefs().size(), 1u);
    EXPECT_TRUE(file.getAssociationDefs().empty());
    EXPECT_TRUE(file.getCompositionDefs().empty());
}

TEST(SchemaTest, KeyConstantsHoldTheMemberNames) {
    EXPECT_EQ(IfStatement::ClassName, "kel::IfStatement");
    EXPECT_EQ(IfStatement::ElseStatementComposition, "ElseStatement");
    EXPECT_EQ(Location::BeginLineProperty, "BeginLine");
    EXPECT_EQ(Location::FileAssociation, "File");
    EXPECT_EQ(EventInstance::ParenthesesProperty, "Parentheses");
}

} // namespace
} // namespace kel
