#include "interpreter/StateVector.h"

#include "metamodel/Behaviour.h"
#include "metamodel/ComponentDeclaration.h"
#include "metamodel/ConstVariableDeclarationVec.h"
#include "metamodel/TreePredicates.h"
#include "metamodel/TypeReference.h"

#include <stdexcept>

namespace {

// The innermost frame that holds the id, or null.
template <class Frames> auto* InnermostHolding(Frames& frames, om::Oid id) {
    for (auto frame = frames.rbegin(); frame != frames.rend(); ++frame) {
        if (frame->values.contains(id)) {
            return &*frame;
        }
    }
    return decltype(&*frames.rbegin()){nullptr};
}

} // namespace

StateVector::VariableFrame::VariableFrame(VariableFrame const& other) : owner(other.owner) {
    values.reserve(other.values.size());
    for (auto const& [id, value] : other.values) {
        values.emplace_hint(values.end(), id, value ? value->clone() : nullptr);
    }
}

StateVector::VariableFrame& StateVector::VariableFrame::operator=(VariableFrame const& other) {
    if (this != &other) {
        *this = VariableFrame(other);
    }
    return *this;
}

StateVector::StateVector(ModelInstancePtr instance)
    : modelInstance(std::move(instance)), objectModel(&modelInstance->model->getOwner()),
      frames(std::make_shared<Frames>()) {
    auto const* behaviour = modelInstance->model->tryGetBehaviour();
    if (behaviour == nullptr) {
        return;
    }
    OpenContext(behaviour->getStatement());
    for (auto const* variable : behaviour->getVariablesView()) {
        if (kel::IsStateVariable(*variable)) {
            auto const* initial = variable->tryGetInitialValue();
            framesToChange().back().values[variable->getOid()] =
                initial == nullptr ? nullptr : EvaluateExpression(*initial);
        }
    }
}

StateVector::Frames& StateVector::framesToChange() {
    if (frames.use_count() > 1) {
        frames = std::make_shared<Frames>(*frames);
    }
    return *frames;
}

void StateVector::OpenContext(kel::CompoundStatement const& owner) {
    framesToChange().emplace_back(&owner);
}

void StateVector::CloseContext() { framesToChange().pop_back(); }


StateVariableValue const* StateVector::getValue(om::Oid id) const {
    auto const* frame = InnermostHolding(*frames, id);
    return frame == nullptr ? nullptr : frame->values.at(id).get();
}

bool StateVector::hasValue(om::Oid id) const { return getValue(id) != nullptr; }

void StateVector::setValue(om::Oid id, StateVariableValuePtr value) {
    if (InnermostHolding(*frames, id) != nullptr) {
        InnermostHolding(framesToChange(), id)->values.at(id) = std::move(value);
    }
}

bool StateVector::IsValid(kel::VariableDeclaration const& variable) const {
    if (kel::IsDataVariable(variable)) {
        return true;
    }
    auto const* value = getValue(variable.getOid());
    return value != nullptr && value->isTypeMatch(variable.getType().tryGetDeclaration());
}

void StateVector::applyRangeRule(kel::VariableDeclaration const& variable) const {
    if (!IsValid(variable)) {
        throw std::out_of_range("Range error for variable " + variable.getName());
    }
}

void StateVector::DeclareStateVariable(kel::VariableDeclaration const& variable,
                                       StateVariableValue const& value) {
    if (kel::IsStateVariable(variable)) {
        framesToChange().back().values[variable.getOid()] = value.clone();
        applyRangeRule(variable);
    }
}

void StateVector::DeclareStateVariable(kel::VariableDeclaration const& variable) {
    if (kel::IsStateVariable(variable)) {
        framesToChange().back().values[variable.getOid()] = nullptr;
    }
}

void StateVector::AssignStateVariable(kel::VariableDeclaration const& variable,
                                      StateVariableValue const& value) {
    AssignStateVariable(variable, value.clone());
}

void StateVector::AssignStateVariable(kel::VariableDeclaration const& variable,
                                      kel::Expression const& expression) {
    if (kel::IsStateVariable(variable)) {
        AssignStateVariable(variable, EvaluateExpression(expression));
    }
}

void StateVector::AssignStateVariable(kel::VariableDeclaration const& variable,
                                      StateVariableValuePtr value) {
    if (kel::IsStateVariable(variable)) {
        setValue(variable.getOid(), std::move(value));
        applyRangeRule(variable);
    }
}

bool StateVector::hasQueue() const {
    return modelInstance->model->asComponentDeclaration() != nullptr ||
           (modelInstance->port != nullptr && modelInstance->port->getExternal());
}

std::string StateVector::getQueueFront() const {
    return queue.empty() || !hasQueue() ? std::string() : queue.front();
}

std::vector<StateVector::VarValPair> StateVector::ToVarValPairVec() const {
    std::vector<VarValPair> pairs;
    if (hasQueue()) {
        std::string entries;
        for (std::size_t i = 0; i < queue.size(); ++i) {
            entries += (i == 0 ? "" : ", ") + queue[i];
        }
        auto const* name =
            modelInstance->model->asComponentDeclaration() ? "receive.queue" : "external.delay";
        pairs.emplace_back(name, entries);
    }
    for (auto frame = frames->rbegin(); frame != frames->rend(); ++frame) {
        for (auto const& [id, value] : frame->values) {
            auto const& variable = dynamic_cast<kel::Named const&>(*objectModel->find(id));
            pairs.emplace_back(variable.getName(), value ? value->str() : "undefined");
        }
    }
    return pairs;
}

bool StateVector::IsEqualFrame(VariableFrame const& left, VariableFrame const& right) const {
    if (left.owner->getOid() != right.owner->getOid()) {
        return false;
    }
    for (auto const& [id, value] : left.values) {
        auto const found = right.values.find(id);
        if (found == right.values.end()) {
            return false;
        }
        auto const& other = found->second;
        if ((value == nullptr) != (other == nullptr) || (value && *value != *other)) {
            return false;
        }
    }
    return true;
}

bool StateVector::operator<=(StateVector const& other) const {
    if (this == &other) {
        return true;
    }
    auto const left = frameCount();
    auto const right = other.frameCount();
    if (right < left) {
        return false;
    }
    for (std::size_t i = 0; i < left; ++i) {
        if (!IsEqualFrame(frame(i), other.frame(right - left + i))) {
            return false;
        }
    }
    if (2 * left < right) {
        return false;
    }
    for (std::size_t i = 0; i < right - left; ++i) {
        if (!IsEqualFrame(frame(i), other.frame(i))) {
            return false;
        }
    }
    return true;
}
