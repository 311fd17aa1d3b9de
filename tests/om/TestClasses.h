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
#include <vector>

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

// An association or composition value of the ids, in order.
template <class Value> Value valueOf(std::vector<om::Oid> const& ids) {
    Value value;
    for (om::Oid const id : ids) {
        value.push_back(id);
    }
    return value;
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

// What the generator writes for a class with one int property of its own on
// top of the members of Base; Self names the property, its default, its
// range of kinds and the class of its definition.
template <class Self, class Base> class WithIntProperty : public Base {
public:
    explicit WithIntProperty(bool flag) : Base(flag), m_value(IntValue(Self::Default)) {}
    WithIntProperty(WithIntProperty const&) = default;
    WithIntProperty& operator=(WithIntProperty const& other) {
        om::Object::operator=(other);
        return *this;
    }

    std::uint32_t classKind() const override { return Self::FirstKind; }
    std::unique_ptr<om::Object> clone() const override {
        return std::make_unique<Self>(static_cast<Self const&>(*this));
    }
    om::ObjectDefinition const& getDefinition() const override {
        if (Self::Definition == nullptr) {
            Self::Definition = new typename Self::DefinitionClass();
        }
        return *Self::Definition;
    }
    void tryAssignProperties(om::Object const& other, bool flag) override {
        Base::tryAssignProperties(other, flag);
        if (auto const* same = dynamic_cast<WithIntProperty const*>(&other)) {
            m_value = same->m_value;
        }
    }
    bool propertiesEqual(om::Object const& other) const override {
        auto const* same = dynamic_cast<WithIntProperty const*>(&other);
        return same && m_value == same->m_value && Base::propertiesEqual(other);
    }
    om::PropertyValueBase const& getProperty(std::string const& name) const override {
        return name == Self::IntProperty ? m_value : Base::getProperty(name);
    }
    void setProperty(std::string const& name, om::PropertyValueBase const& value) override {
        name == Self::IntProperty ? void(m_value = value) : Base::setProperty(name, value);
    }

protected:
    int getInt() const { return intOf(m_value); }
    void setInt(int value) { m_value = om::PropertyValueBase(IntValue(value)); }

private:
    om::PropertyValueBase m_value;
};

// The definition of Self: its own name, and derived from what Base is derived from.
template <class Self, class Base> class DefinitionOf : public Base {
public:
    std::string const& getClassName() const override { return Self::ClassName; }
    bool isDerivedFrom(std::string const& name) const override {
        return name == Self::ClassName || Base::isDerivedFrom(name);
    }
};

class LeafDefinition;
class NodeDefinition;
class TreeDefinition;

// One int property "Weight" and one association "Target" to any object.
class Leaf : public WithIntProperty<Leaf, om::Object> {
public:
    using DefinitionClass = LeafDefinition;
    static inline std::string const ClassName{"test::Leaf"};
    static constexpr std::uint32_t FirstKind = 1;
    static constexpr std::uint32_t LastKind = 1;
    static inline std::string const IntProperty{"Weight"};
    static constexpr int Default = 0;
    static inline om::ObjectDefinition const* Definition = nullptr;

    Leaf() : WithIntProperty(true) { initializeMembers(getDefinition()); }
    explicit Leaf(bool flag) : WithIntProperty(flag) {}
};

// Property "Size" (default 7); associations "Link" (one) and "Links" (a list);
// compositions "Children" (any number), "Optional" (0..1) and "Required" (1..1).
class Node : public WithIntProperty<Node, om::Object> {
public:
    using DefinitionClass = NodeDefinition;
    static inline std::string const ClassName{"test::Node"};
    static constexpr std::uint32_t FirstKind = 2;
    static constexpr std::uint32_t LastKind = 3;
    static inline std::string const IntProperty{"Size"};
    static constexpr int Default = 7;
    static inline om::ObjectDefinition const* Definition = nullptr;

    Node() : WithIntProperty(true) { initializeMembers(getDefinition()); }
    explicit Node(bool flag) : WithIntProperty(flag) {}

    int getSize() const { return getInt(); }
    void setSize(int size) { setInt(size); }
};

// A Node with property "Extra", association "Buddy" and composition
// "Branches" (at least one Leaf, no upper limit).
class Tree : public WithIntProperty<Tree, Node> {
public:
    using DefinitionClass = TreeDefinition;
    static inline std::string const ClassName{"test::Tree"};
    static constexpr std::uint32_t FirstKind = 3;
    static constexpr std::uint32_t LastKind = 3;
    static inline std::string const IntProperty{"Extra"};
    static constexpr int Default = 0;
    static inline om::ObjectDefinition const* Definition = nullptr;

    Tree() : WithIntProperty(true) { initializeMembers(getDefinition()); }
    explicit Tree(bool flag) : WithIntProperty(flag) {}

    int getExtra() const { return getInt(); }
    void setExtra(int extra) { setInt(extra); }
};

class LeafDefinition : public DefinitionOf<Leaf, om::ObjectDefinition> {
public:
    LeafDefinition() {
        defineProperty(Leaf::IntProperty, intProperty(0));
        defineAssociation("Target", association(om::Object::ClassName));
    }
};

class NodeDefinition : public DefinitionOf<Node, om::ObjectDefinition> {
public:
    NodeDefinition() {
        defineProperty(Node::IntProperty, intProperty(7));
        defineAssociation("Link", association(om::Object::ClassName));
        defineAssociation("Links",
                          association(om::Object::ClassName, om::AssociationDefinition::atList, 0));
        defineComposition("Children", composition(om::Object::ClassName, 0, 0));
        defineComposition("Optional", composition(Leaf::ClassName, 0, 1));
        defineComposition("Required", composition(Leaf::ClassName, 1, 1));
    }
};

class TreeDefinition : public DefinitionOf<Tree, NodeDefinition> {
public:
    TreeDefinition() {
        defineProperty(Tree::IntProperty, intProperty(0));
        defineAssociation("Buddy", association(Node::ClassName));
        defineComposition("Branches", composition(Leaf::ClassName, 1, 0));
    }
};

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
