// The interpreter's front door: the states in which a model can be after
// reproducing a named event trace, and the events that may come next.
#pragma once

#include "interpreter/ModelInstance.h"
#include "interpreter/ModelState.h"

#include <set>
#include <string>
#include <vector>

// Best first: errors before solutions, each the furthest in the trace first;
// with neither, the dead end that got furthest, promoted to an error. Never
// empty.
ModelStates MatchingStates(ModelInstancePtr const& instance,
                           std::vector<std::string> const& namedEventTrace);
// Whether every matching state is in the middle of an activation.
bool IsModelOccupied(ModelInstancePtr const& instance,
                     std::vector<std::string> const& namedEventTrace);
// The texts of the events that may come next; empty after an error, and so
// an empty set after a clean run is a deadlock.
std::set<std::string> EligibleEvents(ModelInstancePtr const& instance,
                                     std::vector<std::string> const& namedEventTrace);
// The same, where the MatchingStates of exactly this instance and trace are at
// hand already: a long run need not be searched twice.
std::set<std::string> EligibleEvents(ModelInstancePtr const& instance,
                                     std::vector<std::string> const& namedEventTrace,
                                     ModelStates const& matchingStates);
