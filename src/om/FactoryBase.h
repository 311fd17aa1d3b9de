// The interface by which the store makes objects from a class name.
#pragma once

#include <memory>
#include <string>

namespace om {

class Object;

class FactoryBase {
public:
    virtual ~FactoryBase() = default;

    virtual bool canCreate(std::string const& className) const = 0;
    // A new object owned by the caller; an unknown name raises OMException.
    virtual std::unique_ptr<Object> create(std::string const& className) = 0;

protected:
    FactoryBase() = default;
    FactoryBase(FactoryBase const&) = default;
    FactoryBase& operator=(FactoryBase const&) = default;
};

} // namespace om
