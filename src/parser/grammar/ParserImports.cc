#include "parser/grammar/Parser.h"

#include "om/OMException.h"
#include "parser/grammar/ImportPaths.h"
#include "parser/grammar/SourceFile.h"
#include "preparser/PreParser.h"

#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

namespace language {

namespace {

// The pre-parser's first error, as the text of a failed import.
std::string preParserFailure(pre::PreParser const& preParser) {
    auto const& [where, message] = preParser.errors().front();
    std::ostringstream text;
    text << "unexpected pre-parser error: " << where << ": " << message;
    return text.str();
}

} // namespace

void Parser::handleImportClause(std::string const& file, L const& where) {
    std::vector<std::string> searchList = importSearchList(m_directory, m_includePaths);
    for (std::string const& directory : searchList) {
        std::string candidate = candidatePath(directory, file);
        if (m_parsedFiles.contains(candidate)) {
            return;
        }
        std::ifstream probe = openSourceFile(candidate);
        if (!probe) {
            continue;
        }
        pre::PreParser preParser;
        preParser.parseStream(probe, candidate);
        if (preParser.hasErrors()) {
            throw om::OMException(preParserFailure(preParser));
        }
        if (!preParser.hasUsable() && m_imported != NotImported && !m_fullImports) {
            return;
        }
        if (m_importDepth == maxImportDepth) {
            error(where, "imports nested deeper than " + std::to_string(maxImportDepth) + " files");
            return;
        }
        m_parsedFiles.insert(candidate);
        Parser imported(m_model, sharedFiles(),
                        preParser.hasUsable() ? ImportedUsable : ImportedComponents, m_fullImports);
        imported.m_importDepth = m_importDepth + 1;
        imported.m_includePaths = searchList;
        std::ifstream stream = openSourceFile(candidate);
        imported.parseStreamRecursive(stream, candidate, m_fullImports, false);
        importErrors(imported);
        return;
    }
    fileNotFound(file, &where);
    std::clog << includePathLine(m_includePaths) << std::endl;
}

void Parser::handleImportedClause(std::string const& file, L const& where) {
    handleFileClause(file, where);
    m_inImported = true;
}

void Parser::handleFileClause(std::string const& file, L const& where) {
    m_currentFile = file;
    m_lineOffset = static_cast<std::int32_t>(where.begin.line);
    m_inImported = false;
    addFile(file);
}

void Parser::handleDirClause(std::string const& directory, L const&) { m_dir = directory; }

} // namespace language
