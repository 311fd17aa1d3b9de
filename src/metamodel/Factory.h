// Makes metamodel objects by class name for the object model.
#pragma once

#include "om/FactoryBase.h"
#include "om/Object.h"

#include <memory>
#include <string>

namespace kel {

class Factory : public om::FactoryBase {
public:
    bool canCreate(std::string const& className) const override;
    // A new object made with its default constructor; an unknown name raises OMException.
    std::unique_ptr<om::Object> create(std::string const& className) override;
};

} // namespace kel
