// Run-time description of one property: its type, default value and flags.
#pragma once

#include "om/MemberFlags.h"
#include "om/PropertyValueBase.h"

#include <cstdint>
#include <string>

namespace om {

class PropertyDefinition {
public:
    // Type 0 and no default value.
    PropertyDefinition() = default;
    // Keeps a clone of the default, which must fit the type.
    PropertyDefinition(std::int32_t type, PropertyValueImpl const& defaultValue,
                       SerializedFlagType serializedFlag, UndoFlagType undoFlag);

    std::int32_t getType() const { return m_type; }
    PropertyValueBase const& getDefaultValue() const { return m_defaultValue; }
    SerializedFlagType getSerializedFlag() const { return m_serializedFlag; }
    UndoFlagType getUndoFlag() const { return m_undoFlag; }

    // Whether the value fits; on false, errorText says why.
    bool validate(PropertyValueBase const& value, std::string& errorText) const;
    // As validate, but raises OMException with the text.
    void check(PropertyValueBase const& value) const;

    bool operator==(PropertyDefinition const& other) const;
    bool operator!=(PropertyDefinition const& other) const { return !(*this == other); }

private:
    std::int32_t m_type = 0;
    PropertyValueBase m_defaultValue;
    SerializedFlagType m_serializedFlag = sfSerialized;
    UndoFlagType m_undoFlag = ufNoUndo;
};

} // namespace om
