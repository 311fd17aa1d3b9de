#include "preparser/PreParser.h"

#include "preparser/PreBisonParser.h"
#include "preparser/PreScanner.h"

#include <fstream>

namespace pre {

namespace {

// The scanner lives on parseStream's frame; the pointer to it must not outlive it.
struct ScannerBinding {
    PreScanner*& slot;
    ~ScannerBinding() { slot = nullptr; }
};

} // namespace

bool PreParser::parseStream(std::istream& stream, std::string const& name) {
    m_errors.clear();
    m_streamName = name;
    PreScanner scanner(&stream, nullptr);
    scanner.set_debug(m_traceScanning);
    m_scanner = &scanner;
    ScannerBinding binding{m_scanner};
    PreBisonParser parser(*this);
    parser.set_debug_level(m_traceParsing);
    return parser.parse() == 0 && !hasErrors();
}

bool PreParser::parseFile(std::string const& file) {
    std::ifstream stream(file);
    // Reported like an import that finds no file, so the caller sees it in the list.
    if (!stream) {
        m_errors.clear();
        error(location(), "cannot open '" + file + "'");
        return false;
    }
    return parseStream(stream, file);
}

void PreParser::error(location const& where, std::string const& message) {
    m_errors.emplace_back(where, message);
}

void PreParser::printErrors(std::ostream& out) const {
    for (auto const& [where, message] : m_errors) {
        out << where << ": " << message << std::endl;
    }
}

void PreParser::clear() {
    m_errors.clear();
    m_scanner = nullptr;
}

} // namespace pre
