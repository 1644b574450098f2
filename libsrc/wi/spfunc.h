// The built-in functions.
#pragma once

#include <span>
#include <string_view>

#include "wi/spcontext.h"

// One call: the arguments' values stay the caller's and are not changed.
struct sp_call {
    sp_context *context;
    std::span<const sp_value *const> args;
    int code; // the row's
};

// One built-in. A test runs every example.
struct sp_function_row {
    std::string_view name;
    int least;              // number of arguments
    int most;               // -1 for any
    const char *miscounted; // message of the ERROR for another number of them; null when none is wrong
    sp_value *(*worker)(const sp_call &call); // returns a new value
    int code;                                 // tells functions apart that share a worker
    const char *help;                         // one line
    const char *example;                      // a formula
    const char *gives;                        // its value as the console tool prints it
};

// All of them, by name.
std::span<const sp_function_row> sp_function_table();

// The row of a name in any case, or null.
const sp_function_row *sp_find_function(std::string_view name);

// Calls a function: a new value. The ERROR of the first argument that is one is the result of every function but
// ERRSTR; "Unknown function." is that of a name without a row.
sp_value *sp_function(sp_context *context, const char *name, const sp_value *const *args, int nargs);
