// Test driver of the grammar: records each construct call as text instead of a tree.
#pragma once

#include "TestStore.h"
#include "parser/GrammarActions.h"

#include <map>
#include <string>
#include <vector>

namespace language {

// Each construct call gets a fresh id whose text shows the call and its arguments,
// so a whole file reads back as one line; expressions are shown in infix form.
class TreeRecorder : private TestStore, public GrammarActions {
public:
    TreeRecorder() : GrammarActions(TestStore::model) {}

    // Runs the grammar over the source, named "t.kel"; returns what parse() returns.
    int parse(std::string const& source);

    // The text of the file, as the last reduction of the start rule saw it.
    std::string const& tree() const { return m_tree; }
    // The clauses handled, as "kind text at line:column", in order.
    std::vector<std::string> const& clauses() const { return m_clauses; }
    // For each kind of call the last one's "begin-end@at", as line.column each.
    std::map<std::string, std::string> const& spans() const { return m_spans; }
    // The errors as printErrors writes them.
    std::string errorLines() const;

    Scanner& scanner() override { return *m_scanner; }
    std::string const* streamName() const override { return &m_name; }

    void handleImportClause(std::string const& file, L const& where) override;
    void handleImportedClause(std::string const& file, L const& where) override;
    void handleFileClause(std::string const& file, L const& where) override;
    void handleDirClause(std::string const& directory, L const& where) override;
    om::Oid constructAllTypesAndModels(Oids const& declarations) override;
    om::Oid constructNativeStatement(L const& b, L const& e, L const& a,
                                     std::string const& text) override;
    om::Oid constructNamespaceDeclaration(L const& b, L const& e, L const& a, Names const& names,
                                          Oids const& declarations) override;
    om::Oid constructInterfaceDeclaration(L const& b, L const& e, L const& a, Names const& names,
                                          Oids const& declarations, om::Oid behaviour) override;
    om::Oid constructEventDeclaration(L const& b, L const& e, L const& a,
                                      kel::EventDirection direction, Names const& type,
                                      Name const& name, Oids const& parameters) override;
    om::Oid constructBehaviour(L const& b, L const& e, L const& a, Name const& name,
                               Oids const& declarationsAndStatements) override;
    om::Oid constructDataTypeDeclaration(L const& b, L const& e, L const& a, Names const& names,
                                         std::string const& data) override;
    om::Oid constructEnumTypeDeclaration(L const& b, L const& e, L const& a, Names const& names,
                                         Oids const& values) override;
    om::Oid constructEnumValueDeclaration(L const& b, L const& e, L const& a,
                                          Name const& name) override;
    om::Oid constructIntTypeDeclaration(L const& b, L const& e, L const& a, Names const& names,
                                        std::int32_t lower, std::int32_t upper) override;
    om::Oid constructVariableDeclaration(L const& b, L const& e, L const& a, Names const& type,
                                         Name const& name, om::Oid initialValue) override;
    om::Oid constructInternalDeclaration(L const& b, L const& e, L const& a, Names const& interface,
                                         Name const& name, Oids const& parameters) override;
    om::Oid constructFunctionDeclaration(L const& b, L const& e, L const& a, Names const& type,
                                         Name const& name, Oids const& parameters,
                                         Oids const& body) override;
    om::Oid constructFormalParameter(L const& b, L const& e, L const& a,
                                     kel::ParameterDirection direction, Names const& type,
                                     Name const& name) override;
    om::Oid constructComponentDeclaration(L const& b, L const& e, L const& a, Names const& names,
                                          Oids const& ports, om::Oid behaviour,
                                          om::Oid system) override;
    om::Oid constructPortDeclaration(L const& b, L const& e, L const& a, Direction const& direction,
                                     Names const& interface, Name const& name) override;
    om::Oid constructSystem(L const& b, L const& e, L const& a, Oids const& statements) override;
    om::Oid constructInstantiationStatement(L const& b, L const& e, L const& a,
                                            Names const& component, Name const& name) override;
    om::Oid constructBindingStatement(L const& b, L const& e, L const& a, Names const& left,
                                      Names const& right) override;
    om::Oid constructGuardedStatement(L const& b, L const& e, L const& a, om::Oid guard,
                                      om::Oid statement) override;
    om::Oid constructExpressionGuard(L const& b, L const& e, L const& a,
                                     om::Oid expression) override;
    om::Oid constructOtherwiseGuard(L const& b, L const& e, L const& a) override;
    om::Oid constructCompoundBehaviourStatement(L const& b, L const& e, L const& a,
                                                Oids const& statements) override;
    om::Oid constructOnEventStatement(L const& b, L const& e, L const& a, Oids const& triggers,
                                      om::Oid statement) override;
    om::Oid constructBlockingStatement(L const& b, L const& e, L const& a,
                                       om::Oid statement) override;
    om::Oid constructOptionalInstance(L const& b, L const& e, L const& a) override;
    om::Oid constructInevitableInstance(L const& b, L const& e, L const& a) override;
    om::Oid constructEventInstance(L const& b, L const& e, L const& a,
                                   Compound const& event) override;
    om::Oid constructIllegalStatement(L const& b, L const& e, L const& a) override;
    om::Oid constructAssignmentBehaviourStatement(L const& b, L const& e, L const& a,
                                                  Name const& variable,
                                                  om::Oid expression) override;
    om::Oid constructActionOrFunctionCallStatement(L const& b, L const& e, L const& a,
                                                   Compound const& call) override;
    om::Oid constructIfStatement(L const& b, L const& e, L const& a, om::Oid condition,
                                 om::Oid thenStatement, om::Oid elseStatement) override;
    om::Oid constructReplyStatement(L const& b, L const& e, L const& a, Names const& port,
                                    om::Oid value) override;
    om::Oid constructReturnStatement(L const& b, L const& e, L const& a, om::Oid value) override;
    om::Oid constructNotExpression(L const& b, L const& e, L const& a, om::Oid operand) override;
    om::Oid constructAndExpression(L const& b, L const& e, L const& a, om::Oid left,
                                   om::Oid right) override;
    om::Oid constructOrExpression(L const& b, L const& e, L const& a, om::Oid left,
                                  om::Oid right) override;
    om::Oid constructIsEqualExpression(L const& b, L const& e, L const& a, om::Oid left,
                                       om::Oid right) override;
    om::Oid constructIsNotEqualExpression(L const& b, L const& e, L const& a, om::Oid left,
                                          om::Oid right) override;
    om::Oid constructIsLessExpression(L const& b, L const& e, L const& a, om::Oid left,
                                      om::Oid right) override;
    om::Oid constructIsLessEqualExpression(L const& b, L const& e, L const& a, om::Oid left,
                                           om::Oid right) override;
    om::Oid constructIsGreaterExpression(L const& b, L const& e, L const& a, om::Oid left,
                                         om::Oid right) override;
    om::Oid constructIsGreaterEqualExpression(L const& b, L const& e, L const& a, om::Oid left,
                                              om::Oid right) override;
    om::Oid constructPlusExpression(L const& b, L const& e, L const& a, om::Oid left,
                                    om::Oid right) override;
    om::Oid constructMinusExpression(L const& b, L const& e, L const& a, om::Oid left,
                                     om::Oid right) override;
    om::Oid constructDataExpression(L const& b, L const& e, L const& a,
                                    std::string const& data) override;
    om::Oid constructAssignmentExpression(L const& b, L const& e, L const& a, Name const& variable,
                                          Name const& value) override;
    om::Oid constructNamedExpression(L const& b, L const& e, L const& a,
                                     Compound const& named) override;
    om::Oid constructIntConstantExpression(L const& b, L const& e, L const& a,
                                           std::int32_t value) override;
    om::Oid constructBoolConstantExpression(L const& b, L const& e, L const& a,
                                            std::string const& value) override;

private:
    // A new id for the text; the span is kept under the kind.
    om::Oid record(std::string const& kind, L const& b, L const& e, L const& a,
                   std::string const& text);
    // kind(arguments, ...), the usual form of a call.
    om::Oid call(std::string const& kind, L const& b, L const& e, L const& a,
                 std::vector<std::string> const& arguments);
    om::Oid infix(std::string const& kind, L const& b, L const& e, L const& a, om::Oid left,
                  std::string const& op, om::Oid right);
    void clause(std::string const& kind, std::string const& text, L const& where);

    std::string text(om::Oid id) const;
    std::string text(Oids const& ids) const;
    std::string text(Compound const& compound) const;

    std::string m_name = "t.kel";
    Scanner* m_scanner = nullptr;
    std::map<om::Oid, std::string> m_texts;
    std::string m_tree;
    std::vector<std::string> m_clauses;
    std::map<std::string, std::string> m_spans;
};

} // namespace language
