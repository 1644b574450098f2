// What the modules of a spline share, and nobody else needs.
#pragma once

#include "cu/espl.h"

#include <memory>

struct espl_deleter {
    void operator()(_espl *e) const { espl_free(e); }
};
using espl_ptr = std::unique_ptr<_espl, espl_deleter>;

inline bool espl_is_inside(const _espl &e, double t)
{
    return t >= e.tbrk0 && t < e.tbrk1;
}

// Makes the piece for a t that is not inside the current one the current one. Returns the code.
int espl_seek(_espl &e, double t);

// Makes no piece the current one: ibrk is -1, and no t lies between tbrk0 and tbrk1.
void espl_forget_piece(_espl &e);

// Gives back the breakpoints of a spline in memory from nbrks on.
void espl_cut(_espl &e, int nbrks);

// The polynomial's value at distance dt.
inline double espl_horner(const double *coe, int ncoe, double dt)
{
    double sum = coe[ncoe - 1];
    for (int i = ncoe - 2; i >= 0; --i)
        sum = sum * dt + coe[i];
    return sum;
}
