// Small classes written the way the metamodel generator writes its classes:
// Leaf, Node and Tree (derived from Node), their definitions, an int property
// value and a factory.
#pragma once

#include "om/FactoryBase.h"
#include "om/OMException.h"
#include "om/Object.h"
#include "om/ObjectDefinition.h"
#include "om/PropertyValueImpl.h"

#include <cstdint>
#include <memory>
#include <string>

namespace test {

inline constexpr std::int32_t IntType = 2;

class IntValue : public om::PropertyValueImpl {
public:
    explicit IntValue(int value) : m_value(value) {}

    int get() const { return m_value; }

    std::unique_ptr<om::PropertyValueImpl> clone() const override {
        return std::make_unique<IntValue>(*this);
    }
    void assign(om::PropertyValueImpl const& other) override {
        m_value = dynamic_cast<IntValue const&>(other).m_value;
    }
    bool equals(om::PropertyValueImpl const& other) const override {
        return m_value == dynamic_cast<IntValue const&>(other).m_value;
    }
    bool less(om::PropertyValueImpl const& other) const override {
        return m_value < dynamic_cast<IntValue const&>(other).m_value;
    }
    bool validate(om::PropertyDefinition const& definition, std::string& error) const override;

private:
    int m_value;
};

inline int intOf(om::PropertyValueBase const& value) {
    return dynamic_cast<IntValue const&>(value.getImpl()).get();
}

inline om::PropertyDefinition intProperty(int defaultValue) {
    return om::PropertyDefinition(IntType, IntValue(defaultValue), om::sfSerialized, om::ufNoUndo);
}

inline om::AssociationDefinition
association(std::string const& target,
            om::AssociationDefinition::AssociationType type = om::AssociationDefinition::atZeroOne,
            std::uint64_t max = 1) {
    return om::AssociationDefinition(target, type, max, om::sfSerialized);
}

inline om::CompositionDefinition composition(std::string const& target, std::uint64_t min,
                                             std::uint64_t max) {
    return om::CompositionDefinition(target, min, max, om::sfSerialized);
}

// One int property "Weight" and one association "Target" to any object.
class Leaf : public om::Object {
public:
    static inline std::string const ClassName{"test::Leaf"};
    static inline std::string const WeightProperty{"Weight"};
    static inline std::string const TargetAssociation{"Target"};
    static inline om::ObjectDefinition const* Definition = nullptr;

    Leaf() : Leaf(true) { initializeMembers(getDefinition()); }
    explicit Leaf(bool flag) : om::Object(flag), m_weight(IntValue(0)) {}
    Leaf(Leaf const&) = default;
    Leaf& operator=(Leaf const& other) {
        om::Object::operator=(other);
        return *this;
    }

    int getWeight() const { return intOf(m_weight); }
    void setWeight(int weight) { m_weight = om::PropertyValueBase(IntValue(weight)); }

    std::unique_ptr<om::Object> clone() const override { return std::make_unique<Leaf>(*this); }
    om::ObjectDefinition const& getDefinition() const override;
    void tryAssignProperties(om::Object const& other, bool flag) override {
        om::Object::tryAssignProperties(other, flag);
        if (auto const* leaf = dynamic_cast<Leaf const*>(&other)) {
            m_weight = leaf->m_weight;
        }
    }
    bool propertiesEqual(om::Object const& other) const override {
        auto const* leaf = dynamic_cast<Leaf const*>(&other);
        return leaf && m_weight == leaf->m_weight && om::Object::propertiesEqual(other);
    }
    om::PropertyValueBase const& getProperty(std::string const& name) const override {
        return name == WeightProperty ? m_weight : om::Object::getProperty(name);
    }
    void setProperty(std::string const& name, om::PropertyValueBase const& value) override {
        name == WeightProperty ? void(m_weight = value) : om::Object::setProperty(name, value);
    }

private:
    om::PropertyValueBase m_weight;
};

// Property "Size" (default 7); associations "Link" (one) and "Links" (a list);
// compositions "Children" (any number), "Optional" (0..1) and "Required" (1..1).
class Node : public om::Object {
public:
    static inline std::string const ClassName{"test::Node"};
    static inline std::string const SizeProperty{"Size"};
    static inline om::ObjectDefinition const* Definition = nullptr;

    Node() : Node(true) { initializeMembers(getDefinition()); }
    explicit Node(bool flag) : om::Object(flag), m_size(IntValue(7)) {}
    Node(Node const&) = default;
    Node& operator=(Node const& other) {
        om::Object::operator=(other);
        return *this;
    }

    int getSize() const { return intOf(m_size); }
    void setSize(int size) { m_size = om::PropertyValueBase(IntValue(size)); }

    std::unique_ptr<om::Object> clone() const override { return std::make_unique<Node>(*this); }
    om::ObjectDefinition const& getDefinition() const override;
    void tryAssignProperties(om::Object const& other, bool flag) override {
        om::Object::tryAssignProperties(other, flag);
        if (auto const* node = dynamic_cast<Node const*>(&other)) {
            m_size = node->m_size;
        }
    }
    bool propertiesEqual(om::Object const& other) const override {
        auto const* node = dynamic_cast<Node const*>(&other);
        return node && m_size == node->m_size && om::Object::propertiesEqual(other);
    }
    om::PropertyValueBase const& getProperty(std::string const& name) const override {
        return name == SizeProperty ? m_size : om::Object::getProperty(name);
    }
    void setProperty(std::string const& name, om::PropertyValueBase const& value) override {
        name == SizeProperty ? void(m_size = value) : om::Object::setProperty(name, value);
    }

private:
    om::PropertyValueBase m_size;
};

// A Node with property "Extra", association "Buddy" and composition
// "Branches" (at least one Leaf, no upper limit).
class Tree : public Node {
public:
    static inline std::string const ClassName{"test::Tree"};
    static inline std::string const ExtraProperty{"Extra"};
    static inline om::ObjectDefinition const* Definition = nullptr;

    Tree() : Tree(true) { initializeMembers(getDefinition()); }
    explicit Tree(bool flag) : Node(flag), m_extra(IntValue(0)) {}
    Tree(Tree const&) = default;
    Tree& operator=(Tree const& other) {
        om::Object::operator=(other);
        return *this;
    }

    int getExtra() const { return intOf(m_extra); }
    void setExtra(int extra) { m_extra = om::PropertyValueBase(IntValue(extra)); }

    std::unique_ptr<om::Object> clone() const override { return std::make_unique<Tree>(*this); }
    om::ObjectDefinition const& getDefinition() const override;
    void tryAssignProperties(om::Object const& other, bool flag) override {
        Node::tryAssignProperties(other, flag);
        if (auto const* tree = dynamic_cast<Tree const*>(&other)) {
            m_extra = tree->m_extra;
        }
    }
    bool propertiesEqual(om::Object const& other) const override {
        auto const* tree = dynamic_cast<Tree const*>(&other);
        return tree && m_extra == tree->m_extra && Node::propertiesEqual(other);
    }
    om::PropertyValueBase const& getProperty(std::string const& name) const override {
        return name == ExtraProperty ? m_extra : Node::getProperty(name);
    }
    void setProperty(std::string const& name, om::PropertyValueBase const& value) override {
        name == ExtraProperty ? void(m_extra = value) : Node::setProperty(name, value);
    }

private:
    om::PropertyValueBase m_extra;
};

class LeafDefinition : public om::ObjectDefinition {
public:
    LeafDefinition() {
        defineProperty(Leaf::WeightProperty, intProperty(0));
        defineAssociation(Leaf::TargetAssociation, association(om::Object::ClassName));
    }
    std::string const& getClassName() const override { return Leaf::ClassName; }
    bool isDerivedFrom(std::string const& name) const override {
        return name == Leaf::ClassName || om::ObjectDefinition::isDerivedFrom(name);
    }
};

class NodeDefinition : public om::ObjectDefinition {
public:
    NodeDefinition() {
        defineProperty(Node::SizeProperty, intProperty(7));
        defineAssociation("Link", association(om::Object::ClassName));
        defineAssociation("Links",
                          association(om::Object::ClassName, om::AssociationDefinition::atList, 0));
        defineComposition("Children", composition(om::Object::ClassName, 0, 0));
        defineComposition("Optional", composition(Leaf::ClassName, 0, 1));
        defineComposition("Required", composition(Leaf::ClassName, 1, 1));
    }
    std::string const& getClassName() const override { return Node::ClassName; }
    bool isDerivedFrom(std::string const& name) const override {
        return name == Node::ClassName || om::ObjectDefinition::isDerivedFrom(name);
    }
};

class TreeDefinition : public NodeDefinition {
public:
    TreeDefinition() {
        defineProperty(Tree::ExtraProperty, intProperty(0));
        defineAssociation("Buddy", association(Node::ClassName));
        defineComposition("Branches", composition(Leaf::ClassName, 1, 0));
    }
    std::string const& getClassName() const override { return Tree::ClassName; }
    bool isDerivedFrom(std::string const& name) const override {
        return name == Tree::ClassName || NodeDefinition::isDerivedFrom(name);
    }
};

inline om::ObjectDefinition const& Leaf::getDefinition() const {
    if (Definition == nullptr) {
        Definition = new LeafDefinition();
    }
    return *Definition;
}

inline om::ObjectDefinition const& Node::getDefinition() const {
    if (Definition == nullptr) {
        Definition = new NodeDefinition();
    }
    return *Definition;
}

inline om::ObjectDefinition const& Tree::getDefinition() const {
    if (Definition == nullptr) {
        Definition = new TreeDefinition();
    }
    return *Definition;
}

inline bool IntValue::validate(om::PropertyDefinition const& definition, std::string& error) const {
    if (definition.getType() != IntType) {
        error = "Incorrect property type";
        return false;
    }
    return true;
}

class Factory : public om::FactoryBase {
public:
    bool canCreate(std::string const& className) const override {
        return className == Leaf::ClassName || className == Node::ClassName ||
               className == Tree::ClassName;
    }
    std::unique_ptr<om::Object> create(std::string const& className) override {
        if (className == Leaf::ClassName) {
            return std::make_unique<Leaf>();
        }
        if (className == Node::ClassName) {
            return std::make_unique<Node>();
        }
        if (className == Tree::ClassName) {
            return std::make_unique<Tree>();
        }
        throw om::OMException("Unkown class name \"" + className + "\"");
    }
};

} // namespace test
