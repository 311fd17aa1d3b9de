#include "parser/grammar/ErrorElement.h"

namespace language {

namespace {

std::shared_ptr<std::string const> copyOf(std::string const* file) {
    return file == nullptr ? nullptr : std::make_shared<std::string const>(*file);
}

} // namespace

ErrorElement::ErrorElement(language::location const& where, std::string message)
    : m_beginFile(copyOf(where.begin.filename)), m_endFile(copyOf(where.end.filename)),
      m_location(where), m_message(std::move(message)) {
    m_location.begin.filename = m_beginFile.get();
    m_location.end.filename = m_endFile.get();
}

} // namespace language
