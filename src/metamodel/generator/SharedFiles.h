// The generated files that cover the whole schema: the enumerations with
// their texts, the key strings, the factory table and the umbrella header.
#pragma once

#include "Schema.h"

#include <filesystem>

namespace kel::gen {

void WriteSharedFiles(Schema const& schema, std::filesystem::path const& dir);

} // namespace kel::gen
