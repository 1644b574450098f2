// The workers of the table of built-in functions: new values from calls with a number of arguments that the table
// allows. docs/varnix.md and the table tell what each function does.
#pragma once

#include "wi/spfunc.h"

// spmath.cpp. Codes of functions of one number: SIN, COS, TAN, ASIN, ACOS, ATAN, NINT, LOG10, LOGN, POW10, EXP, SQRT
// from 1; of two: ATAN2, POW from 13.
sp_value *spfunc_x(const sp_call &call);
sp_value *spfunc_xx(const sp_call &call);
sp_value *spfunc_rand(const sp_call &call);

// Starts the generator of RAND again; a program starts with seed 1.
void sp_rand_seed(std::uint32_t seed);

// sparray.cpp
sp_value *spfunc_min(const sp_call &call);
sp_value *spfunc_max(const sp_call &call);
sp_value *spfunc_sum(const sp_call &call);
sp_value *spfunc_avg(const sp_call &call);
sp_value *spfunc_npts(const sp_call &call);
sp_value *spfunc_ramp(const sp_call &call);
sp_value *spfunc_seq(const sp_call &call);
sp_value *spfunc_subarray(const sp_call &call);
sp_value *spfunc_validarray(const sp_call &call);
sp_value *spfunc_notvalidarray(const sp_call &call);
sp_value *spfunc_cliptop(const sp_call &call);
sp_value *spfunc_clipbot(const sp_call &call);

// spsort.cpp
sp_value *spfunc_sort(const sp_call &call);
sp_value *spfunc_rank(const sp_call &call);
sp_value *spfunc_shuffle(const sp_call &call);

// spgrid.cpp
sp_value *spfunc_x2dindx(const sp_call &call);
sp_value *spfunc_y2dindx(const sp_call &call);
sp_value *spfunc_find2dpks(const sp_call &call);

// spfile.cpp. The code is an sp_file_type.
sp_value *spfunc_file(const sp_call &call);
sp_value *spfunc_getkw(const sp_call &call);

// spspline.cpp
sp_value *spfunc_espl(const sp_call &call);
sp_value *spfunc_splbrks(const sp_call &call);
