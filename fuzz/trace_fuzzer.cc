// Feeds arbitrary bytes through every text form of a named event trace.
#include "tool/TraceInput.h"

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const text(reinterpret_cast<char const*>(data), size);
    std::istringstream lines(text);
    NamedEventTrace trace = readInputTrace(lines);
    string_split(text, ", \n", trace);
    NamedEventTrace const port = filterCspChannelEvents(trace, "p");
    (void)stripOffCspChannelName(port, "p");
    return 0;
}
