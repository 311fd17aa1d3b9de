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

// Every class of the schema in definition order, with its base and the
// numbers of properties, associations and compositions that it holds
// together with its bases.
struct ClassRow {
    std::string name;
    std::string base;
    std::size_t properties;
    std::size_t associations;
    std::size_t compositions;
};

std::vector<ClassRow> const AllClasses{
    {"kel::File", "om::Object", 1, 0, 0},
    {"kel::Location", "om::Object", 6, 1, 0},
    {"kel::Named", "kel::Location", 7, 1, 0},
    {"kel::Root", "kel::Location", 6, 1, 2},
    {"kel::Namespace", "kel::Named", 7, 1, 4},
    {"kel::NativeStatement", "kel::Location", 7, 1, 0},
    {"kel::ModelDeclaration", "kel::Named", 8, 1, 1},
    {"kel::ComponentDeclaration", "kel::ModelDeclaration", 9, 1, 3},
    {"kel::ComponentReference", "kel::Named", 7, 2, 0},
    {"kel::InterfaceDeclaration", "kel::ModelDeclaration", 8, 1, 3},
    {"kel::InterfaceReference", "kel::Named", 7, 2, 0},
    {"kel::PortDeclaration", "kel::Named", 10, 1, 1},
    {"kel::PortReference", "kel::Named", 7, 2, 0},
    {"kel::InternalDeclaration", "kel::PortDeclaration", 10, 1, 2},
    {"kel::EventDeclaration", "kel::Named", 8, 1, 2},
    {"kel::EventReference", "kel::Named", 7, 2, 0},
    {"kel::TypeDeclaration", "kel::Named", 7, 1, 0},
    {"kel::TypeReference", "kel::Named", 7, 2, 0},
    {"kel::EnumTypeDeclaration", "kel::TypeDeclaration", 7, 1, 1},
    {"kel::EnumValueDeclaration", "kel::Named", 7, 1, 0},
    {"kel::EnumValueReference", "kel::Named", 7, 2, 0},
    {"kel::IntTypeDeclaration", "kel::TypeDeclaration", 9, 1, 0},
    {"kel::DataTypeDeclaration", "kel::TypeDeclaration", 8, 1, 0},
    {"kel::Behaviour", "kel::Named", 7, 1, 5},
    {"kel::FunctionDeclaration", "kel::Named", 7, 1, 3},
    {"kel::FunctionReference", "kel::Named", 7, 2, 0},
    {"kel::VariableDeclaration", "kel::Named", 7, 1, 2},
    {"kel::VariableReference", "kel::Named", 7, 2, 0},
    {"kel::ParameterDeclaration", "kel::VariableDeclaration", 8, 1, 2},
    {"kel::BehaviourStatement", "kel::Location", 6, 1, 0},
    {"kel::VariableDeclarationStatement", "kel::BehaviourStatement", 6, 1, 1},
    {"kel::GuardedStatement", "kel::BehaviourStatement", 6, 1, 2},
    {"kel::CompoundStatement", "kel::BehaviourStatement", 6, 1, 1},
    {"kel::OnEventStatement", "kel::BehaviourStatement", 7, 1, 2},
    {"kel::BlockingStatement", "kel::BehaviourStatement", 6, 1, 1},
    {"kel::EventInstance", "kel::Named", 8, 1, 3},
    {"kel::AssignmentStatement", "kel::BehaviourStatement", 6, 1, 2},
    {"kel::ActionStatement", "kel::BehaviourStatement", 6, 1, 1},
    {"kel::IfStatement", "kel::BehaviourStatement", 6, 1, 3},
    {"kel::FunctionCallStatement", "kel::BehaviourStatement", 6, 1, 1},
    {"kel::ReplyStatement", "kel::BehaviourStatement", 6, 1, 2},
    {"kel::ReturnStatement", "kel::BehaviourStatement", 6, 1, 1},
    {"kel::NameStatement", "kel::BehaviourStatement", 6, 1, 1},
    {"kel::Guard", "kel::Location", 6, 1, 0},
    {"kel::ExpressionGuard", "kel::Guard", 6, 1, 1},
    {"kel::OtherwiseGuard", "kel::Guard", 6, 1, 0},
    {"kel::Expression", "kel::Location", 6, 1, 0},
    {"kel::AssignmentExpression", "kel::Expression", 6, 1, 2},
    {"kel::EnumVariableValueExpression", "kel::Expression", 6, 1, 2},
    {"kel::VariableExpression", "kel::Expression", 6, 1, 1},
    {"kel::BooleanConstantExpression", "kel::Expression", 7, 1, 0},
    {"kel::BooleanNotExpression", "kel::Expression", 6, 1, 1},
    {"kel::BooleanAndExpression", "kel::Expression", 6, 1, 2},
    {"kel::BooleanOrExpression", "kel::Expression", 6, 1, 2},
    {"kel::IsEqualExpression", "kel::Expression", 6, 1, 2},
    {"kel::IsNotEqualExpression", "kel::Expression", 6, 1, 2},
    {"kel::IsLessExpression", "kel::Expression", 6, 1, 2},
    {"kel::IsLessEqualExpression", "kel::Expression", 6, 1, 2},
    {"kel::IsGreaterExpression", "kel::Expression", 6, 1, 2},
    {"kel::IsGreaterEqualExpression", "kel::Expression", 6, 1, 2},
    {"kel::PlusExpression", "kel::Expression", 6, 1, 2},
    {"kel::MinusExpression", "kel::Expression", 6, 1, 2},
    {"kel::EnumConstantExpression", "kel::Expression", 6, 1, 1},
    {"kel::IntConstantExpression", "kel::Expression", 7, 1, 0},
    {"kel::ActionExpression", "kel::Expression", 6, 1, 1},
    {"kel::FunctionCallExpression", "kel::Expression", 6, 1, 2},
    {"kel::DataExpression", "kel::Expression", 7, 1, 0},
    {"kel::NameExpression", "kel::Expression", 8, 1, 1},
    {"kel::System", "kel::Location", 6, 1, 2},
    {"kel::ConstructorStatement", "kel::Location", 6, 1, 0},
    {"kel::ComponentInstanceDeclaration", "kel::Named", 7, 1, 1},
    {"kel::ComponentInstanceReference", "kel::Named", 7, 2, 0},
    {"kel::BindingStatement", "kel::ConstructorStatement", 6, 1, 2},
    {"kel::InterfaceInstance", "kel::Location", 7, 1, 2},
};

om::ObjectDefinition const& DefinitionOf(std::string const& className) {
    static Factory factory;
    return factory.create(className)->getDefinition();
}

TEST(SchemaTest, FactoryTableHoldsEveryClassInDefinitionOrder) {
    auto const entries = FactoryEntries();
    ASSERT_EQ(entries.size(), 74u);
    ASSERT_EQ(AllClasses.size(), 74u);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        EXPECT_EQ(*entries[i].className, AllClasses[i].name);
    }
}

TEST(SchemaTest, EveryDefinitionNamesItsOwnClass) {
    for (auto const& row : AllClasses) {
        auto const& name = row.name;
        auto const& definition = DefinitionOf(name);
        EXPECT_EQ(definition.getClassName(), name);
        EXPECT_EQ(definition.getClassNameForSerialization(), name);
        EXPECT_TRUE(definition.isDerivedFrom(name));
        EXPECT_TRUE(definition.isDerivedFrom("om::Object"));
    }
}

template <class Map> bool Includes(Map const& whole, Map const& part) {
    for (auto const& [name, definition] : part) {
        auto const found = whole.find(name);
        if (found == whole.end() || found->second != definition) {
            return false;
        }
    }
    return true;
}

TEST(SchemaTest, EveryClassHoldsItsOwnMembersAndThoseOfItsBase) {
    for (auto const& row : AllClasses) {
        auto const& definition = DefinitionOf(row.name);
        EXPECT_EQ(definition.getPropertyDefs().size(), row.properties) << row.name;
        EXPECT_EQ(definition.getAssociationDefs().size(), row.associations) << row.name;
        EXPECT_EQ(definition.getCompositionDefs().size(), row.compositions) << row.name;
        EXPECT_TRUE(definition.isDerivedFrom(row.base)) << row.name;
        if (row.base == "om::Object") {
            continue;
        }
        auto const& base = DefinitionOf(row.base);
        EXPECT_TRUE(Includes(definition.getPropertyDefs(), base.getPropertyDefs())) << row.name;
        EXPECT_TRUE(Includes(definition.getAssociationDefs(), base.getAssociationDefs()))
            << row.name;
        EXPECT_TRUE(Includes(definition.getCompositionDefs(), base.getCompositionDefs()))
            << row.name;
        EXPECT_FALSE(base.isDerivedFrom(row.name)) << row.name;
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
