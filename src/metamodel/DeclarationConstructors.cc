#include "metamodel/DeclarationConstructors.h"

#include "metamodel/ConstBehaviourVec.h"
#include "metamodel/ConstBindingStatementVec.h"
#include "metamodel/ConstComponentDeclarationVec.h"
#include "metamodel/ConstComponentInstanceDeclarationVec.h"
#include "metamodel/ConstComponentInstanceReferenceVec.h"
#include "metamodel/ConstComponentReferenceVec.h"
#include "metamodel/ConstDataTypeDeclarationVec.h"
#include "metamodel/ConstEnumTypeDeclarationVec.h"
#include "metamodel/ConstEnumValueDeclarationVec.h"
#include "metamodel/ConstEventDeclarationVec.h"
#include "metamodel/ConstExpressionVec.h"
#include "metamodel/ConstFunctionDeclarationVec.h"
#include "metamodel/ConstIntTypeDeclarationVec.h"
#include "metamodel/ConstInterfaceDeclarationVec.h"
#include "metamodel/ConstInterfaceInstanceVec.h"
#include "metamodel/ConstInterfaceReferenceVec.h"
#include "metamodel/ConstInternalDeclarationVec.h"
#include "metamodel/ConstParameterDeclarationVec.h"
#include "metamodel/ConstPortDeclarationVec.h"
#include "metamodel/ConstPortReferenceVec.h"
#include "metamodel/ConstSystemVec.h"
#include "metamodel/ConstTypeReferenceVec.h"
#include "metamodel/ConstVariableDeclarationStatementVec.h"
#include "metamodel/ConstVariableDeclarationVec.h"
#include "metamodel/ConstructionSupport.h"

namespace kel {
namespace {

// A TypeReference of that name, or no object for "void".
om::Oid OptionalTypeReference(om::ObjectModel& model, std::string const& typeName) {
    return typeName == "void" ? om::NULL_OID : NewNamed<TypeReference>(model, typeName);
}

// One side of a binding.
om::Oid InterfaceInstanceOf(om::ObjectModel& model, std::string const& instance,
                            std::string const& port) {
    auto copy = NewCopy<InterfaceInstance>(model);
    if (port == "*") {
        copy.setWildcard(true);
    } else {
        copy.setPort(Find<PortReference>(model, NewNamed<PortReference>(model, port)));
    }
    if (!instance.empty()) {
        auto const referenceId = NewNamed<ComponentInstanceReference>(model, instance);
        copy.setComponent(Find<ComponentInstanceReference>(model, referenceId));
    }
    return Store(model, copy);
}

} // namespace

om::Oid constructInterfaceDeclaration(om::ObjectModel& model, std::string const& name,
                                      om::Oid behaviourId) {
    auto copy = NewCopy<InterfaceDeclaration>(model);
    copy.setName(name);
    if (behaviourId != om::NULL_OID) {
        copy.setBehaviour(Find<Behaviour>(model, behaviourId));
    }
    return Store(model, copy);
}

om::Oid constructEventDeclaration(om::ObjectModel& model, EventDirection direction,
                                  std::string const& returnTypeName, std::string const& name,
                                  OidVec const& parameterIds) {
    auto copy = NewCopy<EventDeclaration>(model);
    copy.setName(name);
    copy.setDirection(direction);
    if (auto const typeId = OptionalTypeReference(model, returnTypeName)) {
        copy.setReturnType(Find<TypeReference>(model, typeId));
    }
    copy.addToParameters(Checked<ParameterDeclaration>(model, parameterIds));
    return Store(model, copy);
}

om::Oid constructBehaviour(om::ObjectModel& model, std::string const& name) {
    // The store makes the required empty compound statement with it.
    return NewNamed<Behaviour>(model, name);
}

om::Oid constructEnumTypeDeclaration(om::ObjectModel& model, std::string const& name,
                                     OidVec const& valueIds) {
    auto copy = NewCopy<EnumTypeDeclaration>(model);
    copy.setName(name);
    copy.setValues(Checked<EnumValueDeclaration>(model, valueIds));
    return Store(model, copy);
}

om::Oid constructEnumValueDeclaration(om::ObjectModel& model, std::string const& name) {
    return NewNamed<EnumValueDeclaration>(model, name);
}

om::Oid constructIntTypeDeclaration(om::ObjectModel& model, std::string const& name,
                                    std::int32_t minValue, std::int32_t maxValue) {
    auto copy = NewCopy<IntTypeDeclaration>(model);
    copy.setName(name);
    copy.setMinValue(minValue);
    copy.setMaxValue(maxValue);
    return Store(model, copy);
}

om::Oid constructDataTypeDeclaration(om::ObjectModel& model, std::string const& name,
                                     std::string const& value) {
    auto copy = NewCopy<DataTypeDeclaration>(model);
    copy.setName(name);
    copy.setValue(value);
    return Store(model, copy);
}

om::Oid constructVariableDeclaration(om::ObjectModel& model, std::string const& typeName,
                                     std::string const& name, om::Oid initialValueId) {
    auto copy = NewCopy<VariableDeclaration>(model);
    copy.setName(name);
    copy.setType(Find<TypeReference>(model, NewNamed<TypeReference>(model, typeName)));
    if (initialValueId != om::NULL_OID) {
        copy.setInitialValue(Find<Expression>(model, initialValueId));
    }
    return Store(model, copy);
}

om::Oid constructVariableDeclarationStatement(om::ObjectModel& model, om::Oid variableId) {
    auto copy = NewCopy<VariableDeclarationStatement>(model);
    copy.setVariable(Find<VariableDeclaration>(model, variableId));
    return Store(model, copy);
}

om::Oid constructInternalDeclaration(om::ObjectModel& model, std::string const& interfaceName,
                                     std::string const& name, OidVec const& parameterIds) {
    auto copy = NewCopy<InternalDeclaration>(model);
    copy.setName(name);
    copy.setDirection(idirRequired);
    copy.setInterface(
        Find<InterfaceReference>(model, NewNamed<InterfaceReference>(model, interfaceName)));
    copy.addToParameters(Checked<ParameterDeclaration>(model, parameterIds));
    return Store(model, copy);
}

om::Oid constructFunctionDeclaration(om::ObjectModel& model, std::string const& returnTypeName,
                                     std::string const& name, OidVec const& parameterIds) {
    // The store makes the required empty compound statement with it.
    auto copy = NewCopy<FunctionDeclaration>(model);
    copy.setName(name);
    if (auto const typeId = OptionalTypeReference(model, returnTypeName)) {
        copy.setReturnType(Find<TypeReference>(model, typeId));
    }
    copy.addToParameters(Checked<ParameterDeclaration>(model, parameterIds));
    return Store(model, copy);
}

om::Oid constructFormalParameter(om::ObjectModel& model, ParameterDirection direction,
                                 std::string const& typeName, std::string const& name) {
    auto copy = NewCopy<ParameterDeclaration>(model);
    copy.setName(name);
    copy.setDirection(direction);
    copy.setType(Find<TypeReference>(model, NewNamed<TypeReference>(model, typeName)));
    return Store(model, copy);
}

om::Oid constructComponentDeclaration(om::ObjectModel& model, std::string const& name,
                                      OidVec const& portIds, om::Oid behaviourId,
                                      om::Oid systemId) {
    auto copy = NewCopy<ComponentDeclaration>(model);
    copy.setName(name);
    copy.setPorts(Checked<PortDeclaration>(model, portIds));
    if (behaviourId != om::NULL_OID) {
        copy.setBehaviour(Find<Behaviour>(model, behaviourId));
    }
    if (systemId != om::NULL_OID) {
        copy.setSystem(Find<System>(model, systemId));
    }
    return Store(model, copy);
}

om::Oid constructPortDeclaration(om::ObjectModel& model, std::string const& interfaceName,
                                 std::string const& name, PortDirection direction, bool injected,
                                 bool external) {
    auto copy = NewCopy<PortDeclaration>(model);
    copy.setName(name);
    copy.setDirection(direction);
    copy.setInjected(injected);
    copy.setExternal(external);
    copy.setInterface(
        Find<InterfaceReference>(model, NewNamed<InterfaceReference>(model, interfaceName)));
    return Store(model, copy);
}

om::Oid constructSystem(om::ObjectModel& model, OidVec const& ids) {
    auto copy = NewCopy<System>(model);
    for (auto const id : ids) {
        if (dynamic_cast<ComponentInstanceDeclaration const*>(model.find(id)) != nullptr) {
            copy.addToInstances(id);
        } else {
            copy.addToStatements(id);
        }
    }
    return Store(model, copy);
}

om::Oid constructInstantiationStatement(om::ObjectModel& model, std::string const& componentName,
                                        std::string const& name) {
    auto copy = NewCopy<ComponentInstanceDeclaration>(model);
    copy.setName(name);
    copy.setComponent(
        Find<ComponentReference>(model, NewNamed<ComponentReference>(model, componentName)));
    return Store(model, copy);
}

om::Oid constructBindingStatement(om::ObjectModel& model, std::string const& leftInstance,
                                  std::string const& leftPort, std::string const& rightInstance,
                                  std::string const& rightPort) {
    auto copy = NewCopy<BindingStatement>(model);
    copy.setLeft(
        Find<InterfaceInstance>(model, InterfaceInstanceOf(model, leftInstance, leftPort)));
    copy.setRight(
        Find<InterfaceInstance>(model, InterfaceInstanceOf(model, rightInstance, rightPort)));
    return Store(model, copy);
}

} // namespace kel
