#include "parser/grammar/ImportPaths.h"

namespace language {

std::string directoryOf(std::string const& path) {
    std::size_t separator = path.find_last_of("/\\");
    return separator == std::string::npos ? "" : path.substr(0, separator);
}

std::vector<std::string> importSearchList(std::string const& directory,
                                          std::vector<std::string> const& includePaths) {
    std::vector<std::string> list{directory};
    list.insert(list.end(), includePaths.begin(), includePaths.end());
    return list;
}

std::string candidatePath(std::string const& directory, std::string const& file) {
    return directory.empty() ? file : directory + "/" + file;
}

std::string includePathLine(std::vector<std::string> const& includePaths) {
    std::string line = "include path: [";
    for (std::string const& path : includePaths) {
        line += path + ", ";
    }
    return line + "]";
}

} // namespace language
