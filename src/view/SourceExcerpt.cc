#include "view/SourceExcerpt.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace view {

namespace {

constexpr long context = 2;      // lines shown before and after the selection
constexpr long longestShown = 6; // selected lines shown of a long selection

std::optional<std::vector<std::string>> readLines(std::filesystem::path const& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        return std::nullopt;
    }
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        return std::nullopt;
    }
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        if (line.ends_with('\r')) {
            line.pop_back();
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

} // namespace

SourceFiles::SourceFiles(std::string diagramDirectory)
    : m_diagramDirectory(std::move(diagramDirectory)) {}

std::vector<std::string> const* SourceFiles::lines(std::string const& name) {
    auto found = m_files.find(name);
    if (found == m_files.end()) {
        std::filesystem::path const path(name);
        auto lines = readLines(path);
        if (!lines && path.is_relative() && !m_diagramDirectory.empty()) {
            lines = readLines(std::filesystem::path(m_diagramDirectory) / path);
        }
        found = m_files.emplace(name, std::move(lines)).first;
    }
    return found->second ? &*found->second : nullptr;
}

std::vector<ExcerptLine> excerpt(SourceFiles& files, Selection const& selection) {
    std::vector<std::string> const* lines = files.lines(selection.file);
    long const count = lines ? static_cast<long>(lines->size()) : 0;
    if (selection.line < 1 || selection.line > count) {
        return {};
    }
    long const lastSelected = std::max(selection.line, selection.endLine);
    long const shownEnd = std::min(lastSelected, selection.line + longestShown - 1);
    std::vector<ExcerptLine> result;
    for (long n = std::max(1L, selection.line - context); n <= std::min(count, shownEnd + context);
         ++n) {
        result.push_back({n, (*lines)[n - 1], n >= selection.line && n <= lastSelected});
    }
    return result;
}

} // namespace view
