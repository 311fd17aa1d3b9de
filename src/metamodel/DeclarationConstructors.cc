#include "metamodel/DeclarationConstructors.h"

#include "metamodel/ConstBehaviourVec.h"
#include "metamodel/ConstBindingStatementVec.h"
#include "metamodel/ConstComponentDeclarationVec.h"
#include "metamodel/ConstComponentInstanceDeclarationVec.h"
#include "metamodel/ConstComponentInstanceReferenceVec.h"
#include "metamodel/ConstComponentReferenceVec.h"
#include "metamodel/ConstCompoundStatementVec.h"
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
    auto copy = NewObject<InterfaceInstance>(model);
    if (port == "*") {
        copy.setWildcard(true);
    } else {
        copy.setPort(Find<PortReference>(model, NewNamed<PortReference>(model, port)));
    }
    if (!instance.empty()) {
        auto const referenceId = NewNamed<ComponentInstanceReference>(model, instance);
        copy.setComponent(Find<ComponentInstanceReference>(model, referenceId));
    }
    return Insert(model, std::move(copy));
}

// The empty block that a behaviour or function starts with, made right after
// its owner as the store used to make required children.
CompoundStatement const& NewBlock(om::ObjectModel& model) {
    return Find<CompoundStatement>(model, Insert(model, NewObject<CompoundStatement>(model)));
}

} // namespace

om::Oid constructInterfaceDeclaration(om::ObjectModel& model, std::string const& name,
                                      om::Oid behaviourId) {
    auto copy = NewObject<InterfaceDeclaration>(model);
    copy.setName(name);
    if (behaviourId != om::NULL_OID) {
        copy.setBehaviour(Find<Behaviour>(model, behaviourId));
    }
    return Insert(model, std::move(copy));
}

om::Oid constructEventDeclaration(om::ObjectModel& model, EventDirection direction,
                                  std::string const& returnTypeName, std::string const& name,
                                  OidVec const& parameterIds) {
    auto copy = NewObject<EventDeclaration>(model);
    copy.setName(name);
    copy.setDirection(direction);
    if (auto const typeId = OptionalTypeReference(model, returnTypeName)) {
        copy.setReturnType(Find<TypeReference>(model, typeId));
    }
    copy.addToParameters(Checked<ParameterDeclaration>(model, parameterIds));
    return Insert(model, std::move(copy));
}

om::Oid constructBehaviour(om::ObjectModel& model, std::string const& name) {
    auto copy = NewObject<Behaviour>(model);
    copy.setName(name);
    copy.setStatement(NewBlock(model));
    return Insert(model, std::move(copy));
}

om::Oid constructEnumTypeDeclaration(om::ObjectModel& model, std::string const& name,
                                     OidVec const& valueIds) {
    auto copy = NewObject<EnumTypeDeclaration>(model);
    copy.setName(name);
    copy.setValues(Checked<EnumValueDeclaration>(model, valueIds));
    return Insert(model, std::move(copy));
}

om::Oid constructEnumValueDeclaration(om::ObjectModel& model, std::string const& name) {
    return NewNamed<EnumValueDeclaration>(model, name);
}

om::Oid constructIntTypeDeclaration(om::ObjectModel& model, std::string const& name,
                                    std::int32_t minValue, std::int32_t maxValue) {
    auto copy = NewObject<IntTypeDeclaration>(model);
    copy.setName(name);
    copy.setMinValue(minValue);
    copy.setMaxValue(maxValue);
    return Insert(model, std::move(copy));
}

om::Oid constructDataTypeDeclaration(om::ObjectModel& model, std::string const& name,
                                     std::string const& value) {
    auto copy = NewObject<DataTypeDeclaration>(model);
    copy.setName(name);
    copy.setValue(value);
    return Insert(model, std::move(copy));
}

om::Oid constructVariableDeclaration(om::ObjectModel& model, std::string const& typeName,
                                     std::string const& name, om::Oid initialValueId) {
    auto copy = NewObject<VariableDeclaration>(model);
    copy.setName(name);
    copy.setType(Find<TypeReference>(model, NewNamed<TypeReference>(model, typeName)));
    if (initialValueId != om::NULL_OID) {
        copy.setInitialValue(Find<Expression>(model, initialValueId));
    }
    return Insert(model, std::move(copy));
}

om::Oid constructVariableDeclarationStatement(om::ObjectModel& model, om::Oid variableId) {
    auto copy = NewObject<VariableDeclarationStatement>(model);
    copy.setVariable(Find<VariableDeclaration>(model, variableId));
    return Insert(model, std::move(copy));
}

om::Oid constructInternalDeclaration(om::ObjectModel& model, std::string const& interfaceName,
                                     std::string const& name, OidVec const& parameterIds) {
    auto copy = NewObject<InternalDeclaration>(model);
    copy.setName(name);
    copy.setDirection(idirRequired);
    copy.setInterface(
        Find<InterfaceReference>(model, NewNamed<InterfaceReference>(model, interfaceName)));
    copy.addToParameters(Checked<ParameterDeclaration>(model, parameterIds));
    return Insert(model, std::move(copy));
}

om::Oid constructFunctionDeclaration(om::ObjectModel& model, std::string const& returnTypeName,
                                     std::string const& name, OidVec const& parameterIds) {
    auto copy = NewObject<FunctionDeclaration>(model);
    copy.setStatement(NewBlock(model));
    copy.setName(name);
    if (auto const typeId = OptionalTypeReference(model, returnTypeName)) {
        copy.setReturnType(Find<TypeReference>(model, typeId));
    }
    copy.addToParameters(Checked<ParameterDeclaration>(model, parameterIds));
    return Insert(model, std::move(copy));
}

om::Oid constructFormalParameter(om::ObjectModel& model, ParameterDirection direction,
                                 std::string const& typeName, std::string const& name) {
    auto copy = NewObject<ParameterDeclaration>(model);
    copy.setName(name);
    copy.setDirection(direction);
    copy.setType(Find<TypeReference>(model, NewNamed<TypeReference>(model, typeName)));
    return Insert(model, std::move(copy));
}

om::Oid constructComponentDeclaration(om::ObjectModel& model, std::string const& name,
                                      OidVec const& portIds, om::Oid behaviourId,
                                      om::Oid systemId) {
    auto copy = NewObject<ComponentDeclaration>(model);
    copy.setName(name);
    copy.setPorts(Checked<PortDeclaration>(model, portIds));
    if (behaviourId != om::NULL_OID) {
        copy.setBehaviour(Find<Behaviour>(model, behaviourId));
    }
    if (systemId != om::NULL_OID) {
        copy.setSystem(Find<System>(model, systemId));
    }
    return Insert(model, std::move(copy));
}

om::Oid constructPortDeclaration(om::ObjectModel& model, std::string const& interfaceName,
                                 std::string const& name, PortDirection direction, bool injected,
                                 bool external) {
    auto copy = NewObject<PortDeclaration>(model);
    copy.setName(name);
    copy.setDirection(direction);
    copy.setInjected(injected);
    copy.setExternal(external);
    copy.setInterface(
        Find<InterfaceReference>(model, NewNamed<InterfaceReference>(model, interfaceName)));
    return Insert(model, std::move(copy));
}

om::Oid constructSystem(om::ObjectModel& model, OidVec const& ids) {
    auto copy = NewObject<System>(model);
    // Added as two lists: one by one, each instance of a system of thousands
    // would be looked for among all before it.
    OidVec instances;
    OidVec statements;
    for (auto const id : ids) {
        auto const* object = model.find(id);
        (om::IsA<ComponentInstanceDeclaration>(*object) ? instances : statements).push_back(id);
    }
    copy.addToInstances(instances);
    copy.addToStatements(statements);
    return Insert(model, std::move(copy));
}

om::Oid constructInstantiationStatement(om::ObjectModel& model, std::string const& componentName,
                                        std::string const& name) {
    auto copy = NewObject<ComponentInstanceDeclaration>(model);
    copy.setName(name);
    copy.setComponent(
        Find<ComponentReference>(model, NewNamed<ComponentReference>(model, componentName)));
    return Insert(model, std::move(copy));
}

om::Oid constructBindingStatement(om::ObjectModel& model, std::string const& leftInstance,
                                  std::string const& leftPort, std::string const& rightInstance,
                                  std::string const& rightPort) {
    auto copy = NewObject<BindingStatement>(model);
    copy.setLeft(
        Find<InterfaceInstance>(model, InterfaceInstanceOf(model, leftInstance, leftPort)));
    copy.setRight(
        Find<InterfaceInstance>(model, InterfaceInstanceOf(model, rightInstance, rightPort)));
    return Insert(model, std::move(copy));
}

} // namespace kel
