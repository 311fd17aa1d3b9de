// Text forms of the basic property values, independent of the locale.
#pragma once

#include <cstdint>
#include <string>

namespace kel {

// "1" or "0".
std::string Bool2String(bool value);
// True for "1" and for "true" in any case, false for anything else.
void String2Bool(std::string const& text, bool& out);
std::string Int2String(std::int32_t value);
// 0 unless the text starts with a decimal integer.
void String2Int(std::string const& text, std::int32_t& out);
std::string String2String(std::string const& text);
void String2String(std::string const& text, std::string& out);

} // namespace kel
