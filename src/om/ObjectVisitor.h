// Visitor of a subtree of objects, with the depth of the current object.
#pragma once

#include <cstdint>

namespace om {

class Object;

class ObjectVisitor {
public:
    virtual ~ObjectVisitor() = default;

    virtual void visit(Object const& /*object*/) {}

    std::int32_t getLevel() const { return m_level; }
    void increaseLevel() { ++m_level; }
    void decreaseLevel() { --m_level; }

private:
    std::int32_t m_level = 0;
};

} // namespace om
