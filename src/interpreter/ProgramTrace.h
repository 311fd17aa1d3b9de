// The history of a state, newest step first. The older part is shared by all
// states that forked from a common ancestor, so a fork costs no copy.
#pragma once

#include "interpreter/ProgramStep.h"

#include <cstddef>
#include <memory>
#include <vector>

class ProgramTrace;
using ProgramTracePtr = std::shared_ptr<ProgramTrace>;

class ProgramTrace {
public:
    // The root of a run: no parent, no step.
    ProgramTrace() = default;
    ProgramTrace(ProgramTracePtr parent, ProgramStepPtr step);
    // A node that lets go of the older steps but still counts them.
    ProgramTrace(std::size_t olderSteps, ProgramStepPtr step);
    // Unlinks its own chain without recursion: a history may be millions
    // of nodes long.
    ~ProgramTrace();
    ProgramTrace(ProgramTrace const&) = delete;
    ProgramTrace& operator=(ProgramTrace const&) = delete;

    // The nodes of the chain that hold a step.
    std::size_t size() const { return length; }
    // Appends the steps, oldest first.
    void traceVector(std::vector<ProgramStepPtr>& out) const;
    std::vector<ProgramStepPtr> ToVector() const;

    ProgramTracePtr parent;
    ProgramStepPtr step;

private:
    // Kept per node so that size() needs no walk; a step replaced in place
    // by an error leaves it unchanged.
    std::size_t length = 0;
};
