#include "interpreter/ProgramTrace.h"

#include <algorithm>
#include <utility>

ProgramTrace::ProgramTrace(ProgramTracePtr parent, ProgramStepPtr step)
    : parent(std::move(parent)), step(std::move(step)) {
    length = (this->parent ? this->parent->length : 0) + (this->step ? 1 : 0);
}

ProgramTrace::ProgramTrace(std::size_t olderSteps, ProgramStepPtr step)
    : step(std::move(step)), length(olderSteps + 1) {}

ProgramTrace::~ProgramTrace() {
    // Left to itself, each node's parent pointer would destroy the next node
    // from inside this destructor, one stack frame per node. Instead, take
    // over every parent that only this chain holds and let it go here.
    auto next = std::move(parent);
    while (next && next.use_count() == 1) {
        next = std::move(next->parent);
    }
}

void ProgramTrace::traceVector(std::vector<ProgramStepPtr>& out) const {
    auto const first = out.size();
    for (auto const* node = this; node != nullptr; node = node->parent.get()) {
        if (node->step) {
            out.push_back(node->step);
        }
    }
    std::reverse(out.begin() + static_cast<std::ptrdiff_t>(first), out.end());
}

std::vector<ProgramStepPtr> ProgramTrace::ToVector() const {
    std::vector<ProgramStepPtr> steps;
    steps.reserve(length);
    traceVector(steps);
    return steps;
}
