// The variables of a context. Names compare without regard to ASCII case and are kept as first given; variables keep
// the order in which they were first defined.
//
// The library is made by the first operation marked (*), with three constants of kind program: PI, TWOPI and C.
#pragma once

#include <cstdint>

#include "wi/spcontext.h"

// Who a variable belongs to. A formula or script cannot redefine one of the program's.
enum sp_member : std::int32_t {
    sp_program = 0,
    sp_user = 1,
    sp_system = 2, // protected from the user; sp_var_putval() makes none
};

// Four arrays by variable number, and where a name is found: a table of numbers + 1 by the name's hash, with at least
// two places for each variable.
struct sp_vlib {
    std::int32_t nvals;  // variables in use
    std::int32_t mxvals; // capacity of the arrays
    std::int32_t *types; // an sp_member each
    char **names;        // owned
    char **desc;         // owned, or null
    sp_value **vals;     // owned
    std::int32_t *places;
    std::uint32_t mask; // number of places - 1
};

// (*) Makes the library if there is none.
void sp_init_vlib(sp_context *context);

// Room for ten variables more; those are cleared.
void sp_growlib(sp_vlib *vlib);

// Index of the variable, or -1; also for null.
int sp_findindx(const sp_vlib *vlib, const char *name);

// (*) Defines or replaces a variable and takes the value over; null is a value of kind NULL. `type` is an sp_member;
// what is not sp_program is stored as sp_user. The program's definition always wins and makes the variable the
// program's; name and description stay. Returns null, or why a user may not redefine the variable; the value is then
// freed.
const char *sp_var_putval(sp_context *context, const char *name, sp_value *val, int type);

// (*) The stored value itself; for an unknown name a value of kind NULL that belongs to the library.
sp_value *sp_var_getval(sp_context *context, const char *name);

// (*) Gives the variable a copy of the description, and returns that; sp_no_variable() when there is no such variable.
char *sp_var_putdesc(sp_context *context, const char *name, const char *desc);
inline char *sp_no_variable()
{
    return reinterpret_cast<char *>(std::intptr_t{-1});
}

// (*) The description; a single blank when there is none or no such variable.
const char *sp_var_getdesc(sp_context *context, const char *name);

// (*) 1 when it is defined, else 0.
int sp_var_isvar(sp_context *context, const char *name);

// Name of the variable that is number ipos, from 0, among those of a kind of value and of owner; null when there is
// none. The result is cut to 79 characters and lies in a buffer that the next call overwrites.
const char *sp_var_search(const sp_context *context, int vartype, int memtype, int ipos);

// Removes all variables that are not the program's.
void sp_var_flush(sp_context *context);

// Frees the library, and the memory that is kept for large arrays.
void sp_var_freelib(sp_context *context);

// (*) The variables of one owner as a table for display, two lines of heading first: arrays, then numbers, then
// strings. The caller frees it with jfree().
char *sp_var_list(sp_context *context, int memtype);
