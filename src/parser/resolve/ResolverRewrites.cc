// Replacing bare names in the tree by the expressions and statements they denote.
#include "parser/resolve/Resolver.h"

#include "om/AsType.h"

namespace language {

namespace {

std::vector<om::Oid> argumentIds(kel::NameExpression const& expression) {
    return expression.getComposition(kel::NameExpression::ArgumentsComposition).asOidVec();
}

} // namespace

// A copy of the parent's base class suffices: an update leaves what the
// copy does not hold as it is.
void Resolver::replaceInParent(om::Object const& old, om::Object const& replacement) {
    om::Oid oldId = old.getOid();
    om::Object parent(*m_model.getParent(oldId));
    om::CompositionValue& children =
        parent.getCompositionRef(parent.findCompositionWithObject(oldId));
    children.setAt(children.indexOf(oldId), replacement.getOid());
    m_model.update(parent);
}

// Each new node is made before its children, as the store makes required
// children: ids keep the order of the tree.
kel::VariableExpression const&
Resolver::replaceByVariableExpression(kel::NameExpression const& old) {
    auto created = newAt<kel::VariableExpression>(old);
    created.setVariable(namedAt<kel::VariableReference>(old.getName(), old));
    return replaceBy(old, std::move(created));
}

kel::EnumConstantExpression const&
Resolver::replaceByEnumConstantExpression(kel::NameExpression const& old) {
    auto created = newAt<kel::EnumConstantExpression>(old);
    created.setValue(namedAt<kel::EnumValueReference>(old.getName(), old));
    return replaceBy(old, std::move(created));
}

kel::EnumVariableValueExpression const&
Resolver::replaceByEnumVariableValueExpression(kel::NameExpression const& old) {
    auto created = newAt<kel::EnumVariableValueExpression>(old);
    std::string const& name = old.getName();
    // The value before the variable: required children come in name order.
    created.setValue(namedAt<kel::EnumValueReference>(name, old));
    created.setVariable(namedAt<kel::VariableReference>(name.substr(0, name.find('.')), old));
    return replaceBy(old, std::move(created));
}

kel::ActionExpression const& Resolver::replaceByActionExpression(kel::NameExpression const& old) {
    auto created = newAt<kel::ActionExpression>(old);
    std::string const name = old.getName();
    std::size_t dot = name.find('.');
    auto instance = newAt<kel::EventInstance>(old);
    instance.setName(name);
    instance.setParentheses(old.getParentheses());
    instance.setEvent(namedAt<kel::EventReference>(
        dot == std::string::npos ? name : name.substr(dot + 1), old));
    if (dot != std::string::npos) {
        instance.setPort(namedAt<kel::PortReference>(name.substr(0, dot), old));
    }
    instance.setArguments(argumentIds(old));
    created.setEvent(insert(std::move(instance)));
    return replaceBy(old, std::move(created));
}

kel::FunctionCallExpression const&
Resolver::replaceByFunctionCallExpression(kel::NameExpression const& old) {
    auto created = newAt<kel::FunctionCallExpression>(old);
    created.setFunction(namedAt<kel::FunctionReference>(old.getName(), old));
    created.setArguments(argumentIds(old));
    return replaceBy(old, std::move(created));
}

kel::ActionStatement const& Resolver::replaceByActionStatement(kel::NameStatement const& old) {
    auto created = newAt<kel::ActionStatement>(old);
    created.setExpression(replaceByActionExpression(old.getExpression()));
    return replaceBy(old, std::move(created));
}

kel::FunctionCallStatement const&
Resolver::replaceByFunctionCallStatement(kel::NameStatement const& old) {
    auto created = newAt<kel::FunctionCallStatement>(old);
    created.setExpression(replaceByFunctionCallExpression(old.getExpression()));
    return replaceBy(old, std::move(created));
}

} // namespace language
