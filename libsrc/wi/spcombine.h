// Arithmetic on two values.
#pragma once

#include "wi/spcontext.h"
#include "wi/sputil.h"

// New value of a op b; a and b stay the caller's, and null counts as a value of kind NULL. op: 1 plus, 2 minus, 3
// times, 4 divide; any other acts as plus.
//
// The first ERROR is the result. NULL is neutral. Else b is taken for what a is, except that an ARRAY goes with a
// number on either side; with two ARRAYs the shorter length counts. Texts are joined by plus; their other operators,
// and all between ENAMEs, give a copy of a. A divisor of zero or not-a-number anywhere makes the result the ERROR
// "Divide By Zero Error.".
sp_value *sp_combine(sp_context *context, int op, const sp_value *a, const sp_value *b);

// The same for one operator.
sp_value *sp_plus(sp_context *context, const sp_value *a, const sp_value *b);
sp_value *sp_minus(sp_context *context, const sp_value *a, const sp_value *b);
sp_value *sp_mult(sp_context *context, const sp_value *a, const sp_value *b);
sp_value *sp_divide(sp_context *context, const sp_value *a, const sp_value *b);
