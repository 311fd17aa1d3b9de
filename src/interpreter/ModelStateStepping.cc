// The step loop and the execution of every statement but actions and replies.
#include "interpreter/ModelState.h"

#include "interpreter/StatementQueries.h"

#include "metamodel/ConstBlockingStatementVec.h"
#include "metamodel/ConstCompoundStatementVec.h"
#include "metamodel/ConstOnEventStatementVec.h"
#include "metamodel/EventReference.h"
#include "metamodel/ExpressionGuard.h"
#include "metamodel/FunctionDeclaration.h"
#include "metamodel/FunctionReference.h"
#include "metamodel/Kel.h"
#include "metamodel/TreePredicates.h"
#include "metamodel/VariableReference.h"

#include "om/AsType.h"

#include <ranges>
#include <stdexcept>
#include <string_view>

namespace {

// Appends the statements of class T, in the order of the block.
template <class T>
void AppendOfClass(StateVector::Candidates& to,
                   om::ObjectView<kel::BehaviourStatement> const& statements) {
    for (auto const* statement : statements) {
        if (om::IsA<T>(*statement)) {
            to.push_back(statement);
        }
    }
}

kel::FunctionCallExpression const* AsCall(kel::Expression const* expression) {
    return expression == nullptr ? nullptr : expression->asFunctionCallExpression();
}

std::string LineOf(kel::BehaviourStatement const& statement) {
    return std::to_string(statement.getBeginLine());
}

} // namespace

void ModelState::runToNextBranchPoint() {
    if (!continuations.empty()) {
        return;
    }
    while (!isProgramExecutionStopped()) {
        singleStep();
        CheckLivelock();
        if (!continuations.empty()) {
            return;
        }
    }
}

void ModelState::singleStep() {
    if (program.IsCurrentScopeDepleted()) {
        returnFromCurrentScope();
        return;
    }
    if (!isActive) {
        if (isInterface()) {
            singleStepInterfaceProgramActivation();
        } else {
            singleStepComponentProgramActivation();
        }
        return;
    }
    auto const& top = *program.TopStatement();
    if (auto const* s = top.asAssignmentStatement()) {
        singleStepAssignmentStatement(*s);
    } else if (auto const* s = top.asGuardedStatement()) {
        singleStepGuardedStatement(*s);
    } else if (top.asCompoundStatement() != nullptr) {
        stepInto(top);
    } else if (auto const* s = top.asOnEventStatement()) {
        singleStepOnEventStatement(*s);
    } else if (auto const* s = top.asActionStatement()) {
        singleStepActionStatement(*s);
    } else if (auto const* s = top.asFunctionCallStatement()) {
        singleStepFunctionCallStatement(*s);
    } else if (auto const* s = top.asReturnStatement()) {
        singleStepReturnStatement(*s);
    } else if (auto const* s = top.asReplyStatement()) {
        singleStepReplyStatement(*s);
    } else if (auto const* s = top.asVariableDeclarationStatement()) {
        singleStepVariableDeclarationStatement(*s);
    } else if (auto const* s = top.asIfStatement()) {
        singleStepIfStatement(*s);
    } else if (auto const* s = top.asBlockingStatement()) {
        singleStepBlockingStatement(*s);
    } else if (top.asNameStatement() != nullptr) {
        throw std::runtime_error("Unsupported BehviourStatement type 'NameStatement'");
    } else {
        throw std::runtime_error("Unsupported BehaviourStatement type");
    }
}

void ModelState::returnFromCurrentScope() {
    auto const& scope = *program.CurrentScope();
    if (scope.IsMainProgram()) {
        returnToInitialStatement();
    } else if (scope.IsCompound()) {
        program.CloseScope();
        stateVector.CloseContext();
    } else {
        throw std::runtime_error("Cannot step out of scope type " +
                                 kel::BehaviourStatement::ClassName);
    }
}

void ModelState::stepInto(kel::BehaviourStatement const& statement) {
    if (auto const* compound = statement.asCompoundStatement()) {
        program.PopNextStatement();
        if (kel::IsDeclarative(*compound)) {
            stepIntoDeclarativeCompound(*compound);
        } else {
            stepIntoImperativeCompound(*compound);
        }
        return;
    }
    if (auto const* call = statement.asFunctionCallStatement()) {
        program.PopNextStatement();
        stepIntoFunctionExpression(call->getExpression());
        return;
    }
    kel::Expression const* value = nullptr;
    if (auto const* assignment = statement.asAssignmentStatement()) {
        value = assignment->tryGetValue();
    } else if (auto const* declaration = statement.asVariableDeclarationStatement()) {
        value = declaration->getVariable().tryGetInitialValue();
    } else {
        throw std::runtime_error("Cannot step into BehaviourStatement of type: " +
                                 kel::BehaviourStatement::ClassName);
    }
    if (auto const* call = AsCall(value)) {
        program.PopNextStatement();
        stepIntoFunctionExpression(*call);
    }
}

void ModelState::stepIntoImperativeCompound(kel::CompoundStatement const& compound) {
    program.OpenScope(compound);
    stateVector.OpenContext(compound);
    auto const statements = compound.getStatementsView();
    for (auto const* statement : std::views::reverse(statements)) {
        program.PushStatement(*statement);
    }
}

void ModelState::stepIntoDeclarativeCompound(kel::CompoundStatement const& compound) {
    auto const statements = compound.getStatementsView();
    StateVector::Candidates candidates;
    stateVector.appendPassableGuardedStatements(statements, candidates);
    AppendOfClass<kel::OnEventStatement>(candidates, statements);
    AppendOfClass<kel::CompoundStatement>(candidates, statements);
    AppendOfClass<kel::BlockingStatement>(candidates, statements);
    if (candidates.empty()) {
        deadend("No reachable statements found.");
    } else if (candidates.size() == 1) {
        program.PushStatement(*candidates.front());
    } else {
        for (auto const* candidate : candidates) {
            continuations.push_back(std::make_unique<ModelState>(*this, *candidate));
        }
    }
}

void ModelState::stepIntoFunctionExpression(kel::FunctionCallExpression const& call) {
    program.OpenScope(NearestStatement(call));
    auto const& function = call.getFunction().getDeclaration();
    program.PushStatement(function.getStatement());
    stateVector.OpenContext(function.getStatement());
    auto const parameters = function.getParametersView();
    auto const arguments = call.getArgumentsView();
    try {
        for (std::size_t i = 0; i < parameters.size(); ++i) {
            if (kel::IsDataVariable(*parameters[i])) {
                continue;
            }
            auto const value = stateVector.EvaluateExpression(*arguments[i]);
            if (value == nullptr) {
                stateVector.DeclareStateVariable(*parameters[i]);
            } else {
                stateVector.DeclareStateVariable(*parameters[i], *value);
            }
        }
    } catch (std::out_of_range const& error) {
        programError(std::string("Function actual parameter declaration failed. ") + error.what());
    }
}

void ModelState::singleStepGuardedStatement(kel::GuardedStatement const& statement) {
    if (!isPassable(statement.getGuard())) {
        deadend("Guard condition not met.");
        return;
    }
    traceStatement(statement);
    program.PopNextStatement();
    program.PushStatement(statement.getStatement());
}

void ModelState::singleStepCompoundStatement(kel::CompoundStatement const& statement) {
    stepInto(statement);
}

void ModelState::singleStepIfStatement(kel::IfStatement const& statement) {
    traceStatement(statement);
    program.PopNextStatement();
    if (stateVector.BoolExpressionValue(statement.getExpression())) {
        program.PushStatement(statement.getThenStatement());
    } else if (auto const* otherwise = statement.tryGetElseStatement()) {
        program.PushStatement(*otherwise);
    }
}

void ModelState::singleStepBlockingStatement(kel::BlockingStatement const& statement) {
    program.PopNextStatement();
    if (activationEvent.IsCall()) {
        isBlocking = true;
    }
    program.PushStatement(statement.getStatement());
}

void ModelState::singleStepOnEventStatement(kel::OnEventStatement const& statement) {
    auto const enter = [&] {
        program.PopNextStatement();
        program.PushStatement(statement.getStatement());
    };
    // Most ways of a search die here: the message is built in one piece.
    auto const mismatch = [&](std::string_view what, std::string_view name = {}) {
        std::string text;
        text.reserve(64 + what.size() + name.size());
        text.append("On event statement on line: ")
            .append(LineOf(statement))
            .append(" does not represent ")
            .append(what)
            .append(name);
        deadend(std::move(text));
    };
    if (kel::IsBuiltin(statement)) {
        if (!isMatchingEventStatement(statement, activationEvent.str())) {
            mismatch("current call context.");
            return;
        }
        currentCallContext = kel::TryGetBuiltinEventInstance(statement);
        traceStatement(statement);
        trace(ProgramStep::OnEvent(*currentCallContext, snapshot(), activationEvent));
        enter();
        return;
    }
    if (isComponent() && !stateVector.queue.empty()) {
        auto const name = stateVector.getQueueFront();
        if (!isMatchingEventStatement(statement, name)) {
            mismatch("receive queue head.");
            return;
        }
        stateVector.queue.pop_front();
        auto const& instance = *kel::TryGetEventInstance(statement, name);
        trace(ProgramStep::Dequeue(kel::PortEvent(instance), snapshot(), activationEvent));
        traceStatement(statement);
        trace(ProgramStep::OnEvent(instance, snapshot(), activationEvent));
        enter();
        return;
    }
    auto const name = activationEvent.str();
    if (!isMatchingEventStatement(statement, name)) {
        mismatch("activation event ", name);
        return;
    }
    currentCallContext = kel::TryGetEventInstance(statement, name);
    traceStatement(statement);
    trace(ProgramStep::OnEvent(*currentCallContext, snapshot(), activationEvent));
    enter();
    namedEventConsumed();
}

void ModelState::singleStepAssignmentStatement(kel::AssignmentStatement const& statement) {
    auto const& value = statement.getValue();
    if (auto const* call = value.asFunctionCallExpression()) {
        stepInto(statement);
        trace(ProgramStep::FunctionCall(*call, snapshot(), activationEvent));
        return;
    }
    if (auto const* action = value.asActionExpression()) {
        if (activeActionEvent != nullptr) {
            executeActionExpressionReturn(*action);
        } else {
            executeActionExpressionCall(*action);
        }
        return;
    }
    auto const& variable = statement.getVariable().getDeclaration();
    if (kel::IsStateVariable(variable)) {
        try {
            stateVector.AssignStateVariable(variable, value);
        } catch (std::out_of_range const& error) {
            traceStatement(statement);
            programError(std::string("Illegal value in assignment: ") + error.what());
            return;
        }
    }
    traceStatement(statement);
    program.PopNextStatement();
}

void ModelState::singleStepVariableDeclarationStatement(
    kel::VariableDeclarationStatement const& statement) {
    auto const& variable = statement.getVariable();
    if (kel::IsDataVariable(variable)) {
        traceStatement(statement);
        program.PopNextStatement();
        return;
    }
    auto const* initial = variable.tryGetInitialValue();
    if (initial == nullptr) {
        throw std::runtime_error(
            "Well-formedness demands that declaration statement has initial value.");
    }
    stateVector.DeclareStateVariable(variable);
    if (auto const* call = initial->asFunctionCallExpression()) {
        stepInto(statement);
        trace(ProgramStep::FunctionCall(*call, snapshot(), activationEvent));
        return;
    }
    if (auto const* action = initial->asActionExpression()) {
        if (activeActionEvent != nullptr) {
            executeActionExpressionReturn(*action);
        } else {
            executeActionExpressionCall(*action);
        }
        return;
    }
    auto const value = stateVector.EvaluateExpression(*initial);
    if (value == nullptr) {
        programError("expression could not be evaluated due to uninitialized variable");
        return;
    }
    traceStatement(statement);
    program.PopNextStatement();
    try {
        stateVector.AssignStateVariable(variable, *value);
    } catch (std::out_of_range const& error) {
        programError(std::string("Illegal value in assignment: ") + error.what());
    }
}

void ModelState::singleStepFunctionCallStatement(kel::FunctionCallStatement const& statement) {
    stepInto(statement);
    traceStatement(statement);
}

void ModelState::singleStepReturnStatement(kel::ReturnStatement const& statement) {
    StateVariableValuePtr value;
    if (auto const* expression = statement.tryGetExpression()) {
        if (expression->asDataExpression() != nullptr) {
            throw std::runtime_error(
                "Well-formedness error: Datatype is not allowed as return type");
        }
        value = stateVector.EvaluateExpression(*expression);
    }
    program.PopNextStatement();
    while (!program.CurrentScope()->IsFunction()) {
        program.CloseScope();
        stateVector.CloseContext();
    }
    auto const& owner = *program.GetScopeOwner();
    program.CloseScope();
    stateVector.CloseContext();
    traceStatement(statement);
    if (!statement.hasExpression()) {
        return;
    }
    auto const* variable = AssignedVariable(owner);
    std::string failure;
    if (variable != nullptr) {
        try {
            stateVector.AssignStateVariable(*variable, std::move(value));
        } catch (std::out_of_range const& error) {
            failure = error.what();
        }
    }
    traceStatement(owner);
    if (!failure.empty()) {
        programError("Illegal value in assignment: " + failure);
    }
}
