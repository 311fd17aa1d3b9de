#include "metamodel/Factory.h"

#include "metamodel/FactoryTable.h"
#include "om/OMException.h"

#include <string_view>
#include <unordered_map>

namespace kel {
namespace {

FactoryEntry const* FindEntry(std::string const& className) {
    // Made on first use, when the class names exist: the store asks the
    // factory by name for every object it makes.
    static std::unordered_map<std::string_view, FactoryEntry const*> const byName = [] {
        std::unordered_map<std::string_view, FactoryEntry const*> entries;
        for (auto const& entry : FactoryEntries()) {
            entries.emplace(*entry.className, &entry);
        }
        return entries;
    }();
    auto const found = byName.find(className);
    return found == byName.end() ? nullptr : found->second;
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
