// What the tool reports: the steps of one run in the order of the diagram,
// with the verdict of that run. For a component constrained by its ports it is
// the merge of the component's history with those of its ports, checked for
// compliance with them.
#pragma once

#include "interpreter/ModelState.h"
#include "interpreter/ProgramStep.h"
#include "trace/PortStates.h"

#include "metamodel/ModelDeclaration.h"
#include "metamodel/PortDeclaration.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

// One entry of a trace, sharing its step with the history it came from.
class MicroStep {
public:
    explicit MicroStep(ProgramStepPtr step) : step(std::move(step)) {}
    ProgramStep const* operator->() const { return step.get(); }
    ProgramStep const& operator*() const { return *step; }
    ProgramStepPtr const& get() const { return step; }

private:
    ProgramStepPtr step;
};

using MicroSteps = std::vector<MicroStep>;

class MicroTrace {
public:
    // The run's own history up to its first error.
    explicit MicroTrace(ModelState const& state);
    // The component's history zipped with its ports', checked for compliance.
    MicroTrace(ModelState const& state, PortStates const& portStates);
    // `violatingStep` points into `steps`.
    MicroTrace(MicroTrace const&) = delete;
    MicroTrace& operator=(MicroTrace const&) = delete;

    static MicroSteps createUnconstrainedMicroTrace(ModelState const& state);

    void error(std::string const& text) { m_error = text; }
    std::string const& error() const { return m_error; }
    // The protocol violation, the explicit error, the last error step, or "failed".
    std::string getErrorMsg() const;
    std::string getProtocolViolationErrorMsg() const;
    // The last step of the model itself rather than of a port; null for none.
    MicroStep const* MainModelLastStep() const;

    bool isProtocolViolation = false;
    kel::PortDeclaration const* violatingPort = nullptr;
    MicroStep const* violatingStep = nullptr;
    MicroSteps steps;
    kel::ModelDeclaration const* model;

private:
    MicroSteps zip(ModelState const& state, PortStates const& portStates);
    // Cuts the steps at the first pair of port and component steps that
    // disagree, and records where.
    MicroSteps compliant(MicroSteps steps);

    std::string m_error;
    // Where compliant found the violation, until `steps` holds the result.
    std::optional<std::size_t> violatingIndex;
};

// Whether the steps from `first` to `last` make up an activity that shows
// nothing: they reach a thread exit before any synchronization or illegal step.
bool is_silent_transition(MicroSteps::const_iterator first, MicroSteps::const_iterator last);
// Whether the step must have a partner in the other history.
bool is_match_required(ProgramStep const& step);
