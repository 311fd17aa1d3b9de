#include "metamodel/StringConversions.h"

#include <boost/iterator/transform_iterator.hpp>

#include <algorithm>
#include <locale>
#include <sstream>
#include <string_view>

namespace kel {
namespace {

char ToLowerAscii(char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; }

bool EqualsIgnoringCase(std::string const& text, std::string_view lowerCase) {
    auto const begin = boost::iterators::make_transform_iterator(text.begin(), ToLowerAscii);
    auto const end = boost::iterators::make_transform_iterator(text.end(), ToLowerAscii);
    return std::equal(begin, end, lowerCase.begin(), lowerCase.end());
}

} // namespace

std::string Bool2String(bool value) { return value ? "1" : "0"; }

void String2Bool(std::string const& text, bool& out) {
    out = text == "1" || EqualsIgnoringCase(text, "true");
}

std::string Int2String(std::int32_t value) {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << value;
    return out.str();
}

void String2Int(std::string const& text, std::int32_t& out) {
    out = 0;
    std::istringstream in(text);
    in.imbue(std::locale::classic());
    in >> out;
}

std::string String2String(std::string const& text) { return text; }

void String2String(std::string const& text, std::string& out) { out = text; }

} // namespace kel
