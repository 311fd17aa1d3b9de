// A location in the given file from line.column to line.column.
#pragma once

#include "parser/grammar/Location.h"

#include <cstdint>
#include <string>

namespace language::test {

inline location span(std::string const* file, std::uint32_t line, std::uint32_t column,
                     std::uint32_t endLine, std::uint32_t endColumn) {
    location result;
    result.begin = {file, line, column};
    result.end = {file, endLine, endColumn};
    return result;
}

} // namespace language::test
