// One error of the user's source: where, and what.
#pragma once

#include "parser/grammar/Location.h"

#include <memory>
#include <string>

namespace language {

class ErrorElement {
public:
    // Copies the file names, so the error outlives the parser whose names they were.
    ErrorElement(language::location const& where, std::string message);

    language::location const& location() const { return m_location; }
    std::string const& message() const { return m_message; }

private:
    // Shared by copies of one error; the location's pointers lead here.
    std::shared_ptr<std::string const> m_beginFile;
    std::shared_ptr<std::string const> m_endFile;
    language::location m_location;
    std::string m_message;
};

} // namespace language
