// The sequence diagram as the viewer sees it: the lifelines, the steps in the
// order they happened and the verdict, read from the document that kel-trace
// prints. Plain values; the reader fills them and everything else only reads.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace view {

// One stretch of source text that an element points back to.
struct Selection {
    std::string file; // empty when the entry holds only "index"
    long line = 0;
    long column = 0;
    long endLine = 0;
    long endColumn = 0;

    bool located() const { return !file.empty(); }
};

// One variable of a lifeline's model and its value at a step.
struct StateEntry {
    std::string variable;
    std::string value;
};

// The synchronization kinds that cross between lifelines; None is a step that
// stays on its lifeline.
enum class SyncType { None, Call, Return, Notification };

// One element of the document: a lifeline's initial state, a step or the verdict.
struct Element {
    long index = 0; // position in the document's array
    std::string kind;
    std::string instance;
    std::string role;
    std::string event;
    std::string returned;
    std::string synchronization;
    SyncType sync = SyncType::None;
    std::string message;
    std::vector<Selection> selections;
    std::vector<StateEntry> state;

    // The text an arrow carries: the synchronization, else the event or reply.
    std::string const& label() const {
        if (!synchronization.empty()) {
            return synchronization;
        }
        return event.empty() ? returned : event;
    }
};

struct Diagram {
    std::string type;               // "interface", "constrained", "unconstrained"
    std::vector<Element> lifelines; // "Initialize" elements, provided ports first
    std::vector<Element> steps;     // every other element but the verdict
    std::optional<Element> verdict; // the closing "Error" element of a failed run
};

} // namespace view
