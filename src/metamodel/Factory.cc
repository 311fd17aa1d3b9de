#include "metamodel/Factory.h"

#include "metamodel/FactoryTable.h"
#include "om/OMException.h"

namespace kel {
namespace {

FactoryEntry const* FindEntry(std::string const& className) {
    for (auto const& entry : FactoryEntries()) {
        if (*entry.className == className) {
            return &entry;
        }
    }
    return nullptr;
}

} // namespace

bool Factory::canCreate(std::string const& className) const {
    return FindEntry(className) != nullptr;
}

std::unique_ptr<om::Object> Factory::create(std::string const& className) {
    auto const* entry = FindEntry(className);
    if (entry == nullptr) {
        throw om::OMException("Unkown class name \"" + className + "\"");
    }
    return entry->make();
}

} // namespace kel
