#include "om/Oid.h"

#include <cstdlib>

namespace om {

OidGenerator* OidGenerator::m_Instance = nullptr;

OidGenerator& OidGenerator::instance() {
    if (!m_Instance) {
        m_Instance = new OidGenerator; // lives until the process ends
    }
    return *m_Instance;
}

} // namespace om

std::string Oid2String(om::Oid id) { return std::to_string(id); }

om::Oid String2Oid(std::string const& text) {
    // The tool never changes the locale, so strtoll reads in the "C" locale.
    return std::strtoll(text.c_str(), nullptr, 10);
}
