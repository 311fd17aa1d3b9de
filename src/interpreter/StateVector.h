// The memory of a running model: frames of variables, innermost first, and
// the queue of pending event names. A copy behaves as a deep copy; the frames
// are shared until one side changes them, because every step of a run keeps a
// snapshot and most steps change no variable.
#pragma once

#include "interpreter/EventQueue.h"
#include "interpreter/ModelInstance.h"
#include "interpreter/StateVariableValue.h"

#include "metamodel/BehaviourStatement.h"
#include "metamodel/CompoundStatement.h"
#include "metamodel/ConstGuardedStatementVec.h"
#include "metamodel/Expression.h"
#include "metamodel/Guard.h"
#include "metamodel/VariableDeclaration.h"
#include "om/ObjectModel.h"
#include "om/ObjectView.h"
#include "om/Oid.h"

#include <boost/container/flat_map.hpp>
#include <boost/container/small_vector.hpp>

#include <memory>
#include <string>
#include <utility>
#include <vector>

class StateVector {
public:
    struct VariableFrame {
        explicit VariableFrame(kel::CompoundStatement const* owner) : owner(owner) {}
        VariableFrame(VariableFrame const& other);
        VariableFrame& operator=(VariableFrame const& other);
        VariableFrame(VariableFrame&&) = default;
        VariableFrame& operator=(VariableFrame&&) = default;

        // The behaviour's or the function's statement, or an inner block.
        kel::CompoundStatement const* owner;
        // Ordered by id, so that two frames compare by one walk; a null value
        // is a variable declared and not yet given a value.
        boost::container::flat_map<om::Oid, StateVariableValuePtr> values;
    };

    using VarValPair = std::pair<std::string, std::string>;

    // The behaviour's frame with the initial values of its state variables,
    // without the range rule; no frame for a model without behaviour.
    explicit StateVector(ModelInstancePtr instance);

    void OpenContext(kel::CompoundStatement const& owner);
    void CloseContext();

    // The value in the innermost frame that holds the id; null for none.
    StateVariableValue const* getValue(om::Oid id) const;
    bool hasValue(om::Oid id) const;
    // Replaces the value in the innermost frame that holds the id; stores
    // nothing when no frame does.
    void setValue(om::Oid id, StateVariableValuePtr value);

    bool IsValid(kel::VariableDeclaration const& variable) const;
    // These four do nothing for a data variable. All but the one without
    // value end with the range rule: std::out_of_range
    // "Range error for variable <name>", the value stored all the same.
    void DeclareStateVariable(kel::VariableDeclaration const& variable,
                              StateVariableValue const& value);
    void DeclareStateVariable(kel::VariableDeclaration const& variable);
    void AssignStateVariable(kel::VariableDeclaration const& variable,
                             StateVariableValue const& value);
    void AssignStateVariable(kel::VariableDeclaration const& variable,
                             kel::Expression const& expression);
    // Takes the value, which may be null: a variable left without value.
    void AssignStateVariable(kel::VariableDeclaration const& variable, StateVariableValuePtr value);

    // A new value, or null for a variable without value.
    StateVariableValuePtr EvaluateExpression(kel::Expression const& expression) const;
    bool BoolExpressionValue(kel::Expression const& expression) const;
    // The guarded statements whose guards hold; only when none does, those
    // with `otherwise`.
    kel::ConstGuardedStatementVec
    passableGuardedStatements(std::vector<kel::BehaviourStatement const*> const& statements) const;
    kel::ConstGuardedStatementVec
    passableGuardedStatements(om::ObjectView<kel::BehaviourStatement> const& statements) const;
    // Statements to choose among, on the stack while there are few.
    using Candidates = boost::container::small_vector<kel::BehaviourStatement const*, 8>;
    // The passable guarded statements, appended to `out`.
    void appendPassableGuardedStatements(om::ObjectView<kel::BehaviourStatement> const& statements,
                                         Candidates& out) const;
    std::vector<kel::Guard const*> ArmedGuards() const;
    std::vector<kel::Guard const*> ArmedGuards(kel::BehaviourStatement const& statement) const;

    // The oldest queue entry, or "" when the queue is empty or the run has no
    // queue (neither a component nor an external port).
    std::string getQueueFront() const;
    // The state as the diagram shows it: the queue first, where the run has
    // one, then every variable, innermost frame first and by id within one.
    std::vector<VarValPair> ToVarValPairVec() const;

    // Whether `other` repeats this vector with at most one more copy of its
    // frames on top; the queue plays no part.
    bool operator<=(StateVector const& other) const;
    bool IsEqualFrame(VariableFrame const& left, VariableFrame const& right) const;

    // Whether this vector still holds what `copy` took from it. A change of
    // the frames would have given this vector frames of its own.
    bool isUnchangedSince(StateVector const& copy) const {
        return frames == copy.frames && queue == copy.queue && modelInstance == copy.modelInstance;
    }

    // Frame i from the innermost.
    VariableFrame const& frame(std::size_t i) const {
        return (*frames)[frames->size() - 1 - i];
    }
    std::size_t frameCount() const { return frames->size(); }

    ModelInstancePtr modelInstance;
    om::ObjectModel const* objectModel;
    EventQueue queue;

private:
    using Frames = std::vector<VariableFrame>;
    // This vector's own frames, copied first if another vector shares them.
    Frames& framesToChange();

    // Innermost frame at the back: opening and closing frames touches no other.
    std::shared_ptr<Frames> frames;
    void applyRangeRule(kel::VariableDeclaration const& variable) const;
    bool hasQueue() const;
};
