// Drives one source stream from its characters to syntax-tree objects in the
// store, parsing each imported file with a parser of its own on the same store.
#pragma once

#include "parser/grammar/GrammarActions.h"

#include <cstddef>
#include <istream>
#include <set>
#include <string>
#include <vector>

namespace language {

class Parser : public GrammarActions {
public:
    // How the file being parsed was reached; it decides what the tree keeps of it.
    enum Imported {
        NotImported = 0,        // the main source
        ImportedUsable = 1,     // declares types or interfaces at top level
        ImportedComponents = 2, // holds components only
    };

    // For a main source.
    explicit Parser(om::ObjectModel& model);
    // For an imported file, sharing the importer's list of files.
    Parser(om::ObjectModel& model, Files* files, Imported imported, bool fullImports);

    // Parses the file; false when it cannot be opened or has errors. With
    // `check`, the resolved tree is checked as well.
    bool parseFile(std::string const& file, std::vector<std::string> const& includePaths,
                   bool fullImports, bool check);
    // Parses the stream under the given name, then, with `resolve`, resolves the
    // whole tree, also after a failed parse, and with `check` checks it; true
    // without errors.
    bool parseStream(std::istream& stream, std::string const& name,
                     std::vector<std::string> const& includePaths, bool fullImports, bool check,
                     bool resolve);
    // parseStream, with imports looked for next to the named file first.
    bool parseStreamRecursive(std::istream& stream, std::string const& name, bool fullImports,
                              bool check);

    // Each nested import parses inside its importer's parse, on the call stack;
    // a chain of imports longer than this is refused at the clause that would
    // exceed it. Real sources import a few levels deep.
    static constexpr std::size_t maxImportDepth = 100;

    // Lets the generated scanner and parser report their steps on the log stream.
    void setTracing(bool scanning, bool parsing) {
        m_traceScanning = scanning;
        m_traceParsing = parsing;
    }

    // "cannot open" with the quoted name, at the clause that asked for it if any.
    void fileNotFound(std::string const& file, location const* where);

    Scanner& scanner() override { return *m_scanner; }
    std::string const* streamName() const override { return &m_fileName; }

    void handleImportClause(std::string const& file, L const& where) override;
    void handleImportedClause(std::string const& file, L const& where) override;
    void handleFileClause(std::string const& file, L const& where) override;
    void handleDirClause(std::string const& directory, L const& where) override;
    om::Oid constructAllTypesAndModels(Oids const& declarations) override;
    om::Oid constructNativeStatement(L const& begin, L const& end, L const& at,
                                     std::string const& text) override;
    om::Oid constructNamespaceDeclaration(L const& begin, L const& end, L const& at,
                                          Names const& names, Oids const& declarations) override;
    om::Oid constructInterfaceDeclaration(L const& begin, L const& end, L const& at,
                                          Names const& names, Oids const& declarations,
                                          om::Oid behaviour) override;
    om::Oid constructEventDeclaration(L const& begin, L const& end, L const& at,
                                      kel::EventDirection direction, Names const& type,
                                      Name const& name, Oids const& parameters) override;
    om::Oid constructBehaviour(L const& begin, L const& end, L const& at, Name const& name,
                               Oids const& declarationsAndStatements) override;
    om::Oid constructDataTypeDeclaration(L const& begin, L const& end, L const& at,
                                         Names const& names, std::string const& data) override;
    om::Oid constructEnumTypeDeclaration(L const& begin, L const& end, L const& at,
                                         Names const& names, Oids const& values) override;
    om::Oid constructEnumValueDeclaration(L const& begin, L const& end, L const& at,
                                          Name const& name) override;
    om::Oid constructIntTypeDeclaration(L const& begin, L const& end, L const& at,
                                        Names const& names, std::int32_t lower,
                                        std::int32_t upper) override;
    om::Oid constructVariableDeclaration(L const& begin, L const& end, L const& at,
                                         Names const& type, Name const& name,
                                         om::Oid initialValue) override;
    om::Oid constructInternalDeclaration(L const& begin, L const& end, L const& at,
                                         Names const& interface, Name const& name,
                                         Oids const& parameters) override;
    om::Oid constructFunctionDeclaration(L const& begin, L const& end, L const& at,
                                         Names const& type, Name const& name,
                                         Oids const& parameters, Oids const& body) override;
    om::Oid constructFormalParameter(L const& begin, L const& end, L const& at,
                                     kel::ParameterDirection direction, Names const& type,
                                     Name const& name) override;
    om::Oid constructComponentDeclaration(L const& begin, L const& end, L const& at,
                                          Names const& names, Oids const& ports, om::Oid behaviour,
                                          om::Oid system) override;
    om::Oid constructPortDeclaration(L const& begin, L const& end, L const& at,
                                     Direction const& direction, Names const& interface,
                                     Name const& name) override;
    om::Oid constructSystem(L const& begin, L const& end, L const& at,
                            Oids const& statements) override;
    om::Oid constructInstantiationStatement(L const& begin, L const& end, L const& at,
                                            Names const& component, Name const& name) override;
    om::Oid constructBindingStatement(L const& begin, L const& end, L const& at, Names const& left,
                                      Names const& right) override;
    om::Oid constructGuardedStatement(L const& begin, L const& end, L const& at, om::Oid guard,
                                      om::Oid statement) override;
    om::Oid constructExpressionGuard(L const& begin, L const& end, L const& at,
                                     om::Oid expression) override;
    om::Oid constructOtherwiseGuard(L const& begin, L const& end, L const& at) override;
    om::Oid constructCompoundBehaviourStatement(L const& begin, L const& end, L const& at,
                                                Oids const& statements) override;
    om::Oid constructOnEventStatement(L const& begin, L const& end, L const& at,
                                      Oids const& triggers, om::Oid statement) override;
    om::Oid constructBlockingStatement(L const& begin, L const& end, L const& at,
                                       om::Oid statement) override;
    om::Oid constructOptionalInstance(L const& begin, L const& end, L const& at) override;
    om::Oid constructInevitableInstance(L const& begin, L const& end, L const& at) override;
    om::Oid constructEventInstance(L const& begin, L const& end, L const& at,
                                   Compound const& event) override;
    om::Oid constructIllegalStatement(L const& begin, L const& end, L const& at) override;
    om::Oid constructAssignmentBehaviourStatement(L const& begin, L const& end, L const& at,
                                                  Name const& variable,
                                                  om::Oid expression) override;
    om::Oid constructActionOrFunctionCallStatement(L const& begin, L const& end, L const& at,
                                                   Compound const& call) override;
    om::Oid constructIfStatement(L const& begin, L const& end, L const& at, om::Oid condition,
                                 om::Oid thenStatement, om::Oid elseStatement) override;
    om::Oid constructReplyStatement(L const& begin, L const& end, L const& at, Names const& port,
                                    om::Oid value) override;
    om::Oid constructReturnStatement(L const& begin, L const& end, L const& at,
                                     om::Oid value) override;
    om::Oid constructNotExpression(L const& begin, L const& end, L const& at,
                                   om::Oid operand) override;
    om::Oid constructAndExpression(L const& begin, L const& end, L const& at, om::Oid left,
                                   om::Oid right) override;
    om::Oid constructOrExpression(L const& begin, L const& end, L const& at, om::Oid left,
                                  om::Oid right) override;
    om::Oid constructIsEqualExpression(L const& begin, L const& end, L const& at, om::Oid left,
                                       om::Oid right) override;
    om::Oid constructIsNotEqualExpression(L const& begin, L const& end, L const& at, om::Oid left,
                                          om::Oid right) override;
    om::Oid constructIsLessExpression(L const& begin, L const& end, L const& at, om::Oid left,
                                      om::Oid right) override;
    om::Oid constructIsLessEqualExpression(L const& begin, L const& end, L const& at, om::Oid left,
                                           om::Oid right) override;
    om::Oid constructIsGreaterExpression(L const& begin, L const& end, L const& at, om::Oid left,
                                         om::Oid right) override;
    om::Oid constructIsGreaterEqualExpression(L const& begin, L const& end, L const& at,
                                              om::Oid left, om::Oid right) override;
    om::Oid constructPlusExpression(L const& begin, L const& end, L const& at, om::Oid left,
                                    om::Oid right) override;
    om::Oid constructMinusExpression(L const& begin, L const& end, L const& at, om::Oid left,
                                     om::Oid right) override;
    om::Oid constructDataExpression(L const& begin, L const& end, L const& at,
                                    std::string const& data) override;
    om::Oid constructAssignmentExpression(L const& begin, L const& end, L const& at,
                                          Name const& variable, Name const& value) override;
    om::Oid constructNamedExpression(L const& begin, L const& end, L const& at,
                                     Compound const& named) override;
    om::Oid constructIntConstantExpression(L const& begin, L const& end, L const& at,
                                           std::int32_t value) override;
    om::Oid constructBoolConstantExpression(L const& begin, L const& end, L const& at,
                                            std::string const& value) override;

private:
    // The passes over the parsed tree; true when all that ran passed.
    bool resolveAndCheck(bool check);

    // Where the declaration behind a dotted name goes in the namespace around it.
    enum class Container { Namespaces, Types, Models };

    // Builds nothing in an imported file that holds only components, unless imports are full.
    bool skipsComponentsOnly() const;
    // Builds nothing in any imported file, unless imports are full.
    bool skipsImported() const;
    // Whether models made now are marked as coming from another file.
    bool marksImported() const;
    // Reports the first part of the tree that nests too deep for the passes that
    // follow, which then must not run.
    bool checkNestingDepth();
    // Removes an object that the tree will not hold, with everything below it.
    void drop(om::Oid id);
    void reportCompoundName(kel::Namespace const& misplaced);
    // The declaration of a dotted name a.b.X: namespaces a and b around the X that
    // makeOne builds for the last name.
    template <class MakeOne> om::Oid constructNested(L const& at, Names const& names,
                                                     Container container, MakeOne const& makeOne);
    // Sorts declarations into a namespace's containers by their class.
    void fileDeclarations(kel::Namespace& container, Oids const& declarations);
    // Puts one part of a behaviour body where it belongs.
    void fileBehaviourPart(kel::Behaviour& behaviour, kel::CompoundStatement& body, om::Oid id);
    // Gives an internal port of kind kel.async its own interface; reports any other kind.
    void fileAsyncInternal(kel::InternalDeclaration const& internal);
    // Reports each argument of an event instance that is neither a name nor a <- b.
    void checkEventArguments(Oids const& arguments, L const& at);
    // Puts one part of a function body where it belongs.
    void fileFunctionPart(kel::CompoundStatement& body, om::Oid id);
    // A binary expression made by the helper, or nothing where skipped.
    om::Oid constructBinary(om::Oid (*helper)(om::ObjectModel&, om::Oid, om::Oid), L const& b,
                            L const& e, L const& a, om::Oid left, om::Oid right);
    // Gives one side of a binding its locations.
    void locateBindingSide(kel::InterfaceInstance const& side, Names const& names);

    bool m_traceScanning = false;
    bool m_traceParsing = false;
    std::string m_fileName;
    std::vector<std::string> m_includePaths;
    // No behaviour and no system clause met since the last model was made.
    bool m_foreign = true;
    Scanner* m_scanner = nullptr;
    std::string m_directory = ".";
    Imported m_imported = NotImported;
    bool m_fullImports = false;
    // How many imports lead from the main source to this file.
    std::size_t m_importDepth = 0;

    // Every path opened for parsing in this process; imports consult it.
    static std::set<std::string> m_parsedFiles;
};

} // namespace language
