// The generated list of metamodel classes that the factory can make.
#pragma once

#include "om/Object.h"

#include <memory>
#include <span>
#include <string>

namespace kel {

struct FactoryEntry {
    std::string const* className;
    std::unique_ptr<om::Object> (*make)();
};

// Every class of the schema, in definition order.
std::span<FactoryEntry const> FactoryEntries();

} // namespace kel
