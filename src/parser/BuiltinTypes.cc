#include "parser/BuiltinTypes.h"

#include "metamodel/BuiltinDeclarations.h"

namespace language {

bool BuiltinTypes::isEqualType(kel::TypeDeclaration const& a, kel::TypeDeclaration const& b) {
    return &a == &b ||
           (a.asIntTypeDeclaration() != nullptr && b.asIntTypeDeclaration() != nullptr) ||
           (a.asDataTypeDeclaration() != nullptr && b.asDataTypeDeclaration() != nullptr);
}

bool BuiltinTypes::isBooleanType(kel::TypeDeclaration const& type) {
    return type.getName() == "bool";
}

bool BuiltinTypes::isIntType(kel::TypeDeclaration const& type) {
    return type.asIntTypeDeclaration() != nullptr;
}

bool BuiltinTypes::isDataType(kel::TypeDeclaration const& type) {
    return type.asDataTypeDeclaration() != nullptr;
}

kel::TypeDeclaration const& BuiltinTypes::getBoolType() {
    if (m_bool == nullptr) {
        m_bool = kel::GetBoolTypeDeclaration(m_model);
    }
    return *m_bool;
}

kel::IntTypeDeclaration BuiltinTypes::makeIntType() {
    kel::IntTypeDeclaration type;
    type.setName("int");
    return type;
}

kel::DataTypeDeclaration BuiltinTypes::makeDataType() {
    kel::DataTypeDeclaration type;
    type.setName("$data$");
    return type;
}

} // namespace language
