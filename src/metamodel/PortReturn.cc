#include "metamodel/PortReturn.h"

#include "metamodel/ConstEnumTypeDeclarationVec.h"
#include "metamodel/ConstIntTypeDeclarationVec.h"
#include "metamodel/ConstInterfaceDeclarationVec.h"
#include "metamodel/ConstInterfaceReferenceVec.h"
#include "metamodel/ConstTypeDeclarationVec.h"
#include "metamodel/TreePredicates.h"

namespace kel {
namespace {

// "I." when the type is declared in interface I and I is not `own`.
std::string InterfacePrefix(TypeDeclaration const& type, InterfaceDeclaration const* own) {
    auto const* declaring = dynamic_cast<InterfaceDeclaration const*>(type.tryGetParent());
    if (declaring == nullptr || (own != nullptr && *declaring == *own)) {
        return {};
    }
    return declaring->getName() + ".";
}

} // namespace

InterfaceDeclaration const* PortReturn::getInterface() const {
    return port == nullptr ? interface : port->getInterface().tryGetDeclaration();
}

std::string PortReturn::value_str() const {
    if (type == nullptr) {
        return "return";
    }
    auto const prefix = InterfacePrefix(*type, getInterface());
    if (type->asEnumTypeDeclaration() != nullptr) {
        return prefix + type->getName() + "_" + enumValue->getName();
    }
    if (IsBool(*type)) {
        return prefix + (boolValue ? "true" : "false");
    }
    if (type->asIntTypeDeclaration() != nullptr) {
        return prefix + std::to_string(intValue);
    }
    return "bummer";
}

std::string PortReturn::str() const {
    return port == nullptr ? value_str() : port->getName() + "." + value_str();
}

} // namespace kel
