// The elements of the sequence diagram: a step of some lifeline with the whole
// state of its model, a port that left no step, and the error that ends a
// failed run, each with the source text it stands for.
#pragma once

#include "tool/JsonValue.h"

#include "trace/MicroTrace.h"

#include "metamodel/Location.h"
#include "metamodel/PortDeclaration.h"

#include <string>
#include <vector>

// An array with one entry per location, in order, without "index".
JsonValue selections(std::vector<kel::Location const*> const& locations);

// A step of the run on its lifeline.
JsonValue Step(MicroStep const& step);
// The initial element of a port whose run left no "Initialize" step.
JsonValue Step(kel::PortDeclaration const& port);
// An error that points at the source.
JsonValue state_error(std::string const& message,
                      std::vector<kel::Location const*> const& locations);
// An error with no source text of its own.
JsonValue plain_error(std::string const& message);
