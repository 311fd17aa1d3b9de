// Base of every front-end pass: the store, the files, the errors, and the
// helpers on names, locations, built-in types and events, and event lists.
#pragma once

#include "metamodel/Kel.h"
#include "om/ObjectModel.h"
#include "parser/grammar/ErrorElement.h"
#include "parser/grammar/Location.h"
#include "parser/grammar/Name.h"

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <unordered_map>
#include <vector>

namespace language {

class ParserBase {
public:
    using Files = std::vector<kel::File const*>;

    // With a list of files of its own.
    explicit ParserBase(om::ObjectModel& model);
    // Sharing the caller's list of files, which must outlive this object.
    ParserBase(om::ObjectModel& model, Files* files);
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

    // A new File under the Root, also for a name that is there already.
    kel::File const& addFile(std::string const& name);
    // The first File of the parse with that name; OMException when there is none.
    kel::File const& GetFile(std::string const& name) const;

    // The span of a syntax-tree object, pointing at its File's name.
    static location getLocation(kel::Location const& object);
    // Books begin's begin, end's end and at's begin on the object, shifted into
    // the file of the last "#file" or "#imported" clause when that is another.
    void setLocation(kel::Location& object, location const& begin, location const& end,
                     location const& at) const;
    void setLocation(kel::Location& object, location const& where) const;
    void setLocation(kel::Location& object, kel::Location const& other) const;
    // setLocation on a copy of the stored object, then stored; returns its id.
    om::Oid updateLocation(om::Oid id, location const& begin, location const& end,
                           location const& at);
    om::Oid updateLocation(om::Oid id, location const& where);
    void setNameAndLocation(kel::Named& object, Name const& name) const;
    void setNameAndLocation(kel::Named& object, std::string const& name, location const& begin,
                            location const& end, location const& at) const;
    static Name copyName(kel::Named const& object);

    // The same declaration, or two integer types whatever their ranges, or two
    // data types.
    static bool isEqualType(kel::TypeDeclaration const& a, kel::TypeDeclaration const& b);
    static bool isBooleanType(kel::TypeDeclaration const& type);
    static bool isIntType(kel::TypeDeclaration const& type);
    static bool isDataType(kel::TypeDeclaration const& type);
    // The store's "bool", found once: the lookup walks the whole default namespace.
    kel::TypeDeclaration const& getBoolType();
    // Types of constants, outside the store and the tree: they live as long as
    // this pass, so that checking leaves the store as it was.
    kel::IntTypeDeclaration const& getIntType() const { return m_intType; }
    kel::DataTypeDeclaration const& getDataType() const { return m_dataType; }

    // "illegal", "optional" and "inevitable".
    static bool isBuiltin(std::string const& name);
    // By the name of the instance's event.
    static bool isBuiltin(kel::EventInstance const& instance);
    // "illegal" is the store's one event; "optional" and "inevitable" are those
    // of the enclosing interface, or null outside one. OMException for another name.
    kel::EventDeclaration const* tryGetBuiltinEvent(kel::EventInstance const& instance);
    // The interface's event of that name, added with its first use.
    kel::EventDeclaration const& getOptionalEvent(kel::InterfaceDeclaration const& interface);
    kel::EventDeclaration const& getInevitableEvent(kel::InterfaceDeclaration const& interface);

    // Whether an element of the list is the same event on the same port.
    static bool vecIsMember(kel::EventInstance const& event,
                            kel::ConstEventInstanceVec const& list);
    // New instances of the events that can start a run of the model: the in
    // events of an interface; for a component, what comes in through each port,
    // then the out events of the internals of its behaviour.
    kel::ConstEventInstanceVec GetAllTriggers(kel::ModelDeclaration const& model);
    // Destroys the instances and empties the list.
    void ClearAllTriggers(kel::ConstEventInstanceVec& triggers);

protected:
    // The list of files, to share with a parser of an imported file.
    Files* sharedFiles() { return m_files; }

    std::string m_dir;
    std::string m_currentFile;
    std::int32_t m_lineOffset = 0;
    bool m_inImported = false;
    om::ObjectModel& m_model;

private:
    // The file that a position in the named stream is booked on, with its line shift.
    std::pair<kel::File const*, std::int32_t> bookedFile(std::string const* streamName) const;
    kel::EventDeclaration const& getInterfaceEvent(kel::InterfaceDeclaration const& interface,
                                                   std::string const& name);
    // The instances that can come in on the port: calls on a provided port,
    // notifications on a required one.
    void addPortTriggers(kel::PortDeclaration const& port, kel::ConstEventInstanceVec& triggers);
    void addTriggers(kel::PortDeclaration const& port, kel::EventDirection wanted,
                     kel::ConstEventInstanceVec& triggers);
    kel::EventInstance const& storedInstance(om::Oid id) const;
    static kel::IntTypeDeclaration makeIntType();
    static kel::DataTypeDeclaration makeDataType();

    std::unique_ptr<Files> m_ownFiles;
    Files* m_files;
    // The first File of each name among the first m_indexedFiles of m_files.
    // Others that share m_files append to it, so the index catches up on lookup;
    // every booked location looks its file up.
    mutable std::unordered_map<std::string, kel::File const*> m_fileIndex;
    mutable std::size_t m_indexedFiles = 0;
    std::vector<ErrorElement> m_errors;
    kel::TypeDeclaration const* m_boolType = nullptr;
    kel::EventDeclaration const* m_illegalEvent = nullptr;
    kel::IntTypeDeclaration const m_intType = makeIntType();
    kel::DataTypeDeclaration const m_dataType = makeDataType();
};

} // namespace language
