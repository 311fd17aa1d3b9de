#include "TreeRecorder.h"

#include "parser/BisonParser.h"
#include "parser/Scanner.h"

#include <sstream>

namespace language {

namespace {

std::string point(position const& where) {
    return std::to_string(where.line) + "." + std::to_string(where.column);
}

std::string names(Names const& parts) { return ParserBase::concatNameIds(parts); }

std::string direction(kel::ParameterDirection d) {
    return d == kel::pdirIn ? "in" : d == kel::pdirOut ? "out" : "inout";
}

std::string direction(Direction const& d) {
    std::string text = d.direction == kel::idirProvided ? "provides" : "requires";
    return text + (d.injected ? " injected" : "") + (d.external ? " external" : "");
}

} // namespace

int TreeRecorder::parse(std::string const& source) {
    std::istringstream in(source);
    Scanner scanner(&in, nullptr);
    m_scanner = &scanner;
    BisonParser parser(*this);
    int result = parser.parse();
    m_scanner = nullptr;
    return result;
}

std::string TreeRecorder::errorLines() const {
    std::ostringstream out;
    printErrors(out);
    return out.str();
}

om::Oid TreeRecorder::record(std::string const& kind, L const& b, L const& e, L const& a,
                             std::string const& text) {
    m_spans[kind] = point(b.begin) + "-" + point(e.end) + "@" + point(a.begin);
    om::Oid id = static_cast<om::Oid>(m_texts.size()) + 1;
    m_texts[id] = text;
    return id;
}

om::Oid TreeRecorder::call(std::string const& kind, L const& b, L const& e, L const& a,
                           std::vector<std::string> const& arguments) {
    std::string joined;
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        joined += (index == 0 ? "" : ", ") + arguments[index];
    }
    return record(kind, b, e, a, kind + "(" + joined + ")");
}

om::Oid TreeRecorder::infix(std::string const& kind, L const& b, L const& e, L const& a,
                            om::Oid left, std::string const& op, om::Oid right) {
    return record(kind, b, e, a, "(" + text(left) + " " + op + " " + text(right) + ")");
}

void TreeRecorder::clause(std::string const& kind, std::string const& text, L const& where) {
    m_clauses.push_back(kind + " " + text + " at " + point(where.begin));
}

std::string TreeRecorder::text(om::Oid id) const {
    return id == om::NULL_OID ? "null" : m_texts.at(id);
}

std::string TreeRecorder::text(Oids const& ids) const {
    std::string joined;
    for (std::size_t index = 0; index < ids.size(); ++index) {
        joined += (index == 0 ? "" : ", ") + text(ids[index]);
    }
    return "[" + joined + "]";
}

std::string TreeRecorder::text(Compound const& compound) const {
    if (!compound.parentheses) {
        return names(compound.names);
    }
    std::string arguments = text(compound.arguments);
    return names(compound.names) + "(" + arguments.substr(1, arguments.size() - 2) + ")";
}

void TreeRecorder::handleImportClause(std::string const& file, L const& where) {
    clause("import", file, where);
}
void TreeRecorder::handleImportedClause(std::string const& file, L const& where) {
    clause("#imported", file, where);
}
void TreeRecorder::handleFileClause(std::string const& file, L const& where) {
    clause("#file", file, where);
}
void TreeRecorder::handleDirClause(std::string const& directory, L const& where) {
    clause("#dir", directory, where);
}

om::Oid TreeRecorder::constructAllTypesAndModels(Oids const& declarations) {
    m_tree = text(declarations);
    return om::NULL_OID;
}

om::Oid TreeRecorder::constructNativeStatement(L const& b, L const& e, L const& a,
                                               std::string const& text) {
    return call("native", b, e, a, {text});
}
om::Oid TreeRecorder::constructNamespaceDeclaration(L const& b, L const& e, L const& a,
                                                    Names const& n, Oids const& declarations) {
    return call("namespace", b, e, a, {names(n), text(declarations)});
}
om::Oid TreeRecorder::constructInterfaceDeclaration(L const& b, L const& e, L const& a,
                                                    Names const& n, Oids const& declarations,
                                                    om::Oid behaviour) {
    return call("interface", b, e, a, {names(n), text(declarations), text(behaviour)});
}
om::Oid TreeRecorder::constructEventDeclaration(L const& b, L const& e, L const& a,
                                                kel::EventDirection d, Names const& type,
                                                Name const& name, Oids const& parameters) {
    return call("event", b, e, a,
                {d == kel::edirIn ? "in" : "out", names(type), name.name, text(parameters)});
}
om::Oid TreeRecorder::constructBehaviour(L const& b, L const& e, L const& a, Name const& name,
                                         Oids const& declarationsAndStatements) {
    return call("behaviour", b, e, a, {name.name, text(declarationsAndStatements)});
}
om::Oid TreeRecorder::constructDataTypeDeclaration(L const& b, L const& e, L const& a,
                                                   Names const& n, std::string const& data) {
    return call("extern", b, e, a, {names(n), data});
}
om::Oid TreeRecorder::constructEnumTypeDeclaration(L const& b, L const& e, L const& a,
                                                   Names const& n, Oids const& values) {
    return call("enum", b, e, a, {names(n), text(values)});
}
om::Oid TreeRecorder::constructEnumValueDeclaration(L const& b, L const& e, L const& a,
                                                    Name const& name) {
    return record("enumValue", b, e, a, name.name);
}
om::Oid TreeRecorder::constructIntTypeDeclaration(L const& b, L const& e, L const& a,
                                                  Names const& n, std::int32_t lower,
                                                  std::int32_t upper) {
    return call("subint", b, e, a, {names(n), std::to_string(lower), std::to_string(upper)});
}
om::Oid TreeRecorder::constructVariableDeclaration(L const& b, L const& e, L const& a,
                                                   Names const& type, Name const& name,
                                                   om::Oid initialValue) {
    return call("variable", b, e, a, {names(type), name.name, text(initialValue)});
}
om::Oid TreeRecorder::constructInternalDeclaration(L const& b, L const& e, L const& a,
                                                   Names const& interface, Name const& name,
                                                   Oids const& parameters) {
    return call("internal", b, e, a, {names(interface), name.name, text(parameters)});
}
om::Oid TreeRecorder::constructFunctionDeclaration(L const& b, L const& e, L const& a,
                                                   Names const& type, Name const& name,
                                                   Oids const& parameters, Oids const& body) {
    return call("function", b, e, a, {names(type), name.name, text(parameters), text(body)});
}
om::Oid TreeRecorder::constructFormalParameter(L const& b, L const& e, L const& a,
                                               kel::ParameterDirection d, Names const& type,
                                               Name const& name) {
    return record("parameter", b, e, a, direction(d) + " " + names(type) + " " + name.name);
}
om::Oid TreeRecorder::constructComponentDeclaration(L const& b, L const& e, L const& a,
                                                    Names const& n, Oids const& ports,
                                                    om::Oid behaviour, om::Oid system) {
    return call("component", b, e, a, {names(n), text(ports), text(behaviour), text(system)});
}
om::Oid TreeRecorder::constructPortDeclaration(L const& b, L const& e, L const& a,
                                               Direction const& d, Names const& interface,
                                               Name const& name) {
    return call("port", b, e, a, {direction(d), names(interface), name.name});
}
om::Oid TreeRecorder::constructSystem(L const& b, L const& e, L const& a, Oids const& statements) {
    return call("system", b, e, a, {text(statements)});
}
om::Oid TreeRecorder::constructInstantiationStatement(L const& b, L const& e, L const& a,
                                                      Names const& component, Name const& name) {
    return call("instance", b, e, a, {names(component), name.name});
}
om::Oid TreeRecorder::constructBindingStatement(L const& b, L const& e, L const& a,
                                                Names const& left, Names const& right) {
    return record("binding", b, e, a, names(left) + " <=> " + names(right));
}
om::Oid TreeRecorder::constructGuardedStatement(L const& b, L const& e, L const& a, om::Oid guard,
                                                om::Oid statement) {
    return record("guarded", b, e, a, "[" + text(guard) + "] " + text(statement));
}
om::Oid TreeRecorder::constructExpressionGuard(L const& b, L const& e, L const& a,
                                               om::Oid expression) {
    return record("guard", b, e, a, text(expression));
}
om::Oid TreeRecorder::constructOtherwiseGuard(L const& b, L const& e, L const& a) {
    return record("otherwise", b, e, a, "otherwise");
}
om::Oid TreeRecorder::constructCompoundBehaviourStatement(L const& b, L const& e, L const& a,
                                                          Oids const& statements) {
    return record("compound", b, e, a, "{" + text(statements) + "}");
}
om::Oid TreeRecorder::constructOnEventStatement(L const& b, L const& e, L const& a,
                                                Oids const& triggers, om::Oid statement) {
    return call("on", b, e, a, {text(triggers), text(statement)});
}
om::Oid TreeRecorder::constructBlockingStatement(L const& b, L const& e, L const& a,
                                                 om::Oid statement) {
    return call("blocking", b, e, a, {text(statement)});
}
om::Oid TreeRecorder::constructOptionalInstance(L const& b, L const& e, L const& a) {
    return record("optional", b, e, a, "optional");
}
om::Oid TreeRecorder::constructInevitableInstance(L const& b, L const& e, L const& a) {
    return record("inevitable", b, e, a, "inevitable");
}
om::Oid TreeRecorder::constructEventInstance(L const& b, L const& e, L const& a,
                                             Compound const& event) {
    return record("eventInstance", b, e, a, text(event));
}
om::Oid TreeRecorder::constructIllegalStatement(L const& b, L const& e, L const& a) {
    return record("illegal", b, e, a, "illegal");
}
om::Oid TreeRecorder::constructAssignmentBehaviourStatement(L const& b, L const& e, L const& a,
                                                            Name const& variable,
                                                            om::Oid expression) {
    return record("assignment", b, e, a, variable.name + " = " + text(expression));
}
om::Oid TreeRecorder::constructActionOrFunctionCallStatement(L const& b, L const& e, L const& a,
                                                             Compound const& c) {
    return call("call", b, e, a, {text(c)});
}
om::Oid TreeRecorder::constructIfStatement(L const& b, L const& e, L const& a, om::Oid condition,
                                           om::Oid thenStatement, om::Oid elseStatement) {
    return call("if", b, e, a, {text(condition), text(thenStatement), text(elseStatement)});
}
om::Oid TreeRecorder::constructReplyStatement(L const& b, L const& e, L const& a, Names const& port,
                                              om::Oid value) {
    return call("reply", b, e, a, {names(port), text(value)});
}
om::Oid TreeRecorder::constructReturnStatement(L const& b, L const& e, L const& a, om::Oid value) {
    return call("return", b, e, a, {text(value)});
}
om::Oid TreeRecorder::constructNotExpression(L const& b, L const& e, L const& a, om::Oid operand) {
    return record("not", b, e, a, "!" + text(operand));
}
om::Oid TreeRecorder::constructAndExpression(L const& b, L const& e, L const& a, om::Oid left,
                                             om::Oid right) {
    return infix("and", b, e, a, left, "&&", right);
}
om::Oid TreeRecorder::constructOrExpression(L const& b, L const& e, L const& a, om::Oid left,
                                            om::Oid right) {
    return infix("or", b, e, a, left, "||", right);
}
om::Oid TreeRecorder::constructIsEqualExpression(L const& b, L const& e, L const& a, om::Oid left,
                                                 om::Oid right) {
    return infix("isEqual", b, e, a, left, "==", right);
}
om::Oid TreeRecorder::constructIsNotEqualExpression(L const& b, L const& e, L const& a,
                                                    om::Oid left, om::Oid right) {
    return infix("isNotEqual", b, e, a, left, "!=", right);
}
om::Oid TreeRecorder::constructIsLessExpression(L const& b, L const& e, L const& a, om::Oid left,
                                                om::Oid right) {
    return infix("isLess", b, e, a, left, "<", right);
}
om::Oid TreeRecorder::constructIsLessEqualExpression(L const& b, L const& e, L const& a,
                                                     om::Oid left, om::Oid right) {
    return infix("isLessEqual", b, e, a, left, "<=", right);
}
om::Oid TreeRecorder::constructIsGreaterExpression(L const& b, L const& e, L const& a, om::Oid left,
                                                   om::Oid right) {
    return infix("isGreater", b, e, a, left, ">", right);
}
om::Oid TreeRecorder::constructIsGreaterEqualExpression(L const& b, L const& e, L const& a,
                                                        om::Oid left, om::Oid right) {
    return infix("isGreaterEqual", b, e, a, left, ">=", right);
}
om::Oid TreeRecorder::constructPlusExpression(L const& b, L const& e, L const& a, om::Oid left,
                                              om::Oid right) {
    return infix("plus", b, e, a, left, "+", right);
}
om::Oid TreeRecorder::constructMinusExpression(L const& b, L const& e, L const& a, om::Oid left,
                                               om::Oid right) {
    return infix("minus", b, e, a, left, "-", right);
}
om::Oid TreeRecorder::constructDataExpression(L const& b, L const& e, L const& a,
                                              std::string const& data) {
    return record("data", b, e, a, data);
}
om::Oid TreeRecorder::constructAssignmentExpression(L const& b, L const& e, L const& a,
                                                    Name const& variable, Name const& value) {
    return record("assignmentExpression", b, e, a, variable.name + " <- " + value.name);
}
om::Oid TreeRecorder::constructNamedExpression(L const& b, L const& e, L const& a,
                                               Compound const& named) {
    return record("named", b, e, a, text(named));
}
om::Oid TreeRecorder::constructIntConstantExpression(L const& b, L const& e, L const& a,
                                                     std::int32_t value) {
    return record("int", b, e, a, std::to_string(value));
}
om::Oid TreeRecorder::constructBoolConstantExpression(L const& b, L const& e, L const& a,
                                                      std::string const& value) {
    return record("bool", b, e, a, value);
}

} // namespace language
