// The types that every source knows without declaring them, and type equality.
#pragma once

#include "metamodel/Kel.h"
#include "om/ObjectModel.h"

namespace language {

class BuiltinTypes {
public:
    explicit BuiltinTypes(om::ObjectModel& model) : m_model(model) {}
    BuiltinTypes(BuiltinTypes const&) = delete;
    BuiltinTypes& operator=(BuiltinTypes const&) = delete;

    // The same declaration, or two integer types whatever their ranges, or two
    // data types.
    static bool isEqualType(kel::TypeDeclaration const& a, kel::TypeDeclaration const& b);
    static bool isBooleanType(kel::TypeDeclaration const& type);
    static bool isIntType(kel::TypeDeclaration const& type);
    static bool isDataType(kel::TypeDeclaration const& type);

    // The store's "bool", made on first demand.
    kel::TypeDeclaration const& getBoolType();
    // Types of constants, outside the store and the tree: they live as long as
    // this object, so that checking leaves the store as it was.
    kel::IntTypeDeclaration const& getIntType() const { return m_int; }
    kel::DataTypeDeclaration const& getDataType() const { return m_data; }

private:
    static kel::IntTypeDeclaration makeIntType();
    static kel::DataTypeDeclaration makeDataType();

    om::ObjectModel& m_model;
    kel::TypeDeclaration const* m_bool = nullptr;
    kel::IntTypeDeclaration const m_int = makeIntType();
    kel::DataTypeDeclaration const m_data = makeDataType();
};

} // namespace language
