// The events that can start a run of a model, as event instances that exist
// only while the model is checked, and the lists of them compared by event
// and port.
#pragma once

#include "metamodel/Kel.h"
#include "om/ObjectModel.h"

namespace language {

// New instances: the in events of an interface; for a component, what comes in
// through each port, then the out events of the internals of its behaviour.
kel::ConstEventInstanceVec GetAllTriggers(om::ObjectModel& model,
                                          kel::ModelDeclaration const& declaration);
// Destroys the instances and empties the list.
void ClearAllTriggers(om::ObjectModel& model, kel::ConstEventInstanceVec& triggers);
// Whether an element of the list is the same event on the same port.
bool vecIsMember(kel::EventInstance const& event, kel::ConstEventInstanceVec const& list);

} // namespace language
