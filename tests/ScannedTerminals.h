// What a generated scanner yields for a source, terminal by terminal, for the
// tables of scanner tests.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <vector>

namespace test {

// One scanned terminal: its code, its value as text, and its span.
struct Scanned {
    int code;
    std::string value;
    std::uint32_t beginLine, beginColumn, endLine, endColumn;

    friend bool operator==(Scanned const&, Scanned const&) = default;
};

inline void PrintTo(Scanned const& s, std::ostream* out) {
    *out << "{" << s.code << " '" << s.value << "' " << s.beginLine << "." << s.beginColumn << "-"
         << s.endLine << "." << s.endColumn << "}";
}

struct ScanCase {
    std::string source;
    std::vector<Scanned> expected;
};

inline void PrintTo(ScanCase const& c, std::ostream* out) {
    *out << testing::PrintToString(c.source);
}

// Takes the value out of the variant, which would otherwise leak it.
template <class Parser>
std::string takeValue(int code, typename Parser::semantic_type& value, bool (*hasText)(int)) {
    if (code == Parser::token::TOK_INTEGER) {
        return std::to_string(value.template as<std::int32_t>());
    }
    if (!hasText(code)) {
        return "";
    }
    std::string text = value.template as<std::string>();
    value.template destroy<std::string>();
    return text;
}

// Every terminal up to and including the end of the input; `hasText` tells the
// codes whose value is a string.
template <class Parser, class Scanner>
std::vector<Scanned> scanTerminals(std::string const& source, bool (*hasText)(int)) {
    std::istringstream in(source);
    Scanner scanner(&in, nullptr);
    typename Parser::location_type loc;
    std::vector<Scanned> result;
    int code;
    do {
        typename Parser::semantic_type value;
        code = scanner.lex(&value, &loc);
        result.push_back({code, takeValue<Parser>(code, value, hasText), loc.begin.line,
                          loc.begin.column, loc.end.line, loc.end.column});
    } while (code != Parser::token::TOK_END);
    return result;
}

// A stream whose reading fails outright, as a broken device would.
struct FailingBuffer : std::streambuf {
    int_type underflow() override { throw std::ios_base::failure("device gone"); }
};

// The scanner turns a failing stream into an exception instead of ending the process.
template <class Parser, class Scanner> void expectFailingStreamThrows() {
    FailingBuffer buffer;
    std::istream in(&buffer);
    Scanner scanner(&in, nullptr);
    typename Parser::location_type loc;
    typename Parser::semantic_type value;
    EXPECT_THROW(scanner.lex(&value, &loc), std::runtime_error);
}

} // namespace test
