#include "tool/TraceInput.h"

#include <algorithm>
#include <fstream>

namespace {

char const* const inlineSeparators = ", \n";

NamedEventTrace readTraceFile(std::string const& path) {
    std::ifstream file(path);
    return readInputTrace(file);
}

NamedEventTrace splitInline(std::string const& text) {
    NamedEventTrace trace;
    string_split(text, inlineSeparators, trace);
    return trace;
}

} // namespace

NamedEventTrace readInputTrace(std::istream& in) {
    NamedEventTrace trace;
    for (std::string line; std::getline(in, line);) {
        if (!line.empty()) {
            trace.push_back(std::move(line));
        }
    }
    return trace;
}

void string_split(std::string text, std::string const& separators, NamedEventTrace& out) {
    std::string::size_type start = 0;
    for (auto end = text.find_first_of(separators); end != std::string::npos;
         end = text.find_first_of(separators, start)) {
        out.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    out.push_back(text.substr(start));
    std::erase_if(out, [](std::string const& token) {
        return token.empty() || token.find('<') != std::string::npos;
    });
}

NamedEventTrace filterCspChannelEvents(NamedEventTrace const& trace, std::string const& name) {
    std::string const prefix = name + ".";
    NamedEventTrace events;
    std::copy_if(trace.begin(), trace.end(), std::back_inserter(events),
                 [&](std::string const& event) { return event.starts_with(prefix); });
    return events;
}

NamedEventTrace stripOffCspChannelName(NamedEventTrace const& trace, std::string const& name) {
    std::string const prefix = name + ".";
    NamedEventTrace events;
    events.reserve(trace.size());
    for (std::string const& event : trace) {
        auto const at = event.find(prefix);
        events.push_back(at == std::string::npos ? event : event.substr(at + prefix.size()));
    }
    return events;
}

NamedEventTrace readTrace(Options const& options, std::istream& stdinStream) {
    // Presence of the key decides: "-t ''" names a file that cannot be opened.
    if (auto file = options.find("tracefile"); file != options.end()) {
        return readTraceFile(file->second);
    }
    if (auto list = options.find("trace"); list != options.end()) {
        return splitInline(list->second);
    }
    return readInputTrace(stdinStream);
}

NamedEventTrace readSpecTrace(Options const& options, NamedEventTrace const& trace) {
    if (hasOption(options, "spectracefile")) {
        return readTraceFile(getOption(options, "spectracefile"));
    }
    if (auto list = options.find("spectrace"); list != options.end()) {
        return splitInline(list->second);
    }
    return trace;
}
