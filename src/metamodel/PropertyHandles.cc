#include "metamodel/PropertyHandles.h"

#include <map>
#include <utility>

namespace kel {

om::PropertyValueBase const& PropertyHandle(om::Object const& object, std::string const& key,
                                            PropertyValue value) {
    // Keyed by addresses: the key constants live as long as the process, and
    // an object's handle is refreshed on every request, also when a new
    // object took the address of a freed one.
    static std::map<std::pair<om::Object const*, std::string const*>, om::PropertyValueBase>
        handles;
    auto& handle = handles[{&object, &key}];
    handle = om::PropertyValueBase(value);
    return handle;
}

} // namespace kel
