#include "OutputFile.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace kel::gen {
namespace {

std::string ReadAll(std::filesystem::path const& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

} // namespace

void WriteIfChanged(std::filesystem::path const& path, std::string const& text) {
    if (std::filesystem::exists(path) && ReadAll(path) == text) {
        return;
    }
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << text;
    if (!out) {
        throw std::runtime_error("cannot write " + path.string());
    }
}

} // namespace kel::gen
