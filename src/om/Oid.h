// Object identifiers and the process-wide generator that hands them out.
#pragma once

#include <cstdint>
#include <string>

namespace om {

using Oid = std::int64_t;

// Means "no object"; the generator never hands it out.
inline constexpr Oid NULL_OID = 0;

// One counter for the whole process, so ids are unique across object models.
class OidGenerator {
public:
    // The one generator, made on the first call.
    static OidGenerator& instance();

    // The next id; the first of a process is 1.
    Oid getNewOid() { return ++m_lastOid; }

private:
    OidGenerator() = default;

    static OidGenerator* m_Instance;
    Oid m_lastOid = 0;
};

} // namespace om

// Decimal digits, with a minus sign for negative ids, never grouped.
std::string Oid2String(om::Oid id);

// Reads a decimal integer from the start of the text, skipping leading white
// space and ignoring what follows; NULL_OID when the text holds no number.
om::Oid String2Oid(std::string const& text);
