#include "om/AssociationDefinition.h"

#include "om/OMException.h"
#include "om/ObjectModel.h"

#include <set>
#include <tuple>

namespace om {

AssociationDefinition::AssociationDefinition(std::string className, AssociationType type,
                                             std::uint64_t multiplicityMax,
                                             SerializedFlagType serializedFlag)
    : m_type(type), m_className(std::move(className)), m_multiplicityMax(multiplicityMax),
      m_serializedFlag(serializedFlag) {
    if (m_className.empty()) {
        throw OMException("className argument should not be empty");
    }
    if (m_type == atZeroOne && m_multiplicityMax != 1) {
        throw OMException("If type is atZeroOne then multiplicityMax should be 1");
    }
}

bool AssociationDefinition::validate(ObjectModel const* model, AssociationValue const& value,
                                     std::string& errorText) const {
    if (m_multiplicityMax != 0 && value.size() > m_multiplicityMax) {
        errorText = "Too many elements in association";
        return false;
    }
    if (m_type == atSet && std::set<Oid>(value.begin(), value.end()).size() != value.size()) {
        errorText = "Elements in set-type association not unique";
        return false;
    }
    if (model == nullptr) {
        return true;
    }
    for (Oid const id : value) {
        Object const* target = model->tryFind(id);
        if (target == nullptr) {
            errorText = "Association links to non-existent object id " + Oid2String(id);
            return false;
        }
        if (!target->getDefinition().isDerivedFrom(m_className)) {
            errorText = "Association links to wrong class (" + target->getClassName() +
                        " instead of " + m_className + ")";
            return false;
        }
    }
    return true;
}

void AssociationDefinition::check(ObjectModel const* model, AssociationValue const& value) const {
    std::string errorText;
    if (!validate(model, value, errorText)) {
        throw OMException(errorText);
    }
}

bool AssociationDefinition::operator==(AssociationDefinition const& other) const {
    return std::tie(m_type, m_className, m_multiplicityMax, m_serializedFlag) ==
           std::tie(other.m_type, other.m_className, other.m_multiplicityMax,
                    other.m_serializedFlag);
}

bool AssociationDefinition::operator<(AssociationDefinition const& other) const {
    return std::tie(m_type, m_className, m_multiplicityMax, m_serializedFlag) <
           std::tie(other.m_type, other.m_className, other.m_multiplicityMax,
                    other.m_serializedFlag);
}

} // namespace om
