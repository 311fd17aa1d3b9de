#include "metamodel/StringList.h"

#include <regex>

namespace kel {

std::string EscapeSeparator(std::string const& text) {
    static std::regex const separatorOrEscape(R"([\\,])");
    return std::regex_replace(text, separatorOrEscape, R"(\$&)");
}

void AddBlock(std::string& text, std::string const& block) {
    if (!text.empty()) {
        text += ',';
    }
    text += EscapeSeparator(block);
}

std::string StringVector2String(std::vector<std::string> const& list) {
    std::string text;
    for (auto const& block : list) {
        AddBlock(text, block);
    }
    return text;
}

bool GetUnescapedBlock(std::string const& text, std::size_t& position, std::string& block) {
    block.clear();
    while (position < text.size()) {
        char const c = text[position++];
        if (c == ',') {
            return true;
        }
        if (c == '\\') {
            if (position == text.size()) {
                break;
            }
            block += text[position++];
        } else {
            block += c;
        }
    }
    return !block.empty();
}

void String2StringVector(std::string const& text, std::vector<std::string>& list) {
    list.clear();
    std::size_t position = 0;
    for (std::string block; GetUnescapedBlock(text, position, block);) {
        list.push_back(block);
    }
}

} // namespace kel
