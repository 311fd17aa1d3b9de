// What the grammar's reductions ask of the parser that drives them.
#pragma once

#include "metamodel/Enumerations.h"
#include "om/Oid.h"
#include "parser/grammar/Compound.h"
#include "parser/grammar/Direction.h"
#include "parser/grammar/Location.h"
#include "parser/grammar/Name.h"
#include "parser/grammar/Oids.h"
#include "parser/grammar/ParserBase.h"

#include <cstdint>
#include <string>

namespace language {

class Scanner;

// Each construct operation builds one piece of the syntax tree and returns its id,
// or NULL_OID when nothing is built. The three locations give the piece's begin,
// its end and its main position.
class GrammarActions : public ParserBase {
public:
    using L = location;
    using ParserBase::ParserBase;

    // The running parse's scanner, and the stream name that locations point at.
    virtual Scanner& scanner() = 0;
    virtual std::string const* streamName() const = 0;

    virtual void handleImportClause(std::string const& file, L const& where) = 0;
    virtual void handleImportedClause(std::string const& file, L const& where) = 0;
    virtual void handleFileClause(std::string const& file, L const& where) = 0;
    virtual void handleDirClause(std::string const& directory, L const& where) = 0;

    // Files the top-level declarations of a file; the result tops the syntax tree.
    virtual om::Oid constructAllTypesAndModels(Oids const& declarations) = 0;

    virtual om::Oid constructNativeStatement(L const& begin, L const& end, L const& at,
                                             std::string const& text) = 0;
    virtual om::Oid constructNamespaceDeclaration(L const& begin, L const& end, L const& at,
                                                  Names const& names, Oids const& declarations) = 0;
    virtual om::Oid constructInterfaceDeclaration(L const& begin, L const& end, L const& at,
                                                  Names const& names, Oids const& declarations,
                                                  om::Oid behaviour) = 0;
    virtual om::Oid constructEventDeclaration(L const& begin, L const& end, L const& at,
                                              kel::EventDirection direction, Names const& type,
                                              Name const& name, Oids const& parameters) = 0;
    virtual om::Oid constructBehaviour(L const& begin, L const& end, L const& at, Name const& name,
                                       Oids const& declarationsAndStatements) = 0;
    virtual om::Oid constructDataTypeDeclaration(L const& begin, L const& end, L const& at,
                                                 Names const& names, std::string const& data) = 0;
    virtual om::Oid constructEnumTypeDeclaration(L const& begin, L const& end, L const& at,
                                                 Names const& names, Oids const& values) = 0;
    virtual om::Oid constructEnumValueDeclaration(L const& begin, L const& end, L const& at,
                                                  Name const& name) = 0;
    virtual om::Oid constructIntTypeDeclaration(L const& begin, L const& end, L const& at,
                                                Names const& names, std::int32_t lower,
                                                std::int32_t upper) = 0;
    virtual om::Oid constructVariableDeclaration(L const& begin, L const& end, L const& at,
                                                 Names const& type, Name const& name,
                                                 om::Oid initialValue) = 0;
    virtual om::Oid constructInternalDeclaration(L const& begin, L const& end, L const& at,
                                                 Names const& interface, Name const& name,
                                                 Oids const& parameters) = 0;
    virtual om::Oid constructFunctionDeclaration(L const& begin, L const& end, L const& at,
                                                 Names const& type, Name const& name,
                                                 Oids const& parameters, Oids const& body) = 0;
    virtual om::Oid constructFormalParameter(L const& begin, L const& end, L const& at,
                                             kel::ParameterDirection direction, Names const& type,
                                             Name const& name) = 0;
    virtual om::Oid constructComponentDeclaration(L const& begin, L const& end, L const& at,
                                                  Names const& names, Oids const& ports,
                                                  om::Oid behaviour, om::Oid system) = 0;
    virtual om::Oid constructPortDeclaration(L const& begin, L const& end, L const& at,
                                             Direction const& direction, Names const& interface,
                                             Name const& name) = 0;
    virtual om::Oid constructSystem(L const& begin, L const& end, L const& at,
                                    Oids const& statements) = 0;
    virtual om::Oid constructInstantiationStatement(L const& begin, L const& end, L const& at,
                                                    Names const& component, Name const& name) = 0;
    virtual om::Oid constructBindingStatement(L const& begin, L const& end, L const& at,
                                              Names const& left, Names const& right) = 0;

    virtual om::Oid constructGuardedStatement(L const& begin, L const& end, L const& at,
                                              om::Oid guard, om::Oid statement) = 0;
    virtual om::Oid constructExpressionGuard(L const& begin, L const& end, L const& at,
                                             om::Oid expression) = 0;
    virtual om::Oid constructOtherwiseGuard(L const& begin, L const& end, L const& at) = 0;
    virtual om::Oid constructCompoundBehaviourStatement(L const& begin, L const& end, L const& at,
                                                        Oids const& statements) = 0;
    virtual om::Oid constructOnEventStatement(L const& begin, L const& end, L const& at,
                                              Oids const& triggers, om::Oid statement) = 0;
    virtual om::Oid constructBlockingStatement(L const& begin, L const& end, L const& at,
                                               om::Oid statement) = 0;
    virtual om::Oid constructOptionalInstance(L const& begin, L const& end, L const& at) = 0;
    virtual om::Oid constructInevitableInstance(L const& begin, L const& end, L const& at) = 0;
    virtual om::Oid constructEventInstance(L const& begin, L const& end, L const& at,
                                           Compound const& event) = 0;
    virtual om::Oid constructIllegalStatement(L const& begin, L const& end, L const& at) = 0;
    virtual om::Oid constructAssignmentBehaviourStatement(L const& begin, L const& end, L const& at,
                                                          Name const& variable,
                                                          om::Oid expression) = 0;
    virtual om::Oid constructActionOrFunctionCallStatement(L const& begin, L const& end,
                                                           L const& at, Compound const& call) = 0;
    virtual om::Oid constructIfStatement(L const& begin, L const& end, L const& at,
                                         om::Oid condition, om::Oid thenStatement,
                                         om::Oid elseStatement) = 0;
    virtual om::Oid constructReplyStatement(L const& begin, L const& end, L const& at,
                                            Names const& port, om::Oid value) = 0;
    virtual om::Oid constructReturnStatement(L const& begin, L const& end, L const& at,
                                             om::Oid value) = 0;

    virtual om::Oid constructNotExpression(L const& begin, L const& end, L const& at,
                                           om::Oid operand) = 0;
    virtual om::Oid constructAndExpression(L const& begin, L const& end, L const& at, om::Oid left,
                                           om::Oid right) = 0;
    virtual om::Oid constructOrExpression(L const& begin, L const& end, L const& at, om::Oid left,
                                          om::Oid right) = 0;
    virtual om::Oid constructIsEqualExpression(L const& begin, L const& end, L const& at,
                                               om::Oid left, om::Oid right) = 0;
    virtual om::Oid constructIsNotEqualExpression(L const& begin, L const& end, L const& at,
                                                  om::Oid left, om::Oid right) = 0;
    virtual om::Oid constructIsLessExpression(L const& begin, L const& end, L const& at,
                                              om::Oid left, om::Oid right) = 0;
    virtual om::Oid constructIsLessEqualExpression(L const& begin, L const& end, L const& at,
                                                   om::Oid left, om::Oid right) = 0;
    virtual om::Oid constructIsGreaterExpression(L const& begin, L const& end, L const& at,
                                                 om::Oid left, om::Oid right) = 0;
    virtual om::Oid constructIsGreaterEqualExpression(L const& begin, L const& end, L const& at,
                                                      om::Oid left, om::Oid right) = 0;
    virtual om::Oid constructPlusExpression(L const& begin, L const& end, L const& at, om::Oid left,
                                            om::Oid right) = 0;
    virtual om::Oid constructMinusExpression(L const& begin, L const& end, L const& at,
                                             om::Oid left, om::Oid right) = 0;
    virtual om::Oid constructDataExpression(L const& begin, L const& end, L const& at,
                                            std::string const& data) = 0;
    virtual om::Oid constructAssignmentExpression(L const& begin, L const& end, L const& at,
                                                  Name const& variable, Name const& value) = 0;
    virtual om::Oid constructNamedExpression(L const& begin, L const& end, L const& at,
                                             Compound const& named) = 0;
    virtual om::Oid constructIntConstantExpression(L const& begin, L const& end, L const& at,
                                                   std::int32_t value) = 0;
    virtual om::Oid constructBoolConstantExpression(L const& begin, L const& end, L const& at,
                                                    std::string const& value) = 0;
};

} // namespace language
