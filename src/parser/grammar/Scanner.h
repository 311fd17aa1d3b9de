// The scanner of the kel language: the flex class that feeds the grammar.
#pragma once

// The generated scanner defines its base class itself; everyone else gets it here.
#ifndef yyFlexLexer
#define yyFlexLexer kelFlexLexer
#include <FlexLexer.h>
#undef yyFlexLexer
#endif

#include "parser/grammar/BisonParser.h"
#include "parser/grammar/Location.h"

#include <istream>
#include <ostream>
#include <string_view>

namespace language {

class Scanner : public kelFlexLexer {
public:
    Scanner(std::istream* in, std::ostream* out) : kelFlexLexer(in, out) {}

    // The next terminal, 0 at the end; moves loc over it, and fills value where the
    // terminal has one.
    int lex(BisonParser::semantic_type* value, location* loc);

    // flex would end the process here; a broken stream is the caller's failure instead.
    [[noreturn]] void LexerError(const char* message) override;

private:
    // The text of the rule that matched last.
    std::string_view lexeme() const { return {YYText(), static_cast<std::size_t>(YYLeng())}; }
};

} // namespace language
