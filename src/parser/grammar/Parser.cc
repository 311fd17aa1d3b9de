#include "parser/grammar/Parser.h"

#include "metamodel/BuiltinDeclarations.h"
#include "metamodel/Root.h"
#include "parser/checks/WellformednessChecker.h"
#include "parser/grammar/BisonParser.h"
#include "parser/grammar/ImportPaths.h"
#include "parser/grammar/NestingDepth.h"
#include "parser/grammar/Scanner.h"
#include "parser/grammar/SourceFile.h"
#include "parser/resolve/Resolver.h"
#include "parser/types/TypeChecker.h"

#include <fstream>

namespace language {

std::set<std::string> Parser::m_parsedFiles;

namespace {

// The scanner lives on parseStream's frame; the pointer to it must not outlive it.
struct ScannerBinding {
    Scanner*& slot;
    ~ScannerBinding() { slot = nullptr; }
};

} // namespace

Parser::Parser(om::ObjectModel& model) : GrammarActions(model) {}

Parser::Parser(om::ObjectModel& model, Files* files, Imported imported, bool fullImports)
    : GrammarActions(model, files), m_imported(imported), m_fullImports(fullImports) {}

bool Parser::parseFile(std::string const& file, std::vector<std::string> const& includePaths,
                       bool fullImports, bool check) {
    m_includePaths = includePaths;
    m_fullImports = fullImports;
    m_parsedFiles.insert(file);
    std::ifstream stream = openSourceFile(file);
    if (!stream) {
        fileNotFound(file, nullptr);
        return false;
    }
    return parseStreamRecursive(stream, file, fullImports, check);
}

bool Parser::parseStreamRecursive(std::istream& stream, std::string const& name, bool fullImports,
                                  bool check) {
    m_directory = directoryOf(name);
    return parseStream(stream, name, m_includePaths, fullImports, check, m_imported == NotImported);
}

bool Parser::parseStream(std::istream& stream, std::string const& name,
                         std::vector<std::string> const& includePaths, bool fullImports, bool check,
                         bool resolve) {
    m_includePaths = includePaths;
    m_fullImports = fullImports;
    clearErrors();
    m_fileName = name;
    addFile(name);
    Scanner scanner(&stream, nullptr);
    scanner.set_debug(m_traceScanning);
    m_scanner = &scanner;
    ScannerBinding binding{m_scanner};
    BisonParser parser(*this);
    parser.set_debug_level(m_traceParsing);
    bool const parsed = parser.parse() == 0 && !hasErrors();
    if (!resolve) {
        return parsed;
    }
    // The passes after parsing walk the tree recursively: a tree too deep for
    // them is reported and not walked.
    if (!checkNestingDepth()) {
        return false;
    }
    bool const passed = resolveAndCheck(check);
    return parsed && passed && !hasErrors();
}

// Resolution runs also after a failed parse; each check after it runs only
// where its premises hold.
bool Parser::resolveAndCheck(bool check) {
    Resolver resolver(m_model, sharedFiles());
    bool const resolved = resolver.resolveAllReferences();
    importErrors(resolver);
    if (!check) {
        return resolved;
    }
    TypeChecker typeChecker(m_model, sharedFiles());
    bool const typed = typeChecker.checkAllExpressionTypes();
    importErrors(typeChecker);
    // Well-formedness rules assume a resolved and well-typed tree.
    if (!resolved || !typed) {
        return false;
    }
    WellformednessChecker wellformednessChecker(m_model, sharedFiles());
    bool const wellformed = wellformednessChecker.checkWellformedness();
    importErrors(wellformednessChecker);
    return wellformed;
}

bool Parser::checkNestingDepth() {
    om::Object const* tooDeep = findTooDeep(kel::GetRoot(m_model), maxNestingDepth);
    if (tooDeep == nullptr) {
        return true;
    }
    auto const* located = dynamic_cast<kel::Location const*>(tooDeep);
    error(located != nullptr ? getLocation(*located) : location(),
          "nesting deeper than " + std::to_string(maxNestingDepth) + " levels");
    return FALSE();
}

void Parser::fileNotFound(std::string const& file, location const* where) {
    error(where != nullptr ? *where : location(), "cannot open " + q(file));
}

} // namespace language
