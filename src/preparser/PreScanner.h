// The pre-parser's scanner: the flex class for a file named by an import.
#pragma once

// The generated scanner defines its base class itself; everyone else gets it here.
#ifndef yyFlexLexer
#define yyFlexLexer PreFlexLexer
#include <FlexLexer.h>
#undef yyFlexLexer
#endif

#include "preparser/PreBisonParser.h"

#include <istream>
#include <ostream>

namespace pre {

class PreScanner : public PreFlexLexer {
public:
    PreScanner(std::istream* in, std::ostream* out) : PreFlexLexer(in, out) {}

    // The next terminal; moves loc over it, and fills value where the terminal has one.
    int lex(PreBisonParser::semantic_type* value, location* loc);

    // flex would end the process here; a broken stream is the caller's failure instead.
    [[noreturn]] void LexerError(const char* message) override;
};

} // namespace pre
