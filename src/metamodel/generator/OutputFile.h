// Writes a generated file only when its text changed, so that the build
// recompiles only what a change of the schema really touches.
#pragma once

#include <filesystem>
#include <string>

namespace kel::gen {

void WriteIfChanged(std::filesystem::path const& path, std::string const& text);

} // namespace kel::gen
