#include "parser/grammar/ParserBase.h"

#include "metamodel/BuiltinDeclarations.h"
#include "om/AsType.h"
#include "om/OMException.h"

namespace language {

bool ParserBase::isEqualType(kel::TypeDeclaration const& a, kel::TypeDeclaration const& b) {
    return &a == &b ||
           (a.asIntTypeDeclaration() != nullptr && b.asIntTypeDeclaration() != nullptr) ||
           (a.asDataTypeDeclaration() != nullptr && b.asDataTypeDeclaration() != nullptr);
}

bool ParserBase::isBooleanType(kel::TypeDeclaration const& type) {
    return type.getName() == "bool";
}

bool ParserBase::isIntType(kel::TypeDeclaration const& type) {
    return type.asIntTypeDeclaration() != nullptr;
}

bool ParserBase::isDataType(kel::TypeDeclaration const& type) {
    return type.asDataTypeDeclaration() != nullptr;
}

kel::TypeDeclaration const& ParserBase::getBoolType() {
    if (m_boolType == nullptr) {
        m_boolType = kel::GetBoolTypeDeclaration(m_model);
    }
    return *m_boolType;
}

kel::IntTypeDeclaration ParserBase::makeIntType() {
    kel::IntTypeDeclaration type;
    type.setName("int");
    return type;
}

kel::DataTypeDeclaration ParserBase::makeDataType() {
    kel::DataTypeDeclaration type;
    type.setName("$data$");
    return type;
}

bool ParserBase::isBuiltin(std::string const& name) {
    return name == "illegal" || name == "optional" || name == "inevitable";
}

bool ParserBase::isBuiltin(kel::EventInstance const& instance) {
    return isBuiltin(instance.getEvent().getName());
}

kel::EventDeclaration const* ParserBase::tryGetBuiltinEvent(kel::EventInstance const& instance) {
    std::string const& name = instance.getEvent().getName();
    if (name == "illegal") {
        if (m_illegalEvent == nullptr) {
            m_illegalEvent = kel::GetIllegalEvent(m_model);
        }
        return m_illegalEvent;
    }
    if (!isBuiltin(name)) {
        throw om::OMException("Not a built-in event: " + name);
    }
    auto const* interface = dynamic_cast<kel::InterfaceDeclaration const*>(
        instance.tryGetParentOfType(kel::InterfaceDeclaration::ClassName));
    if (interface == nullptr) {
        return nullptr;
    }
    return name == "optional" ? &getOptionalEvent(*interface) : &getInevitableEvent(*interface);
}

kel::EventDeclaration const&
ParserBase::getOptionalEvent(kel::InterfaceDeclaration const& interface) {
    return getInterfaceEvent(interface, "optional");
}

kel::EventDeclaration const&
ParserBase::getInevitableEvent(kel::InterfaceDeclaration const& interface) {
    return getInterfaceEvent(interface, "inevitable");
}

kel::EventDeclaration const&
ParserBase::getInterfaceEvent(kel::InterfaceDeclaration const& interface, std::string const& name) {
    for (kel::EventDeclaration const* event : interface.getEvents()) {
        if (event->getName() == name) {
            return *event;
        }
    }
    kel::EventDeclaration event(om::AsType<kel::EventDeclaration>(
        *m_model.createRecursive(kel::EventDeclaration::ClassName)));
    setLocation(event, interface);
    event.setName(name);
    event.setDirection(kel::edirIn);
    m_model.update(event);
    kel::InterfaceDeclaration changed(interface);
    changed.addToEvents(event.getOid());
    m_model.update(changed);
    return om::AsType<kel::EventDeclaration>(*m_model.find(event.getOid()));
}

} // namespace language
