// A three-part version number: major.minor.patch.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>

namespace om {

class Version {
public:
    Version() = default;
    Version(std::int32_t major, std::int32_t minor, std::int32_t patch);
    // Parses "major.minor.patch"; anything else raises OMException.
    explicit Version(std::string const& text);

    std::int32_t getMajor() const { return m_major; }
    std::int32_t getMinor() const { return m_minor; }
    std::int32_t getPatch() const { return m_patch; }

    bool operator<(Version const& other) const;
    bool operator<=(Version const& other) const { return !(other < *this); }
    bool operator>(Version const& other) const { return other < *this; }
    bool operator==(Version const& other) const;
    bool operator!=(Version const& other) const { return !(*this == other); }

    std::string asString() const;

private:
    std::int32_t m_major = 0;
    std::int32_t m_minor = 0;
    std::int32_t m_patch = 0;
};

std::ostream& operator<<(std::ostream& out, Version const& version);

} // namespace om
