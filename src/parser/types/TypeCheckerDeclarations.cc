// The passes over namespaces, declarations, bindings and behaviours.
#include "parser/types/TypeChecker.h"

#include "metamodel/BuiltinDeclarations.h"
#include "parser/types/TypeMessages.h"

namespace language {

TypeChecker::TypeChecker(om::ObjectModel& model, Files* files) : ParserBase(model, files) {}

TypeChecker::TypeChecker(om::ObjectModel& model) : ParserBase(model) {}

bool TypeChecker::checkAllExpressionTypes() {
    bool ok = true;
    for (kel::Namespace const* space : kel::GetRoot(m_model).getNamespacesVec()) {
        ok = checkAllExpressionTypes(*space) && ok;
    }
    return ok;
}

bool TypeChecker::checkAllExpressionTypes(kel::Namespace const& space) {
    bool ok = true;
    for (kel::Namespace const* inner : space.getNamespacesVec()) {
        ok = checkAllExpressionTypes(*inner) && ok;
    }
    ok = checkAllEventDeclarationTypes(space) && ok;
    ok = checkAllFunctionDeclarationTypes(space) && ok;
    ok = checkAllConstructorExpressionTypes(space) && ok;
    return checkAllBehaviourExpressionTypes(space) && ok;
}

bool TypeChecker::checkAllEventDeclarationTypes(kel::Namespace const& space) {
    bool ok = true;
    for (kel::ModelDeclaration const* model : space.getModelsVec()) {
        if (kel::InterfaceDeclaration const* interface = model->asInterfaceDeclaration()) {
            for (kel::EventDeclaration const* event : interface->getEventsVec()) {
                ok = checkReturnTypeIsNoData(event->tryGetReturnType()) && ok;
            }
        }
    }
    return ok;
}

bool TypeChecker::checkAllFunctionDeclarationTypes(kel::Namespace const& space) {
    bool ok = true;
    for (kel::ModelDeclaration const* model : space.getModelsVec()) {
        if (kel::Behaviour const* behaviour = model->tryGetBehaviour()) {
            for (kel::FunctionDeclaration const* function : behaviour->getFunctionsVec()) {
                ok = checkReturnTypeIsNoData(function->tryGetReturnType()) && ok;
            }
        }
    }
    return ok;
}

bool TypeChecker::checkReturnTypeIsNoData(kel::TypeReference const* returnType) {
    kel::TypeDeclaration const* type = returnType ? returnType->tryGetDeclaration() : nullptr;
    if (type == nullptr || !isDataType(*type)) {
        return true;
    }
    bool ok = true;
    report(*returnType, "Datatype is not allowed as return type: " + q(returnType->getName()), ok);
    return ok;
}

bool TypeChecker::checkAllConstructorExpressionTypes(kel::Namespace const& space) {
    bool ok = true;
    for (kel::ModelDeclaration const* model : space.getModelsVec()) {
        kel::ComponentDeclaration const* component = model->asComponentDeclaration();
        kel::System const* system = component ? component->tryGetSystem() : nullptr;
        if (system == nullptr) {
            continue;
        }
        for (kel::ConstructorStatement const* statement : system->getStatementsVec()) {
            kel::BindingStatement const* binding = statement->asBindingStatement();
            bool complete = true;
            ok = (binding == nullptr || checkBinding(*binding, complete)) && ok;
            if (!complete) {
                return FALSE();
            }
        }
    }
    return ok;
}

namespace {

// The interface of the side's port, when both the port and its interface are bound.
kel::InterfaceDeclaration const* tryGetBoundInterface(kel::InterfaceInstance const& side) {
    kel::PortReference const* port = side.tryGetPort();
    kel::PortDeclaration const* declaration = port ? port->tryGetDeclaration() : nullptr;
    return declaration ? declaration->getInterface().tryGetDeclaration() : nullptr;
}

} // namespace

// An unbound side is the resolver's error; it leaves `complete` false, which
// ends the bindings of the namespace.
bool TypeChecker::checkBinding(kel::BindingStatement const& binding, bool& complete) {
    if (binding.getLeft().getWildcard() || binding.getRight().getWildcard()) {
        return true;
    }
    kel::InterfaceDeclaration const* left = tryGetBoundInterface(binding.getLeft());
    kel::InterfaceDeclaration const* right =
        left ? tryGetBoundInterface(binding.getRight()) : nullptr;
    if (right == nullptr) {
        complete = false;
        return FALSE();
    }
    bool ok = true;
    if (left->getOid() != right->getOid()) {
        report(binding, "'<=>' requires two arguments of equal type", ok);
    }
    return ok;
}

bool TypeChecker::checkAllBehaviourExpressionTypes(kel::Namespace const& space) {
    bool ok = true;
    for (bool interfaces : {true, false}) {
        for (kel::ModelDeclaration const* model : space.getModelsVec()) {
            kel::Behaviour const* behaviour = model->tryGetBehaviour();
            if (behaviour != nullptr &&
                (model->asInterfaceDeclaration() != nullptr) == interfaces) {
                ok = checkBehaviourExpressionTypes(*behaviour) && ok;
            }
        }
    }
    return ok;
}

bool TypeChecker::checkBehaviourExpressionTypes(kel::Behaviour const& behaviour) {
    bool ok = true;
    for (kel::VariableDeclaration const* variable : behaviour.getVariablesVec()) {
        ok = checkInitialValue(*variable) && ok;
    }
    for (kel::FunctionDeclaration const* function : behaviour.getFunctionsVec()) {
        ok = checkExpressionTypes(function->getStatement()) && ok;
    }
    return checkExpressionTypes(behaviour.getStatement()) && ok;
}

bool TypeChecker::checkInitialValue(kel::VariableDeclaration const& variable) {
    kel::Expression const* value = variable.tryGetInitialValue();
    if (value == nullptr) {
        return true;
    }
    bool ok = true;
    kel::TypeDeclaration const* declared = variable.getType().tryGetDeclaration();
    kel::TypeDeclaration const* found = tryGetAndCheckType(*value, ok);
    if (declared != nullptr && found != nullptr && !isEqualType(*declared, *found)) {
        report(variable, typeMismatch(declared->getName(), q(found->getName())), ok);
    } else if (declared != nullptr && found == nullptr && ok) {
        report(variable, typeMismatch(declared->getName(), "<unknown>"), ok);
    }
    return ok;
}

void TypeChecker::report(kel::Location const& at, std::string const& message, bool& ok) {
    error(locationOf(at), message);
    ok = FALSE();
}

// The main position, where the grammar puts an operator or a declared name,
// rather than the begin of the span.
location TypeChecker::locationOf(kel::Location const& object) {
    std::string const* file = object.hasFile() ? &object.getFile().getName() : nullptr;
    location where;
    where.begin = {file, static_cast<std::uint32_t>(object.getLine()),
                   static_cast<std::uint32_t>(object.getColumn())};
    where.end = {file, static_cast<std::uint32_t>(object.getEndLine()),
                 static_cast<std::uint32_t>(object.getEndColumn())};
    return where;
}

} // namespace language
