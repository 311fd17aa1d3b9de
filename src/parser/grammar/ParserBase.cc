#include "parser/grammar/ParserBase.h"

namespace language {

ParserBase::ParserBase(om::ObjectModel& model)
    : m_model(model), m_ownFiles(std::make_unique<Files>()), m_files(m_ownFiles.get()) {}

ParserBase::ParserBase(om::ObjectModel& model, Files* files) : m_model(model), m_files(files) {}

void ParserBase::error(location const& where, std::string const& message) {
    m_errors.emplace_back(where, message);
}

void ParserBase::importErrors(ParserBase const& other) {
    m_errors.insert(m_errors.end(), other.m_errors.begin(), other.m_errors.end());
}

void ParserBase::printErrors(std::ostream& out) const {
    for (ErrorElement const& element : m_errors) {
        out << asString(element.location()) << ": " << element.message() << std::endl;
    }
}

std::string ParserBase::asString(location const& where) {
    if (where.begin.filename == nullptr) {
        return "";
    }
    return *where.begin.filename + ":" + std::to_string(where.begin.line) + ":" +
           std::to_string(where.begin.column);
}

Name ParserBase::concatNames(Names const& names) {
    if (names.empty()) {
        return {};
    }
    Name joined{concatNameIds(names), names.front().location};
    joined.location.end = names.back().location.end;
    return joined;
}

Name ParserBase::concatNames(Name const& first, Name const& second) {
    return concatNames(Names{first, second});
}

std::string ParserBase::concatNameIds(Names const& names) {
    std::string joined;
    for (std::size_t index = 0; index < names.size(); ++index) {
        joined += index == 0 ? names[index].name : "." + names[index].name;
    }
    return joined;
}

Name ParserBase::prepartName(Names const& names) {
    if (names.size() < 2) {
        return {};
    }
    return concatNames(Names(names.begin(), names.end() - 1));
}

Name ParserBase::tailName(Names const& names) { return concatNames(tail(names)); }

Names ParserBase::tail(Names const& names) {
    return names.size() < 2 ? Names{} : Names(names.begin() + 1, names.end());
}

Name ParserBase::firstName(Names const& names) { return names.empty() ? Name{} : names.front(); }

Name ParserBase::lastName(Names const& names) { return names.empty() ? Name{} : names.back(); }

} // namespace language
