// Replacing bare names in the tree by the expressions and statements they denote.
#include "parser/resolve/Resolver.h"

#include "om/AsType.h"

namespace language {

namespace {

std::vector<om::Oid> argumentIds(kel::NameExpression const& expression) {
    return expression.getComposition(kel::NameExpression::ArgumentsComposition).asOidVec();
}

} // namespace

void Resolver::nameAt(om::Oid id, std::string const& name, kel::Location const& at) {
    std::unique_ptr<om::Object> copy = m_model.find(id)->clone();
    auto& named = dynamic_cast<kel::Named&>(*copy);
    named.setName(name);
    setLocation(named, at);
    m_model.update(named);
}

void Resolver::replaceInParent(om::Object const& old, om::Object const& replacement) {
    om::Oid oldId = old.getOid();
    std::unique_ptr<om::Object> parent = m_model.getParent(oldId)->clone();
    om::CompositionValue& children =
        parent->getCompositionRef(parent->findCompositionWithObject(oldId));
    children.setAt(children.indexOf(oldId), replacement.getOid());
    m_model.update(*parent);
}

kel::VariableExpression const&
Resolver::replaceByVariableExpression(kel::NameExpression const& old) {
    auto created = newAt<kel::VariableExpression>(old);
    nameAt(created.getVariableOid(), old.getName(), old);
    return replaceBy(old, created);
}

kel::EnumConstantExpression const&
Resolver::replaceByEnumConstantExpression(kel::NameExpression const& old) {
    auto created = newAt<kel::EnumConstantExpression>(old);
    nameAt(created.getValueOid(), old.getName(), old);
    return replaceBy(old, created);
}

kel::EnumVariableValueExpression const&
Resolver::replaceByEnumVariableValueExpression(kel::NameExpression const& old) {
    auto created = newAt<kel::EnumVariableValueExpression>(old);
    std::string const& name = old.getName();
    nameAt(created.getVariableOid(), name.substr(0, name.find('.')), old);
    nameAt(created.getValueOid(), name, old);
    return replaceBy(old, created);
}

kel::ActionExpression const& Resolver::replaceByActionExpression(kel::NameExpression const& old) {
    auto created = newAt<kel::ActionExpression>(old);
    std::string const name = old.getName();
    std::size_t dot = name.find('.');
    kel::EventInstance instance(created.getEvent());
    instance.setName(name);
    setLocation(instance, old);
    instance.setParentheses(old.getParentheses());
    nameAt(instance.getEventOid(), dot == std::string::npos ? name : name.substr(dot + 1), old);
    if (dot != std::string::npos) {
        om::Oid port = m_model.createRecursive(kel::PortReference::ClassName)->getOid();
        nameAt(port, name.substr(0, dot), old);
        instance.setPort(om::AsType<kel::PortReference>(*m_model.find(port)));
    }
    instance.setArguments(argumentIds(old));
    m_model.update(instance);
    return replaceBy(old, created);
}

kel::FunctionCallExpression const&
Resolver::replaceByFunctionCallExpression(kel::NameExpression const& old) {
    auto created = newAt<kel::FunctionCallExpression>(old);
    nameAt(created.getFunctionOid(), old.getName(), old);
    created.setArguments(argumentIds(old));
    return replaceBy(old, created);
}

kel::ActionStatement const& Resolver::replaceByActionStatement(kel::NameStatement const& old) {
    auto created = newAt<kel::ActionStatement>(old);
    created.setExpression(replaceByActionExpression(old.getExpression()));
    return replaceBy(old, created);
}

kel::FunctionCallStatement const&
Resolver::replaceByFunctionCallStatement(kel::NameStatement const& old) {
    auto created = newAt<kel::FunctionCallStatement>(old);
    created.setExpression(replaceByFunctionCallExpression(old.getExpression()));
    return replaceBy(old, created);
}

} // namespace language
