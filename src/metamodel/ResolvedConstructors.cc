#include "metamodel/ResolvedConstructors.h"

#include "metamodel/ConstEnumConstantExpressionVec.h"
#include "metamodel/ConstEnumValueDeclarationVec.h"
#include "metamodel/ConstEnumValueReferenceVec.h"
#include "metamodel/ConstEventDeclarationVec.h"
#include "metamodel/ConstEventInstanceVec.h"
#include "metamodel/ConstEventReferenceVec.h"
#include "metamodel/ConstNamedVec.h"
#include "metamodel/ConstParameterDeclarationVec.h"
#include "metamodel/ConstPortDeclarationVec.h"
#include "metamodel/ConstPortReferenceVec.h"
#include "metamodel/ConstTypeReferenceVec.h"
#include "metamodel/ConstructionSupport.h"
#include "metamodel/Locations.h"

namespace kel {
namespace {

// A reference of class T to `declaration`, with its name and location.
template <class T> om::Oid ReferenceTo(om::ObjectModel& model, Named const& declaration) {
    auto copy = NewObject<T>(model);
    CopyNameAndLocation(copy, declaration);
    copy.setDeclaration(declaration.getOid());
    return Insert(model, std::move(copy));
}

} // namespace

om::Oid ConstructEventInstance(om::ObjectModel& model, EventDeclaration const& event) {
    auto copy = NewObject<EventInstance>(model);
    copy.setEvent(Find<EventReference>(model, ReferenceTo<EventReference>(model, event)));
    CopyNameAndLocation(copy, event);
    return Insert(model, std::move(copy));
}

om::Oid ConstructEventInstance(om::ObjectModel& model, EventDeclaration const& event,
                               PortDeclaration const& port) {
    auto copy = NewObject<EventInstance>(model);
    copy.setEvent(Find<EventReference>(model, ReferenceTo<EventReference>(model, event)));
    auto const& portReference = Find<PortReference>(model, ReferenceTo<PortReference>(model, port));
    copy.setPort(portReference);
    copy.setName(port.getName() + "." + event.getName());
    CopyLocation(copy, portReference);
    return Insert(model, std::move(copy));
}

om::Oid ConstructEnumConstantExpression(om::ObjectModel& model, EnumValueDeclaration const& value) {
    auto reference = NewObject<EnumValueReference>(model);
    reference.setName(value.getName());
    reference.setDeclaration(value.getOid());
    auto copy = NewObject<EnumConstantExpression>(model);
    copy.setValue(Find<EnumValueReference>(model, Insert(model, std::move(reference))));
    return Insert(model, std::move(copy));
}

om::Oid copyParameterDeclaration(om::ObjectModel& model, ParameterDeclaration const& parameter) {
    auto const& type = parameter.getType();
    auto typeCopy = NewObject<TypeReference>(model);
    CopyNameAndLocation(typeCopy, type);
    auto copy = NewObject<ParameterDeclaration>(model);
    CopyNameAndLocation(copy, parameter);
    copy.setDirection(parameter.getDirection());
    copy.setType(Find<TypeReference>(model, Insert(model, std::move(typeCopy))));
    return Insert(model, std::move(copy));
}

std::vector<om::Oid> copyParameters(om::ObjectModel& model,
                                    ConstParameterDeclarationVec const& parameters) {
    std::vector<om::Oid> ids;
    for (auto const* parameter : parameters) {
        ids.push_back(copyParameterDeclaration(model, *parameter));
    }
    return ids;
}

void DestructEventInstance(om::ObjectModel& model, EventInstance const& instance) {
    model.destroyRecursive(instance.getOid());
}

} // namespace kel
