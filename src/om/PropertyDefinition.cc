#include "om/PropertyDefinition.h"

#include "om/OMException.h"

namespace om {

PropertyDefinition::PropertyDefinition(std::int32_t type, PropertyValueImpl const& defaultValue,
                                       SerializedFlagType serializedFlag, UndoFlagType undoFlag)
    : m_type(type), m_defaultValue(defaultValue), m_serializedFlag(serializedFlag),
      m_undoFlag(undoFlag) {
    check(m_defaultValue);
}

bool PropertyDefinition::validate(PropertyValueBase const& value, std::string& errorText) const {
    return value.validate(*this, errorText);
}

void PropertyDefinition::check(PropertyValueBase const& value) const {
    std::string errorText;
    if (!validate(value, errorText)) {
        throw OMException(errorText);
    }
}

bool PropertyDefinition::operator==(PropertyDefinition const& other) const {
    return m_type == other.m_type && m_defaultValue == other.m_defaultValue &&
           m_serializedFlag == other.m_serializedFlag && m_undoFlag == other.m_undoFlag;
}

} // namespace om
