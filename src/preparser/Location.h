// The span of a token or a phrase: from begin up to, not including, end.
#pragma once

#include "preparser/Position.h"

#include <algorithm>
#include <cstdint>
#include <ostream>

namespace pre {

class location {
public:
    position begin;
    position end;

    // The scanner moves the end over each lexeme and steps before the next one.
    void columns(std::int64_t count) { end.columns(count); }
    void lines(std::int64_t count) { end.lines(count); }
    void step() { begin = end; }

    friend bool operator==(location const&, location const&) = default;
};

// The begin, then only as much of the end as differs: "f:1.3-5", "f:1.3-2.4", "f:1.3-g:2.4".
inline std::ostream& operator<<(std::ostream& out, location const& span) {
    std::uint32_t lastColumn = std::max<std::uint32_t>(span.end.column, 1) - 1;
    out << span.begin;
    bool otherFile = span.end.filename != nullptr &&
                     (span.begin.filename == nullptr || *span.begin.filename != *span.end.filename);
    if (otherFile) {
        out << '-' << *span.end.filename << ':' << span.end.line << '.' << lastColumn;
    } else if (span.begin.line < span.end.line) {
        out << '-' << span.end.line << '.' << lastColumn;
    } else if (span.begin.column < lastColumn) {
        out << '-' << lastColumn;
    }
    return out;
}

} // namespace pre
