// The text of a syntax error, shared by the grammars of the front end.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pre {

// Longer lists of expected terminals say nothing useful, so none is shown then.
inline constexpr int maxExpectedTerminals = 4;

// What the terminal for a byte no rule knows is called in messages.
inline constexpr std::string_view undefinedTerminalName = "$undefined";

// A terminal's name as a message shows it, given the generator's unquoted name:
// a name that holds an apostrophe, a comma or a double quote would read badly bare,
// so it is shown in its quoted form, with its quotes and backslashes escaped.
std::string displayName(std::string_view name);

// "syntax error" alone for no names, else the unexpected terminal (first name)
// followed by the expected ones (the rest, at most maxExpectedTerminals).
std::string syntaxErrorText(std::vector<std::string> const& names);

} // namespace pre
