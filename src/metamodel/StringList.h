// A list of strings as one text: blocks separated by commas, with the
// backslash escaping a comma or a backslash inside a block.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace kel {

// Puts a backslash before every backslash and every comma.
std::string EscapeSeparator(std::string const& text);
// Appends a comma unless `text` is empty, then the escaped block.
void AddBlock(std::string& text, std::string const& block);
std::string StringVector2String(std::vector<std::string> const& list);
// Reads one block from `position`. True when a comma ended it, or, at the end
// of the text, when the block is not empty; `position` moves past what was read.
bool GetUnescapedBlock(std::string const& text, std::size_t& position, std::string& block);
// An empty last block is dropped: "a," gives one element.
void String2StringVector(std::string const& text, std::vector<std::string>& list);

} // namespace kel
