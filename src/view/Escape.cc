#include "view/Escape.h"

namespace view {

namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";

// The length of the valid UTF-8 sequence at the start of `text`, or 0.
std::size_t sequenceLength(std::string_view text) {
    auto const byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    unsigned char const lead = byte(0);
    std::size_t const length = lead < 0x80   ? 1
                               : lead < 0xC2 ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 0;
    if (length == 0 || length > text.size()) {
        return 0;
    }
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) {
            return 0;
        }
    }
    // Overlong forms, surrogates and code points beyond U+10FFFF.
    if ((lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xED && byte(1) >= 0xA0) ||
        (lead == 0xF0 && byte(1) < 0x90) || (lead == 0xF4 && byte(1) >= 0x90)) {
        return 0;
    }
    return length;
}

// XML 1.0 allows no control character but tab, line feed and carriage return.
bool forbiddenControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n' && c != '\r';
}

void appendAscii(std::string& out, char c) {
    switch (c) {
    case '&':
        out += "&amp;";
        break;
    case '<':
        out += "&lt;";
        break;
    case '>':
        out += "&gt;";
        break;
    case '"':
        out += "&quot;";
        break;
    case '\'':
        out += "&#39;";
        break;
    default:
        out += forbiddenControl(c) ? replacement : std::string_view(&c, 1);
    }
}

} // namespace

std::string escape(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    while (!text.empty()) {
        std::size_t const length = sequenceLength(text);
        if (length == 1) {
            appendAscii(out, text[0]);
        } else if (length == 0) {
            out += replacement;
        } else {
            out += text.substr(0, length);
        }
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return out;
}

} // namespace view
