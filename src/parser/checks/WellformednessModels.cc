// The checks on namespaces, interfaces, components, internal and injected
// ports, and names that clash with their model.
#include "parser/checks/WellformednessChecker.h"

#include "metamodel/TreePredicates.h"
#include "om/OMException.h"
#include "parser/checks/ModelQueries.h"

#include <utility>

namespace language {

bool WellformednessChecker::checkWellformednessNamespace(kel::Namespace const& space) {
    bool ok = true;
    for (kel::Namespace const* inner : space.getNamespacesVec()) {
        ok = checkWellformednessNamespace(*inner) && ok;
    }
    for (kel::TypeDeclaration const* type : space.getTypesVec()) {
        if (kel::IntTypeDeclaration const* subrange = type->asIntTypeDeclaration()) {
            ok = checkSubInt(*subrange) && ok;
        }
    }
    kel::ConstModelDeclarationVec models = space.getModelsVec();
    for (kel::ModelDeclaration const* model : models) {
        kel::InterfaceDeclaration const* interface = model->asInterfaceDeclaration();
        if (interface == nullptr || kel::IsDefaultInterface(*interface)) {
            continue;
        }
        takeTriggersOf(*interface);
        ok = checkWellformednessInterface(*interface) && ok;
        clearTriggers();
    }
    for (kel::ModelDeclaration const* model : models) {
        kel::ComponentDeclaration const* component = model->asComponentDeclaration();
        if (component == nullptr) {
            continue;
        }
        for (kel::PortDeclaration const* port : component->getPortsVec()) {
            ok = checkModelNameclash(*port) && ok;
        }
        ok = checkInjectedPorts(*component) && ok;
        takeTriggersOf(*component);
        ok = (component->hasSystem() ? checkWellformednessSystem(*component)
                                     : checkWellformednessComponent(*component)) &&
             ok;
        clearTriggers();
    }
    return ok;
}

bool WellformednessChecker::checkWellformednessInterface(
    kel::InterfaceDeclaration const& interface) {
    bool ok = true;
    kel::ConstTypeDeclarationVec types = interface.getTypesVec();
    for (kel::TypeDeclaration const* type : types) {
        ok = checkModelNameclash(*type) && ok;
    }
    for (kel::TypeDeclaration const* type : types) {
        if (kel::IntTypeDeclaration const* subrange = type->asIntTypeDeclaration()) {
            ok = checkSubInt(*subrange) && ok;
        }
    }
    if (!interface.hasEvents()) {
        ok = report(interface,
                    "Interface must define at least one event: " + q(interface.getName()));
    }
    if (kel::Behaviour const* behaviour = interface.tryGetBehaviour()) {
        ok = checkWellformednessBehaviour(*behaviour) && ok;
    } else {
        ok = report(interface, "Interface must define behaviour: " + q(interface.getName()));
    }
    for (kel::EventDeclaration const* event : interface.getEventsVec()) {
        ok = checkEventDeclaration(*event) && ok;
    }
    return ok;
}

bool WellformednessChecker::checkEventDeclaration(kel::EventDeclaration const& event) {
    bool ok = true;
    kel::ConstParameterDeclarationVec parameters = event.getParametersVec();
    for (kel::ParameterDeclaration const* parameter : parameters) {
        kel::TypeReference const& type = parameter->getType();
        if (type.hasDeclaration() && type.getDeclaration().asDataTypeDeclaration() == nullptr) {
            ok = report(type, "Parameter type must be a data type.: " + q(type.getName()));
        }
    }
    if (event.getDirection() != kel::edirOut) {
        return ok;
    }
    if (event.hasReturnType()) {
        ok = report(event,
                    "Out Event with non void return type is not allowed: " + q(event.getName()));
    }
    for (kel::ParameterDeclaration const* parameter : parameters) {
        if (parameter->getDirection() == kel::pdirOut) {
            ok = report(*parameter,
                        "Out Parameter is not allowed for out Event: " + q(parameter->getName()));
        } else if (parameter->getDirection() == kel::pdirInOut) {
            ok = report(*parameter,
                        "Inout Parameter is not allowed for out Event: " + q(parameter->getName()));
        }
    }
    return ok;
}

bool WellformednessChecker::checkWellformednessComponent(
    kel::ComponentDeclaration const& component) {
    kel::Behaviour const* behaviour = component.tryGetBehaviour();
    if (behaviour == nullptr) {
        return true;
    }
    bool ok = true;
    if (m_triggers.empty()) {
        ok = report(component, "Component with behaviour needs at least one trigger event: " +
                                   q(component.getName()));
    }
    if (providedPorts(component).empty()) {
        ok = report(component, "Component with behaviour must have at least one provides port: " +
                                   q(component.getName()));
    }
    return checkWellformednessBehaviour(*behaviour) && ok;
}

bool WellformednessChecker::checkWellformednessInternal(kel::InternalDeclaration const& internal) {
    bool ok = true;
    for (kel::ParameterDeclaration const* parameter : internal.getParametersVec()) {
        if (parameter->getDirection() != kel::pdirIn) {
            ok = report(*parameter,
                        "Only 'in' parameters are allowed here: " + q(parameter->getName()));
        }
    }
    return ok;
}

bool WellformednessChecker::checkInjectedPorts(kel::ComponentDeclaration const& component) {
    bool ok = true;
    for (kel::PortDeclaration const* port : component.getPortsVec()) {
        kel::InterfaceDeclaration const* interface = port->getInterface().tryGetDeclaration();
        if (!port->getInjected() || interface == nullptr) {
            continue;
        }
        for (kel::EventDeclaration const* event : interface->getEventsVec()) {
            if (event->getDirection() == kel::edirOut) {
                ok = report(*port, "Injected Port has out event: " + q(port->getName()));
                break;
            }
        }
    }
    return ok;
}

bool WellformednessChecker::checkModelNameclash(kel::Named const& named) {
    kel::ModelDeclaration const* model = tryGetAncestor<kel::ModelDeclaration>(named);
    if (model == nullptr || model->getName() != named.getName()) {
        return true;
    }
    return report(named, showClassName(named) +
                             " name must not be equal to model name: " + q(named.getName()));
}

std::string WellformednessChecker::showClassName(kel::Named const& named) {
    static std::pair<std::string const*, char const*> const labels[] = {
        {&kel::Namespace::ClassName, "Namespace"},
        {&kel::InterfaceDeclaration::ClassName, "Interface"},
        {&kel::ComponentDeclaration::ClassName, "Component"},
        {&kel::ComponentReference::ClassName, "Component"},
        {&kel::InterfaceReference::ClassName, "Interface"},
        {&kel::PortDeclaration::ClassName, "Port"},
        {&kel::PortReference::ClassName, "Port"},
        {&kel::EventDeclaration::ClassName, "Event"},
        {&kel::EventReference::ClassName, "Event"},
        {&kel::EnumTypeDeclaration::ClassName, "Enum type"},
        {&kel::DataTypeDeclaration::ClassName, "Data type"},
        {&kel::IntTypeDeclaration::ClassName, "Subint type"},
        {&kel::EnumValueDeclaration::ClassName, "Enum value"},
        {&kel::EnumValueReference::ClassName, "Enum value"},
        {&kel::Behaviour::ClassName, "Behaviour"},
        {&kel::FunctionDeclaration::ClassName, "Function"},
        {&kel::FunctionReference::ClassName, "Function"},
        {&kel::VariableDeclaration::ClassName, "Variable"},
        {&kel::VariableReference::ClassName, "Variable"},
        {&kel::EventInstance::ClassName, "Event instance"},
        {&kel::ComponentInstanceDeclaration::ClassName, "Component instance"},
        {&kel::ComponentInstanceReference::ClassName, "Component instance"}};
    for (auto const& [name, label] : labels) {
        if (named.isDerivedFrom(*name)) {
            return label;
        }
    }
    throw om::OMException("unexpected named type in showClassName: " + named.getClassName());
}

} // namespace language
