#include "om/Version.h"

#include "om/OMException.h"

#include <regex>
#include <stdexcept>
#include <tuple>

namespace om {

Version::Version(std::int32_t major, std::int32_t minor, std::int32_t patch)
    : m_major(major), m_minor(minor), m_patch(patch) {}

Version::Version(std::string const& text) {
    static std::regex const pattern("([0-9]*)\\.([0-9]*)\\.([0-9]*)");
    std::smatch match;
    try {
        if (!std::regex_match(text, match, pattern)) {
            throw std::invalid_argument(text);
        }
        // stoi rejects an empty group and a number beyond 32 bits.
        m_major = std::stoi(match[1].str());
        m_minor = std::stoi(match[2].str());
        m_patch = std::stoi(match[3].str());
    } catch (std::logic_error const&) {
        throw OMException("Cannot extract version number from string \"" + text + "\"");
    }
}

bool Version::operator<(Version const& other) const {
    return std::tie(m_major, m_minor, m_patch) <
           std::tie(other.m_major, other.m_minor, other.m_patch);
}

bool Version::operator==(Version const& other) const {
    return std::tie(m_major, m_minor, m_patch) ==
           std::tie(other.m_major, other.m_minor, other.m_patch);
}

std::string Version::asString() const {
    return std::to_string(m_major) + "." + std::to_string(m_minor) + "." + std::to_string(m_patch);
}

std::ostream& operator<<(std::ostream& out, Version const& version) {
    return out << version.asString();
}

} // namespace om
