// A point in a source: file, line and column, both counted from 1.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>

namespace pre {

class position {
public:
    // Not owned; null until a parser names the stream.
    std::string const* filename = nullptr;
    std::uint32_t line = 1;
    std::uint32_t column = 1;

    // Moves by count columns, never before column 1.
    void columns(std::int64_t count) { column = atLeastOne(column + count); }

    // Moves by count lines to column 1, never before line 1; zero leaves it alone.
    void lines(std::int64_t count) {
        if (count != 0) {
            column = 1;
            line = atLeastOne(line + count);
        }
    }

    friend bool operator==(position const&, position const&) = default;

private:
    static std::uint32_t atLeastOne(std::int64_t value) {
        return value > 0 ? static_cast<std::uint32_t>(value) : 1;
    }
};

// "file:line.column", without the file when there is none.
inline std::ostream& operator<<(std::ostream& out, position const& where) {
    if (where.filename != nullptr) {
        out << *where.filename << ':';
    }
    return out << where.line << '.' << where.column;
}

} // namespace pre
