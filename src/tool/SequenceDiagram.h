// The sequence diagram of a run: one JSON array of a header, the initial state
// of every lifeline, the steps and the verdict, each pointing back into the
// source through its "selection".
#pragma once

#include "tool/DiagramElements.h"

#include "trace/MicroTrace.h"

#include <cstddef>
#include <iostream>
#include <ostream>

// How the header labels the run.
enum TraceType {
    TT_Interface = 0,     // "interface": a model that is no component
    TT_Constrained = 1,   // "constrained": a component run against its ports
    TT_Unconstrained = 2, // "unconstrained": a component run by itself
};

// Writes the diagram of `trace`, a newline, and flushes.
void printTrace(MicroTrace const& trace, TraceType type, std::ostream& out = std::cout);

