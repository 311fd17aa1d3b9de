// The lines of source text around a selection, read while the page is made
// so that the page needs no file beside it. A file that cannot be found
// leaves the excerpt out: the diagram may travel without its sources.
#pragma once

#include "view/Diagram.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace view {

struct ExcerptLine {
    long number = 0;
    std::string text;
    bool selected = false;
};

// Finds and reads the files that selections name, each once.
class SourceFiles {
public:
    // A relative name is looked up in the current directory first, then in
    // `diagramDirectory` (empty when the diagram came from standard input).
    explicit SourceFiles(std::string diagramDirectory);

    // The lines of `name`, or null when no such file can be read.
    std::vector<std::string> const* lines(std::string const& name);

private:
    std::string m_diagramDirectory;
    std::map<std::string, std::optional<std::vector<std::string>>> m_files;
};

// The selected lines with two lines of context either side, long selections
// cut after a few lines; empty when the file is missing or the lines are not there.
std::vector<ExcerptLine> excerpt(SourceFiles& files, Selection const& selection);

} // namespace view
