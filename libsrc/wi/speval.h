// Formulas: text in, value out.
#pragma once

#include <cstddef>
#include <string_view>

#include "wi/spcontext.h"

// The value of a formula, new; freed with sp_free_value(). Faults of any kind are values of kind ERROR. Nesting of any
// depth costs no stack; a text of more than 32 MB is a syntax error.
sp_value *sp_eval_formula(sp_context *context, const char *str);

// The same for a text that may hold any byte; a NUL is a syntax error. Where the fault of an ERROR is known to be at a
// character of the text, `place` receives its position, from 1, the length + 1 for the end of the text; else 0.
sp_value *sp_eval_text(sp_context *context, std::string_view text, std::size_t *place);

// Value of a call: splits the text of the arguments at its commas, evaluates each and calls sp_function(). The ERROR
// "Syntax Error in function call." for a string without its closing quote or a ")" without its "(".
sp_value *sp_eval_function(sp_context *context, const char *name, const char *args);
