// Base of every front-end pass: the list of errors and the helpers on names.
#pragma once

#include "parser/ErrorElement.h"
#include "parser/Location.h"
#include "parser/Name.h"

#include <ostream>
#include <string>
#include <vector>

namespace language {

class ParserBase {
public:
    virtual ~ParserBase() = default;

    // Records an error of the source; the pass goes on.
    void error(location const& where, std::string const& message);
    bool hasErrors() const { return !m_errors.empty(); }
    void clearErrors() { m_errors.clear(); }
    std::vector<ErrorElement> const& errors() const { return m_errors; }

    // Takes over another pass's errors, after the own ones.
    void importErrors(ParserBase const& other);

    // "file:line:column: message", one line per error, in the order of reporting.
    void printErrors(std::ostream& out) const;

    // "file:line:column" of the begin, or nothing when the location names no file.
    static std::string asString(location const& where);

    // The name between apostrophes, as every message shows names.
    static std::string q(std::string const& name) { return "'" + name + "'"; }

    // Every failing result of a pass goes through here.
    static bool FALSE() { return false; }

    static Name createName(std::string const& text, location const& where) { return {text, where}; }

    // The parts joined with ".", spanning from the first to the last part.
    static Name concatNames(Names const& names);
    static Name concatNames(Name const& first, Name const& second);
    static std::string concatNameIds(Names const& names);
    // All but the last part joined, or no name for fewer than two parts.
    static Name prepartName(Names const& names);
    // All but the first part joined.
    static Name tailName(Names const& names);
    static Names tail(Names const& names);
    static Name firstName(Names const& names);
    static Name lastName(Names const& names);
    static bool isVariable(Names const& names) { return names.size() == 1; }

private:
    std::vector<ErrorElement> m_errors;
};

} // namespace language
