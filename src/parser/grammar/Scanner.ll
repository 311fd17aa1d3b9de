%{
// The scanner of the kel language.
#include "parser/grammar/Scanner.h"

#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <string_view>

#undef YY_DECL
#define YY_DECL int language::Scanner::lex(language::BisonParser::semantic_type* value, language::location* loc)
#define YY_USER_ACTION loc->columns(yyleng);

using token = language::BisonParser::token;

namespace {

constexpr std::string_view whiteSpace = " \t\r";

std::string_view trimmed(std::string_view text) {
    std::size_t first = text.find_first_not_of(whiteSpace);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(whiteSpace) - first + 1);
}

// The file name of an import clause: between the keyword and the final ";".
std::string importedFile(std::string_view lexeme) {
    return std::string(trimmed(lexeme.substr(6, lexeme.size() - 7)));
}

// The quoted text of a clause such as #file "x.kel", without its quotes.
std::string clauseText(std::string_view lexeme, std::size_t keywordLength) {
    std::string_view quoted = trimmed(lexeme.substr(keywordLength));
    return std::string(quoted.substr(1, quoted.size() - 2));
}

// Saturates at the 64-bit limits and keeps the low 32 bits: no range check here.
std::int32_t integerValue(const char* digits) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(std::strtoll(digits, nullptr, 10)));
}

} // namespace
%}

%option c++ prefix="kel" yyclass="language::Scanner"
%option 8bit noyywrap nounput noinput nodefault debug

%x COMMENT

WS      [ \t\r]
QSTRING \"([^"\n]|\\.)*\"

%%

%{
    loc->step();
%}

<INITIAL>{
import{WS}+[-.0-9A-Za-z_]+{WS}*";"  { value->emplace<std::string>(importedFile(lexeme())); return token::TOK_IMPORT; }
"#imported"{WS}+{QSTRING}{WS}*      { value->emplace<std::string>(clauseText(lexeme(), 9)); return token::TOK_IMPORTED; }
"#file"{WS}+{QSTRING}{WS}*          { value->emplace<std::string>(clauseText(lexeme(), 5)); return token::TOK_FILE; }
"#dir"{WS}+{QSTRING}{WS}*           { value->emplace<std::string>(clauseText(lexeme(), 5)); return token::TOK_DIR; }
"{"             { return token::TOK_LBRACE; }
"}"             { return token::TOK_RBRACE; }
"["             { return token::TOK_LBRACKET; }
"]"             { return token::TOK_RBRACKET; }
"("             { return token::TOK_LPAREN; }
")"             { return token::TOK_PARENTHESISCLOSE; }
";"             { return token::TOK_SEMICOLON; }
":"             { return token::TOK_COLON; }
".."            { return token::TOK_DOTDOT; }
"."             { return token::TOK_DOT; }
","             { return token::TOK_COMMA; }
"<=>"           { return token::TOK_BINDS; }
"=="            { return token::TOK_ISEQUAL; }
"!="            { return token::TOK_ISNOTEQUAL; }
"<="            { return token::TOK_ISLESSEQUAL; }
"<-"            { return token::TOK_LEFTARROW; }
"<"             { return token::TOK_ISLESS; }
">="            { return token::TOK_ISGREATEREQUAL; }
">"             { return token::TOK_ISGREATER; }
"+"             { return token::TOK_PLUS; }
"-"             { return token::TOK_MINUS; }
"="             { return token::TOK_ASSIGN; }
"&&"            { return token::TOK_AND; }
"||"            { return token::TOK_OR; }
"!"             { return token::TOK_NOT; }
"*"             { return token::TOK_STAR; }
behaviour       { return token::TOK_BEHAVIOUR; }
behavior        { return token::TOK_BEHAVIOUR; }
blocking        { return token::TOK_BLOCKING; }
bool            { return token::TOK_BOOL; }
component       { return token::TOK_COMPONENT; }
else            { return token::TOK_ELSE; }
extern          { return token::TOK_EXTERN; }
external        { return token::TOK_EXTERNAL; }
enum            { return token::TOK_ENUM; }
false           { return token::TOK_FALSE; }
if              { return token::TOK_IF; }
illegal         { return token::TOK_ILLEGAL; }
inevitable      { return token::TOK_INEVITABLE; }
injected        { return token::TOK_INJECTED; }
inout           { return token::TOK_INOUT; }
interface       { return token::TOK_INTERFACE; }
in              { return token::TOK_IN; }
namespace       { return token::TOK_NAMESPACE; }
on              { return token::TOK_ON; }
optional        { return token::TOK_OPTIONAL; }
otherwise       { return token::TOK_OTHERWISE; }
out             { return token::TOK_OUT; }
provides        { return token::TOK_PROVIDES; }
reply           { return token::TOK_REPLY; }
requires        { return token::TOK_REQUIRES; }
return          { return token::TOK_RETURN; }
subint          { return token::TOK_SUBINT; }
system          { return token::TOK_SYSTEM; }
true            { return token::TOK_TRUE; }
[A-Za-z_][A-Za-z0-9_]*  { value->emplace<std::string>(lexeme()); return token::TOK_IDENTIFIER; }
[0-9]+          { value->emplace<std::int32_t>(integerValue(yytext)); return token::TOK_INTEGER; }
"$"([^$]|\\.)*"$"   { value->emplace<std::string>(lexeme()); return token::TOK_DATASTRING; }
{WS}+           { loc->step(); }
"//"[^\n]*      { loc->step(); }
\n              { loc->lines(1); loc->step(); }
"/*"            { BEGIN(COMMENT); }
.               {
                    // A NUL byte or one above 127 would read as the end of the input;
                    // make it a syntax error like any other byte no rule knows.
                    unsigned char byte = static_cast<unsigned char>(yytext[0]);
                    return byte == 0 || byte > 127 ? int{token::TOK_YYUNDEF} : int{byte};
                }
}

<COMMENT>{
"*/"            { BEGIN(INITIAL); }
[^*\n]+         {}
"*"             {}
\n              { loc->lines(1); loc->step(); }
}

<<EOF>>         { return token::TOK_END; }

%%

void language::Scanner::LexerError(const char* message) { throw std::runtime_error(message); }
