// One reply on a port: a value of the event's return type, or a void return.
#pragma once

#include "metamodel/EnumValueDeclaration.h"
#include "metamodel/InterfaceDeclaration.h"
#include "metamodel/PortDeclaration.h"
#include "metamodel/TypeDeclaration.h"

#include <cstdint>
#include <string>

namespace kel {

struct PortReturn {
    PortDeclaration const* port = nullptr;
    // The interface when there is no port; with a port it comes from the port.
    InterfaceDeclaration const* interface = nullptr;
    // Null for a void reply.
    TypeDeclaration const* type = nullptr;
    EnumValueDeclaration const* enumValue = nullptr;
    bool boolValue = false;
    std::int32_t intValue = 0;

    // The interface of the port, or the interface field without a port.
    InterfaceDeclaration const* getInterface() const;
    // "return", or the value, e.g. "Result_ok", "true" or "3", with the name
    // of the declaring interface in front when that is another interface.
    std::string value_str() const;
    // "port.value", or the value alone without a port.
    std::string str() const;

    bool operator==(PortReturn const& other) const = default;
};

} // namespace kel
