// Run-time description of one composition: child class and bounds.
#pragma once

#include "om/CompositionValue.h"
#include "om/MemberFlags.h"

#include <cstdint>
#include <string>

namespace om {

class ObjectModel;

class CompositionDefinition {
public:
    CompositionDefinition() = default;
    // Raises OMException for an empty class name, or a nonzero maximum below the minimum.
    CompositionDefinition(std::string className, std::uint64_t multiplicityMin,
                          std::uint64_t multiplicityMax, SerializedFlagType serializedFlag);

    std::string const& getClassName() const { return m_className; }
    std::uint64_t getMultiplicityMin() const { return m_multiplicityMin; }
    // 0 means no limit.
    std::uint64_t getMultiplicityMax() const { return m_multiplicityMax; }
    SerializedFlagType getSerializedFlag() const { return m_serializedFlag; }

    // Checks the bounds and, when a model is given, the children; on false
    // errorText holds the first failure, on true it is left untouched.
    bool validate(ObjectModel const* model, CompositionValue const& value,
                  std::string& errorText) const;
    // As validate, but raises OMException with the text.
    void check(ObjectModel const* model, CompositionValue const& value) const;

    bool operator==(CompositionDefinition const& other) const;
    bool operator!=(CompositionDefinition const& other) const { return !(*this == other); }
    bool operator<(CompositionDefinition const& other) const;

private:
    std::string m_className;
    std::uint64_t m_multiplicityMin = 0;
    std::uint64_t m_multiplicityMax = 0;
    SerializedFlagType m_serializedFlag = sfSerialized;
};

} // namespace om
