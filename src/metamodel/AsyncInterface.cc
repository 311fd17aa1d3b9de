#include "metamodel/Behaviour.h"

#include "metamodel/AsyncInterface.h"
#include "metamodel/BuiltinDeclarations.h"
#include "metamodel/ConstBehaviourVec.h"
#include "metamodel/ConstCompoundStatementVec.h"
#include "metamodel/ConstInterfaceDeclarationVec.h"
#include "metamodel/ConstLocationVec.h"
#include "metamodel/ConstModelDeclarationVec.h"
#include "metamodel/ConstNamespaceVec.h"
#include "metamodel/ConstParameterDeclarationVec.h"
#include "metamodel/ConstructionSupport.h"
#include "metamodel/ExpressionConstructors.h"
#include "metamodel/Locations.h"
#include "metamodel/ResolvedConstructors.h"
#include "metamodel/StatementConstructors.h"

#include <string>

namespace kel {
namespace {

// Shared by every store of the process, so that each use gets its own type.
std::string AsyncNameSuffix = "__i";

om::Oid On(om::ObjectModel& model, om::Oid eventId, om::Oid statementId) {
    return constructOnEventStatement(model, eventId, statementId);
}

om::Oid OnEvent(om::ObjectModel& model, std::string const& event, om::Oid statementId) {
    return On(model, constructEventInstance(model, "", event, false), statementId);
}

om::Oid SetIdle(om::ObjectModel& model, BooleanValue value) {
    return constructAssignmentBehaviourStatement(model, "idle",
                                                 ConstructBooleanConstantExpression(model, value));
}

om::Oid Idle(om::ObjectModel& model) { return constructNamedExpression(model, "idle", false, {}); }

// Objects are made in the order of the source text, which fixes their ids.
om::Oid Guarded(om::ObjectModel& model, om::Oid conditionId, OidVec const& statementIds) {
    auto const guardId = constructExpressionGuard(model, conditionId);
    auto const compoundId = constructCompoundBehaviourStatement(model, statementIds);
    return constructGuardedStatement(model, guardId, compoundId);
}

// [idle] on req: idle = false; on clr: illegal;
om::Oid IdleBlock(om::ObjectModel& model) {
    auto const condition = Idle(model);
    return Guarded(model, condition,
                   {OnEvent(model, "req", SetIdle(model, boolFalse)),
                    OnEvent(model, "clr", constructIllegalStatement(model))});
}

// [!idle] on clr: illegal; on clr: idle = true; on inevitable: { ack; idle = true; }
om::Oid BusyBlock(om::ObjectModel& model) {
    auto const condition = constructNotExpression(model, Idle(model));
    auto const first = OnEvent(model, "clr", constructIllegalStatement(model));
    auto const second = OnEvent(model, "clr", SetIdle(model, boolTrue));
    auto const inevitable = constructInevitableInstance(model);
    auto const ackAndIdle = constructCompoundBehaviourStatement(
        model, {constructNameStatement(model, "ack", false, {}), SetIdle(model, boolTrue)});
    return Guarded(model, condition, {first, second, On(model, inevitable, ackAndIdle)});
}

om::Oid AsyncBehaviour(om::ObjectModel& model) {
    Behaviour copy(Find<Behaviour>(model, constructBehaviour(model, "")));
    auto const initial = ConstructBooleanConstantExpression(model, boolTrue);
    copy.addToVariables(constructVariableDeclaration(model, "bool", "idle", initial));
    CompoundStatement statement(copy.getStatement());
    statement.setStatements(OidVec{IdleBlock(model), BusyBlock(model)});
    Store(model, statement);
    return Store(model, copy);
}

OidVec AsyncEvents(om::ObjectModel& model, ConstParameterDeclarationVec const& parameters) {
    return {
        constructEventDeclaration(model, edirIn, "void", "req", copyParameters(model, parameters)),
        constructEventDeclaration(model, edirOut, "void", "ack", copyParameters(model, parameters)),
        constructEventDeclaration(model, edirIn, "void", "clr", {})};
}

void PlaceAt(om::ObjectModel& model, om::Oid interfaceId, Location const& location) {
    for (auto const* object : model.getTreeVec(interfaceId)) {
        if (dynamic_cast<Location const*>(object) != nullptr) {
            UpdateLocation(object->getOid(), location);
        }
    }
}

} // namespace

InterfaceDeclaration const&
getAsyncInterfaceDeclaration(om::ObjectModel& model, Location const& location,
                             ConstParameterDeclarationVec const& parameters) {
    auto const events = AsyncEvents(model, parameters);
    auto const interfaceId =
        constructInterfaceDeclaration(model, "async" + AsyncNameSuffix, AsyncBehaviour(model));
    InterfaceDeclaration interface(Find<InterfaceDeclaration>(model, interfaceId));
    interface.setEvents(events);
    Store(model, interface);
    PlaceAt(model, interfaceId, location);

    Namespace space(*GetKelNamespace(model));
    space.addToModels(interfaceId);
    Store(model, space);
    AsyncNameSuffix += "i";
    return Find<InterfaceDeclaration>(model, interfaceId);
}

} // namespace kel
