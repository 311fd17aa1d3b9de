// Pre-parser of an imported file: tells whether it declares anything usable.
#pragma once

#include "preparser/Location.h"

#include <istream>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace pre {

class PreScanner;

class PreParser {
public:
    // True if the stream passes the pre-parser's grammar; errors are kept for later.
    bool parseStream(std::istream& stream, std::string const& name);

    // Opens the file and parses it under its own name; an unreadable file is an error.
    bool parseFile(std::string const& file);

    bool hasErrors() const { return !m_errors.empty(); }
    bool hasUsable() const { return m_hasUsable; }
    void setHasUsable(bool usable) { m_hasUsable = usable; }

    // Records one error; the generated parser reports through it.
    void error(location const& where, std::string const& message);

    // One line per error: location, ": ", message.
    void printErrors(std::ostream& out) const;

    // Forgets the errors and the scanner of the last parse.
    void clear();

    std::vector<std::pair<location, std::string>> const& errors() const { return m_errors; }

    // Lets the generated scanner and parser report their steps on the log stream.
    void setTracing(bool scanning, bool parsing) {
        m_traceScanning = scanning;
        m_traceParsing = parsing;
    }

    // The running parse's scanner and the name its locations point at.
    PreScanner& scanner() { return *m_scanner; }
    std::string const& streamName() const { return m_streamName; }

private:
    bool m_traceScanning = false;
    bool m_traceParsing = false;
    std::string m_streamName;
    PreScanner* m_scanner = nullptr;
    bool m_hasUsable = false;
    std::vector<std::pair<location, std::string>> m_errors;
};

} // namespace pre
