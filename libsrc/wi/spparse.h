// The parser cuts a formula into tokens, one for each call. Parentheses and argument lists are handed on as text.
//
// What stands where decides: a minus at the start of the text or after an operator begins a number, and only a number.
// A name is a function before "(", a variable when the context has it, else an ENAME; with a leading "#" always an
// ENAME.
#pragma once

#include <cstdint>

#include "wi/spcontext.h"

enum sp_token : std::int32_t {
    sp_tok_plus = 1,
    sp_tok_minus = 2,
    sp_tok_times = 3,
    sp_tok_divide = 4,
    sp_tok_bracket = 5,  // formula: the text between the parentheses
    sp_tok_function = 6, // name; formula: the text of the arguments
    sp_tok_variable = 7, // name
    sp_tok_literal = 8,  // val: a SCALER, STRING or ENAME
    sp_tok_error = 9,    // formula: the message
    sp_tok_end = 10,
};

struct sp_parse_state {
    sp_context *context;
    char *str;            // own copy of the text
    char *ptr;            // the cursor
    std::int32_t lsttype; // the token before: 1 an operator or the start, 2 an operand
    char *end;            // of the text
};

struct parse_token {
    std::int32_t type; // an sp_token
    char name[34];     // sp_name_length characters at most
    char *formula;     // owned; empty where a token has none
    sp_value *val;     // owned, or null
};

// New parse of a copy of the text, null counting as empty; freed with sp_parse_free().
sp_parse_state *sp_parse_init(sp_context *context, const char *str);

// The next token, new; freed with sp_parse_free_token(). After END or an ERROR there is nothing to be asked for.
//
//   "Syntax error (parser)."        a character that begins nothing; "(" without its ")"; a variable whose name begins
//                                   with "$" or "%", as names of variables are read without them
//   "Syntax error (in a number)."   also a minus before what is no number, 41 digits, or 4 of the exponent
//   "Syntax error (in %func)."      a function's name with "$" or "%"; no ")"
//   "Syntax error (in string)."     no closing quote
//
// A "#" that is the last character is an ENAME without a name.
parse_token *sp_parse_gettoken(sp_parse_state *state);

void sp_parse_free(sp_parse_state *state);
void sp_parse_free_token(parse_token *token);
