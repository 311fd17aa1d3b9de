// Runs of loaded models, driven through the state's own stepping, and what
// the tests read off the states they end in.
#pragma once

#include "interpreter/ModelState.h"
#include "interpreter/ProgramStep.h"

#include "metamodel/Behaviour.h"
#include "metamodel/BehaviourStatement.h"
#include "metamodel/CompoundStatement.h"
#include "metamodel/ModelDeclaration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace interpreter::test {

using Kind = ProgramStep::ProgramStepKind;

inline std::vector<Kind> Kinds(ModelState const& state) {
    std::vector<Kind> kinds;
    for (auto const& step : state.programTrace->ToVector()) {
        kinds.push_back(step->kind);
    }
    return kinds;
}

// The kinds of the steps added since the history held `from` steps.
inline std::vector<Kind> KindsSince(ModelState const& state, std::size_t from) {
    auto const all = Kinds(state);
    return {all.begin() + static_cast<std::ptrdiff_t>(from), all.end()};
}

// The diagram's labels of the steps added since the history held `from`.
inline std::vector<std::string> Labels(ModelState const& state, std::size_t from) {
    std::vector<std::string> labels;
    auto const steps = state.programTrace->ToVector();
    for (std::size_t i = from; i < steps.size(); ++i) {
        labels.push_back(steps[i]->getStepKindName());
    }
    return labels;
}

inline ProgramStep const& LastStep(ModelState const& state) { return *state.programTrace->step; }

// Every state in which the run of `first` ends, depth first in the order of
// the forks. Unlike the search, it keeps every dead end with its own message.
inline ModelStates Leaves(ModelStatePtr first) {
    ModelStates leaves;
    ModelStates pending;
    pending.push_back(std::move(first));
    while (!pending.empty()) {
        ModelStatePtr state = std::move(pending.back());
        pending.pop_back();
        state->runToNextBranchPoint();
        ModelStates next = state->GetContinuations();
        if (next.empty()) {
            leaves.push_back(std::move(state));
        }
        for (auto it = next.rbegin(); it != next.rend(); ++it) {
            pending.push_back(std::move(*it));
        }
    }
    return leaves;
}

inline ModelStatePtr First(ModelInstancePtr const& instance,
                           std::vector<std::string> const& trace) {
    return std::make_unique<ModelState>(instance, trace);
}

inline ModelStates Leaves(ModelInstancePtr const& instance, std::vector<std::string> const& trace) {
    return Leaves(std::make_unique<ModelState>(instance, trace));
}

inline std::vector<std::string> Messages(ModelStates const& states) {
    std::vector<std::string> messages;
    for (auto const& state : states) {
        messages.push_back(state->message);
    }
    return messages;
}

inline std::string OnLine(int line, std::string const& rest) {
    return "On event statement on line: " + std::to_string(line) + " does not represent " + rest;
}

// A run's leaves in fork order: each one's message, empty for a solution,
// and which of them are program errors rather than dead ends.
struct LeavesCase {
    char const* name;
    char const* model;
    std::vector<std::string> trace;
    std::vector<std::string> messages;
    std::vector<std::size_t> errors;
};

inline void ExpectLeaves(ModelStates const& leaves, LeavesCase const& expected) {
    EXPECT_THAT(Messages(leaves), testing::ElementsAreArray(expected.messages));
    for (std::size_t i = 0; i < leaves.size(); ++i) {
        bool const error =
            std::find(expected.errors.begin(), expected.errors.end(), i) != expected.errors.end();
        EXPECT_EQ(leaves[i]->isProgramError, error) << leaves[i]->message;
        EXPECT_EQ(leaves[i]->isStopped, !leaves[i]->message.empty()) << leaves[i]->message;
    }
}

// The statements at the top level of a model's behaviour, in source order.
inline kel::BehaviourStatement const& TopLevel(kel::ModelDeclaration const& model, std::size_t i) {
    return *model.getBehaviour().getStatement().getStatements()[i];
}

// The value text of a variable as the diagram shows it; "" when absent.
inline std::string ValueOf(StateVector const& vector, std::string const& name) {
    for (auto const& [variable, value] : vector.ToVarValPairVec()) {
        if (variable == name) {
            return value;
        }
    }
    return "";
}

} // namespace interpreter::test
