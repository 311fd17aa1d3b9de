// Where the file named by an import clause is looked for.
#pragma once

#include <string>
#include <vector>

namespace language {

// The path up to, not including, its last '/' or '\'; empty when it has neither.
std::string directoryOf(std::string const& path);

// The importing file's directory first, then the include paths in order.
std::vector<std::string> importSearchList(std::string const& directory,
                                          std::vector<std::string> const& includePaths);

// The file inside the directory; the file alone for the empty directory.
std::string candidatePath(std::string const& directory, std::string const& file);

// "include path: [a, b, ]": what the log shows when an import is found nowhere.
std::string includePathLine(std::vector<std::string> const& includePaths);

} // namespace language
