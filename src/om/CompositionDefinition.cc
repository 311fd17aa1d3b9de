#include "om/CompositionDefinition.h"

#include "om/OMException.h"
#include "om/ObjectModel.h"

#include <tuple>

namespace om {

CompositionDefinition::CompositionDefinition(std::string className, std::uint64_t multiplicityMin,
                                             std::uint64_t multiplicityMax,
                                             SerializedFlagType serializedFlag)
    : m_className(std::move(className)), m_multiplicityMin(multiplicityMin),
      m_multiplicityMax(multiplicityMax), m_serializedFlag(serializedFlag) {
    if (m_className.empty()) {
        throw OMException("className should not be empty");
    }
    if (m_multiplicityMax != 0 && m_multiplicityMin > m_multiplicityMax) {
        throw OMException("multiplicityMax should be either 0 or >= multiplicityMin");
    }
}

bool CompositionDefinition::validate(ObjectModel const* model, CompositionValue const& value,
                                     std::string& errorText) const {
    if (value.size() < m_multiplicityMin) {
        errorText = "Too few elements in composition";
        return false;
    }
    if (m_multiplicityMax != 0 && value.size() > m_multiplicityMax) {
        errorText = "Too many elements in composition";
        return false;
    }
    if (model == nullptr) {
        return true;
    }
    for (Oid const id : value) {
        Object const* child = model->tryFind(id);
        if (child == nullptr) {
            errorText = "Composition links to non-existent object id " + Oid2String(id);
            return false;
        }
        if (!child->getDefinition().isDerivedFrom(m_className)) {
            errorText = "Composition links to wrong class (" + child->getClassName() +
                        " instead of " + m_className + ")";
            return false;
        }
    }
    return true;
}

void CompositionDefinition::check(ObjectModel const* model, CompositionValue const& value) const {
    std::string errorText;
    if (!validate(model, value, errorText)) {
        throw OMException(errorText);
    }
}

bool CompositionDefinition::operator==(CompositionDefinition const& other) const {
    return std::tie(m_className, m_multiplicityMin, m_multiplicityMax, m_serializedFlag) ==
           std::tie(other.m_className, other.m_multiplicityMin, other.m_multiplicityMax,
                    other.m_serializedFlag);
}

bool CompositionDefinition::operator<(CompositionDefinition const& other) const {
    return std::tie(m_className, m_multiplicityMin, m_multiplicityMax, m_serializedFlag) <
           std::tie(other.m_className, other.m_multiplicityMin, other.m_multiplicityMax,
                    other.m_serializedFlag);
}

} // namespace om
