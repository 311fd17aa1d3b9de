// Run-time description of one association: target class, kind and bound.
#pragma once

#include "om/AssociationValue.h"
#include "om/MemberFlags.h"

#include <cstdint>
#include <string>

namespace om {

class ObjectModel;

class AssociationDefinition {
public:
    enum AssociationType : std::int32_t { atZeroOne = 0, atList = 1, atSet = 2 };

    AssociationDefinition() = default;
    // Raises OMException for an empty class name, or atZeroOne with a maximum other than 1.
    AssociationDefinition(std::string className, AssociationType type,
                          std::uint64_t multiplicityMax, SerializedFlagType serializedFlag);

    AssociationType getAssociationType() const { return m_type; }
    std::string const& getClassName() const { return m_className; }
    // 0 means no limit.
    std::uint64_t getMultiplicityMax() const { return m_multiplicityMax; }
    SerializedFlagType getSerializedFlag() const { return m_serializedFlag; }

    // Checks count, uniqueness and, when a model is given, the targets; on
    // false errorText holds the first failure, on true it is left untouched.
    bool validate(ObjectModel const* model, AssociationValue const& value,
                  std::string& errorText) const;
    // As validate, but raises OMException with the text.
    void check(ObjectModel const* model, AssociationValue const& value) const;

    bool operator==(AssociationDefinition const& other) const;
    bool operator!=(AssociationDefinition const& other) const { return !(*this == other); }
    bool operator<(AssociationDefinition const& other) const;

private:
    AssociationType m_type = atZeroOne;
    std::string m_className;
    std::uint64_t m_multiplicityMax = 1;
    SerializedFlagType m_serializedFlag = sfSerialized;
};

} // namespace om
