#include "parser/grammar/SourceFile.h"

#include <filesystem>
#include <system_error>

namespace language {

std::ifstream openSourceFile(std::string const& path) {
    std::ifstream stream;
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored)) {
        stream.setstate(std::ios::failbit);
    } else {
        stream.open(path, std::ios::binary);
    }
    return stream;
}

} // namespace language
