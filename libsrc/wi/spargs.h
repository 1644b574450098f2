// What workers of built-in functions make of their arguments and results.
#pragma once

#include <cstddef>
#include <span>

#include "wi/spfunc.h"
#include "wi/sputil.h"

// A function that is compiled for wider vectors as well, to the same results, where the system chooses between the two
// when the program starts.
#if defined(__GNUC__) && !defined(__clang__) && defined(__linux__) && defined(__x86_64__)
#define SP_WIDE __attribute__((target_clones("default", "avx2")))
#else
#define SP_WIDE
#endif

// An argument as a number; the default when there are not so many arguments.
double sp_arg_number(const sp_call &call, std::size_t i, double otherwise = 0);

// The same as a count: 0.5 added and truncated toward zero. Less than 1 and not-a-number give 0, and what is more than
// an int holds gives the most it does.
int sp_arg_count(const sp_call &call, std::size_t i, double otherwise = 0);

// A value as an ARRAY, which any other kind is of one element. The value outlives it.
class sp_elements {
public:
    explicit sp_elements(const sp_value &value);
    sp_elements(const sp_elements &) = delete;
    sp_elements &operator=(const sp_elements &) = delete;

    std::size_t size() const { return all.size(); }
    const double *data() const { return all.data(); }
    const double *begin() const { return all.data(); }
    const double *end() const { return all.data() + all.size(); }
    double operator[](std::size_t i) const { return all[i]; }

private:
    double one = 0;
    std::span<const double> all;
};

// The number of elements in all arguments together.
std::size_t sp_total(const sp_call &call);

// New ARRAY of n elements. More than an int counts are more than there is memory for, which ends the process.
sp_value *sp_mk_elements(std::size_t n);

// New ARRAY of all numbers in the arguments, one after the other; an ERROR when there is no memory for them.
sp_value *sp_gather(const sp_call &call);

// A new ARRAY cut to its first elements, without memory for many more; the second gives a SCALER when that is just one.
sp_value *sp_cut_array(sp_value *array, std::size_t count);
sp_value *sp_cut_result(sp_value *array, std::size_t count);
