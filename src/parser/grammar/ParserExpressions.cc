#include "parser/grammar/Parser.h"

#include "metamodel/ConstructionSupport.h"
#include "metamodel/ExpressionConstructors.h"

namespace language {

om::Oid Parser::constructNotExpression(L const& b, L const& e, L const& a, om::Oid operand) {
    return skipsComponentsOnly()
               ? om::NULL_OID
               : updateLocation(kel::constructNotExpression(m_model, operand), b, e, a);
}

om::Oid Parser::constructBinary(om::Oid (*helper)(om::ObjectModel&, om::Oid, om::Oid), L const& b,
                                L const& e, L const& a, om::Oid left, om::Oid right) {
    return skipsComponentsOnly() ? om::NULL_OID
                                 : updateLocation(helper(m_model, left, right), b, e, a);
}

om::Oid Parser::constructAndExpression(L const& b, L const& e, L const& a, om::Oid left,
                                       om::Oid right) {
    return constructBinary(&kel::constructAndExpression, b, e, a, left, right);
}

om::Oid Parser::constructOrExpression(L const& b, L const& e, L const& a, om::Oid left,
                                      om::Oid right) {
    return constructBinary(&kel::constructOrExpression, b, e, a, left, right);
}

om::Oid Parser::constructIsEqualExpression(L const& b, L const& e, L const& a, om::Oid left,
                                           om::Oid right) {
    return constructBinary(&kel::constructIsEqualExpression, b, e, a, left, right);
}

om::Oid Parser::constructIsNotEqualExpression(L const& b, L const& e, L const& a, om::Oid left,
                                              om::Oid right) {
    return constructBinary(&kel::constructIsNotEqualExpression, b, e, a, left, right);
}

om::Oid Parser::constructIsLessExpression(L const& b, L const& e, L const& a, om::Oid left,
                                          om::Oid right) {
    return constructBinary(&kel::constructIsLessExpression, b, e, a, left, right);
}

om::Oid Parser::constructIsLessEqualExpression(L const& b, L const& e, L const& a, om::Oid left,
                                               om::Oid right) {
    return constructBinary(&kel::constructIsLessEqualExpression, b, e, a, left, right);
}

om::Oid Parser::constructIsGreaterExpression(L const& b, L const& e, L const& a, om::Oid left,
                                             om::Oid right) {
    return constructBinary(&kel::constructIsGreaterExpression, b, e, a, left, right);
}

om::Oid Parser::constructIsGreaterEqualExpression(L const& b, L const& e, L const& a, om::Oid left,
                                                  om::Oid right) {
    return constructBinary(&kel::constructIsGreaterEqualExpression, b, e, a, left, right);
}

om::Oid Parser::constructPlusExpression(L const& b, L const& e, L const& a, om::Oid left,
                                        om::Oid right) {
    return constructBinary(&kel::constructPlusExpression, b, e, a, left, right);
}

om::Oid Parser::constructMinusExpression(L const& b, L const& e, L const& a, om::Oid left,
                                         om::Oid right) {
    return constructBinary(&kel::constructMinusExpression, b, e, a, left, right);
}

om::Oid Parser::constructIntConstantExpression(L const&, L const&, L const& a, std::int32_t value) {
    return skipsComponentsOnly()
               ? om::NULL_OID
               : updateLocation(kel::constructIntConstantExpression(m_model, value), a);
}

om::Oid Parser::constructBoolConstantExpression(L const&, L const&, L const& a,
                                                std::string const& value) {
    return skipsComponentsOnly()
               ? om::NULL_OID
               : updateLocation(kel::constructBoolConstantExpression(m_model, value), a);
}

om::Oid Parser::constructDataExpression(L const&, L const&, L const& a, std::string const& data) {
    return skipsComponentsOnly() ? om::NULL_OID
                                 : updateLocation(kel::constructDataExpression(m_model, data), a);
}

om::Oid Parser::constructNamedExpression(L const& b, L const& e, L const& a,
                                         Compound const& named) {
    return skipsComponentsOnly()
               ? om::NULL_OID
               : updateLocation(kel::constructNamedExpression(m_model, concatNameIds(named.names),
                                                              named.parentheses, named.arguments),
                                b, e, a);
}

om::Oid Parser::constructAssignmentExpression(L const& b, L const& e, L const& a,
                                              Name const& variable, Name const& value) {
    if (skipsComponentsOnly()) {
        return om::NULL_OID;
    }
    om::Oid id = kel::constructAssignmentExpression(m_model, variable.name, value.name);
    auto const& assignment = kel::Find<kel::AssignmentExpression>(m_model, id);
    updateLocation(assignment.getVariableOid(), variable.location);
    updateLocation(assignment.getValueOid(), value.location);
    return updateLocation(id, b, e, a);
}

} // namespace language
