#include "parser/grammar/ParserBase.h"

#include "metamodel/BuiltinDeclarations.h"
#include "metamodel/ConstructionSupport.h"
#include "om/OMException.h"

namespace language {

namespace {

std::int32_t asInt(std::uint32_t value) { return static_cast<std::int32_t>(value); }

std::uint32_t asCount(std::int32_t value) { return static_cast<std::uint32_t>(value); }

std::string const* fileNameOf(kel::Location const& object) {
    return object.hasFile() ? &object.getFile().getName() : nullptr;
}

} // namespace

kel::File const& ParserBase::addFile(std::string const& name) {
    om::Oid id = kel::NewNamed<kel::File>(m_model, name);
    kel::Root root(kel::GetRoot(m_model));
    root.addToFiles(id);
    m_model.update(root);
    auto const& file = kel::Find<kel::File>(m_model, id);
    m_files->push_back(&file);
    return file;
}

kel::File const& ParserBase::GetFile(std::string const& name) const {
    for (; m_indexedFiles < m_files->size(); ++m_indexedFiles) {
        kel::File const* file = (*m_files)[m_indexedFiles];
        m_fileIndex.try_emplace(file->getName(), file);
    }
    if (auto const found = m_fileIndex.find(name); found != m_fileIndex.end()) {
        return *found->second;
    }
    throw om::OMException("ObjectModel does not seem to contain File object with name " + name);
}

location ParserBase::getLocation(kel::Location const& object) {
    // Errors point at an object's main position (a declaration's name, an
    // operator), not at the start of its text.
    std::string const* file = fileNameOf(object);
    location where;
    where.begin = {file, asCount(object.getLine()), asCount(object.getColumn())};
    where.end = {file, asCount(object.getEndLine()), asCount(object.getEndColumn())};
    return where;
}

std::pair<kel::File const*, std::int32_t>
ParserBase::bookedFile(std::string const* streamName) const {
    if (!m_currentFile.empty() && (streamName == nullptr || *streamName != m_currentFile)) {
        return {&GetFile(m_currentFile), m_lineOffset};
    }
    return {streamName == nullptr ? nullptr : &GetFile(*streamName), 0};
}

void ParserBase::setLocation(kel::Location& object, location const& begin, location const& end,
                             location const& at) const {
    auto [file, shift] = bookedFile(at.begin.filename);
    object.setBeginLine(asInt(begin.begin.line) - shift);
    object.setBeginColumn(asInt(begin.begin.column));
    object.setEndLine(asInt(end.end.line) - shift);
    object.setEndColumn(asInt(end.end.column));
    object.setLine(asInt(at.begin.line) - shift);
    object.setColumn(asInt(at.begin.column));
    if (file != nullptr) {
        object.setFile(*file);
    }
}

void ParserBase::setLocation(kel::Location& object, location const& where) const {
    setLocation(object, where, where, where);
}

void ParserBase::setLocation(kel::Location& object, kel::Location const& other) const {
    location span = getLocation(other);
    location const at = span;
    span.begin = {span.begin.filename, asCount(other.getBeginLine()),
                  asCount(other.getBeginColumn())};
    setLocation(object, span, span, at);
}

om::Oid ParserBase::updateLocation(om::Oid id, location const& begin, location const& end,
                                   location const& at) {
    // A copy of the Location part suffices: the update leaves the properties
    // of the object's own class as they are.
    kel::Location copy(kel::Find<kel::Location>(m_model, id));
    setLocation(copy, begin, end, at);
    m_model.update(copy);
    return id;
}

om::Oid ParserBase::updateLocation(om::Oid id, location const& where) {
    return updateLocation(id, where, where, where);
}

void ParserBase::setNameAndLocation(kel::Named& object, Name const& name) const {
    object.setName(name.name);
    setLocation(object, name.location);
}

void ParserBase::setNameAndLocation(kel::Named& object, std::string const& name,
                                    location const& begin, location const& end,
                                    location const& at) const {
    object.setName(name);
    setLocation(object, begin, end, at);
}

Name ParserBase::copyName(kel::Named const& object) {
    return {object.getName(), getLocation(object)};
}

} // namespace language
