// Named event traces: their text forms and the helpers that cut out one port's events.
#pragma once

#include "tool/Options.h"

#include <istream>
#include <string>
#include <vector>

// One event per string, e.g. "port.event", "port.return" or "port.<<flush_queue>>".
using NamedEventTrace = std::vector<std::string>;

// One event per line, taken whole; empty lines are skipped. A stream that
// failed to open yields an empty trace.
NamedEventTrace readInputTrace(std::istream& in);

// Cuts `text` at every character of `separators` and appends the pieces to
// `out`; then drops every empty piece and every piece holding a '<' from all of `out`.
void string_split(std::string text, std::string const& separators, NamedEventTrace& out);

// The events that begin with "name.", in order.
NamedEventTrace filterCspChannelEvents(NamedEventTrace const& trace, std::string const& name);

// Every event, with everything up to and including the first "name." removed.
NamedEventTrace stripOffCspChannelName(NamedEventTrace const& trace, std::string const& name);

// The trace of the run: from -t's file, else -T's list, else `stdinStream`.
NamedEventTrace readTrace(Options const& options, std::istream& stdinStream);

// The trace for the provided ports: from -s's file, else -S's list, else `trace`.
NamedEventTrace readSpecTrace(Options const& options, NamedEventTrace const& trace);
