// Opening a source file for reading.
#pragma once

#include <fstream>
#include <string>

namespace language {

// The file opened for reading, or a stream that failed when it cannot be. A
// directory opens on Linux but reads as empty; it counts as a file that cannot
// be opened, so that naming one is reported instead of parsing as nothing.
std::ifstream openSourceFile(std::string const& path);

} // namespace language
