%{
// The pre-parser's scanner: braces, dots, a few keywords, and everything else in bulk.
#include "preparser/PreScanner.h"

#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string>

#undef YY_DECL
#define YY_DECL int pre::PreScanner::lex(pre::PreBisonParser::semantic_type* value, pre::location* loc)
#define YY_USER_ACTION loc->columns(yyleng);

using token = pre::PreBisonParser::token;
%}

%option c++ prefix="Pre" yyclass="pre::PreScanner"
%option 8bit noyywrap nounput noinput nodefault debug

%x COMMENT

WS      [ \t\r]

%%

%{
    loc->step();
%}

<INITIAL>{
import{WS}+[-.0-9A-Za-z_]+{WS}*";"   { value->emplace<std::string>(yytext, yyleng); return token::TOK_IMPORT; }
"{"                                 { return token::TOK_LBRACE; }
"}"                                 { return token::TOK_RBRACE; }
"."                                 { return token::TOK_DOT; }
";"                                 { return token::TOK_SEMICOLON; }
namespace                           { return token::TOK_NAMESPACE; }
interface                           { return token::TOK_INTERFACE; }
component                           { return token::TOK_COMPONENT; }
[A-Za-z_][A-Za-z0-9_]*              { value->emplace<std::string>(yytext, yyleng); return token::TOK_IDENTIFIER; }
[0-9]+                              {
                                        long long number = std::strtoll(yytext, nullptr, 10);
                                        value->emplace<std::int32_t>(static_cast<std::int32_t>(number));
                                        return token::TOK_INTEGER;
                                    }
"$"([^$]|\\.)*"$"                   { value->emplace<std::string>(yytext, yyleng); return token::TOK_DATASTRING; }
[!&()+,:<=>\[\]|*\-0-9]+            { return token::TOK_SPECIAL; }
{WS}+                               { loc->step(); }
"//"[^\n]*                          { loc->step(); }
\n                                  { loc->lines(1); loc->step(); }
"/*"                                { BEGIN(COMMENT); }
.                                   {
                                        // A NUL byte or one above 127 would read as the end of
                                        // the input; make it a syntax error like any other byte.
                                        unsigned char byte = static_cast<unsigned char>(yytext[0]);
                                        return byte == 0 || byte > 127 ? int{token::TOK_YYUNDEF} : int{byte};
                                    }
}

<COMMENT>{
"*/"                                { BEGIN(INITIAL); }
[^*\n]+                             {}
"*"                                 {}
\n                                  { loc->lines(1); loc->step(); }
}

<<EOF>>                             { return token::TOK_END; }

%%

void pre::PreScanner::LexerError(const char* message) { throw std::runtime_error(message); }
