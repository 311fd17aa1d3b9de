// The generated definitions against the schema table: bases, and the kind,
// target, bounds and default of members of each kind.
#include "metamodel/Factory.h"
#include "metamodel/Kel.h"
#include "metamodel/PropCast.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kel {
namespace {

om::ObjectDefinition const& DefinitionOf(std::string const& className) {
    static Factory factory;
    return factory.create(className)->getDefinition();
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
            auto const& base = DefinitionOf(ancestor);
            EXPECT_FALSE(base.isDerivedFrom(row.className)) << ancestor;
            EXPECT_TRUE(Includes(definition.getPropertyDefs(), base.getPropertyDefs()));
            EXPECT_TRUE(Includes(definition.getAssociationDefs(), base.getAssociationDefs()));
            EXPECT_TRUE(Includes(definition.getCompositionDefs(), base.getCompositionDefs()));
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
        {"kel::ComponentDeclaration", "Behaviour", "kel::Behaviour", 0, 1},
        {"kel::InternalDeclaration", "Interface", "kel::InterfaceReference", 1, 1},
        {"kel::ParameterDeclaration", "Type", "kel::TypeReference", 1, 1},
        {"kel::EventInstance", "Arguments", "kel::Expression", 0, 0},
        {"kel::IfStatement", "ElseStatement", "kel::BehaviourStatement", 0, 1},
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
        {"kel::PortReference", "Declaration", "kel::PortDeclaration", 0, 1},
        {"kel::ComponentInstanceReference", "Declaration", "kel::ComponentInstanceDeclaration", 0,
         1},
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
        {"kel::ModelDeclaration", "Imported", PropertyValue(false)},
        {"kel::PortDeclaration", "Direction", PropertyValue(idirUnknown)},
        {"kel::EventDeclaration", "Direction", PropertyValue(edirUnknown)},
        {"kel::ParameterDeclaration", "Direction", PropertyValue(pdirIn)},
        {"kel::OnEventStatement", "Silent", PropertyValue(boolUnknown)},
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

TEST(SchemaTest, AClassHoldsTheMembersOfItsBasesAndNoOthers) {
    auto const& component = DefinitionOf("kel::ComponentDeclaration");
    std::vector<std::string> propertyNames;
    for (auto const& [name, definition] : component.getPropertyDefs()) {
        propertyNames.push_back(name);
    }
    EXPECT_EQ(propertyNames,
              (std::vector<std::string>{"BeginColumn", "BeginLine", "Column", "EndColumn",
                                        "EndLine", "Foreign", "Imported", "Line", "Name"}));
    EXPECT_EQ(component.getAssociationDefs().size(), 1u);
    EXPECT_EQ(component.getCompositionDefs().size(), 3u);
    EXPECT_TRUE(DefinitionOf("kel::File").getAssociationDefs().empty());
}

} // namespace
} // namespace kel
