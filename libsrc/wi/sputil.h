// Values of the language: always on the heap, made here and freed with sp_free_value().
#pragma once

#include <cstddef>
#include <cstdint>

// Kind of a value. Failures travel as values of kind ERROR; NULL is undefined or blank.
enum sp_kind : std::int32_t {
    sp_null = 0,
    sp_array = 1,
    sp_ename = 2,
    sp_string = 3,
    sp_scaler = 4,
    sp_error = 5,
};

constexpr int sp_name_length = 32; // of a name, as far as it counts

struct sp_value {
    std::int32_t type; // an sp_kind
    char ename[34];    // ENAME: the name; of a value converted to ENAME, the name of its source kind
    double *ary;       // ARRAY: the elements, owned
    std::int32_t npts; // ARRAY: number of elements
    char *string;      // STRING: the text; ERROR: the message; owned
    double scaler;     // SCALER: the number
};

// New values. Texts are copied, null counts as empty; a name is cut to sp_name_length.
sp_value *sp_get_blank_value(); // of kind NULL, everything zero
sp_value *sp_mk_scaler(double number);
sp_value *sp_mk_string(const char *text);
sp_value *sp_mk_error(const char *message);

// New ARRAY whose elements are not set; no elements and a null ary for npts < 1. The second is for sizes that a formula
// tells: an ERROR "Out of memory." when there is not as much.
sp_value *sp_mk_array(int npts);
sp_value *sp_try_array(std::size_t npts);

// Deep copy; null for null. Of an ename the first sp_name_length characters are copied.
sp_value *sp_cpval(const sp_value *val);

// Frees the value with what it owns; null is ignored. A large array may be kept for the next one that is made.
void sp_free_value(sp_value *val);

// New array of npts zeros, or a new copy; freed with jfree(). Null for npts < 1 and for a null source.
double *sp_mkary(int npts);
double *sp_cpary(const double *ary, int npts);

// "NULL", "ARRAY", "ENAME", "STRING", "SCALER", "ERROR"; "NULL" for any other code.
const char *sp_kind_name(int kind);
