#include "preparser/SyntaxErrorText.h"

namespace pre {

std::string displayName(std::string_view name) {
    if (name.find_first_of("',\"") == std::string_view::npos) {
        return std::string(name);
    }
    std::string quoted = "\"";
    for (char c : name) {
        if (c == '"' || c == '\\') {
            quoted += '\\';
        }
        quoted += c;
    }
    return quoted + '"';
}

std::string syntaxErrorText(std::vector<std::string> const& names) {
    std::string text = "syntax error";
    for (std::size_t index = 0; index < names.size(); ++index) {
        text += index == 0 ? ", unexpected " : index == 1 ? ", expecting " : " or ";
        text += names[index];
    }
    return text;
}

} // namespace pre
