// Text forms of numbers for display fields.
#pragma once

// Formats `val` into `ss`, which has room for at least 40 bytes.
// ndec <= 0: the nearest integer when |val| < 1e12, else one digit and an exponent.
// ndec > 0: min(ndec, 12) decimals, in fixed notation when |val| <= 1e14, else with an exponent.
// No blanks at either end. Integers beyond the range of int are printed whole.
void wi_format(char *ss, double val, int ndec);
