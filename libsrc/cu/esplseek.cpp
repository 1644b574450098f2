// Which piece of a spline is the current one.

#include "cu/espl.h"
#include "cu/esplstate.h"

#include <cmath>
#include <cstdio>
#include <limits>
#include <utility>

namespace {

// Whether the current piece is one of the ends and continues to t.
bool continues(const _espl &e, double t)
{
    return (e.ibrk == 0 && t < e.tbrk1) || (e.ibrk == e.nbrks - 2 && t >= e.tbrk0);
}

bool is_in_piece(const _espl &e, double t)
{
    return espl_is_inside(e, t) || continues(e, t);
}

void set_piece(_espl &e, const _brkpoint *brk)
{
    e.ibrk = static_cast<int>(brk - e.brks);
    e.tbrk0 = brk[0].time;
    e.tbrk1 = brk[1].time;
    e.coe0 = brk[0].coe;
    e.coe1 = brk[1].coe;
}

// The bisection takes no branch that the processor could guess wrong.
int setbrk_from_memory(_espl &e, double t)
{
    if (e.nbrks >= 2) {
        const _brkpoint *found = e.brks;
        for (std::size_t n = static_cast<std::size_t>(e.nbrks) - 1; n > 1;) {
            const std::size_t half = n / 2;
            found = found[half].time <= t ? found + half : found;
            n -= half;
        }
        set_piece(e, found);
        if (is_in_piece(e, t) || std::isnan(t))
            return espl_ok;
    }
    std::fputs("\nInternal problem in espl.\n", stdout);
    return espl_few_breaks;
}

int read_break(const _espl &e, int i, double *coe, double &time)
{
    _brkpoint brk{0, 0, 0, coe};
    const int code = e.reader(e.fp, i, &brk);
    time = brk.time;
    return code;
}

// Reads piece i, of which the one before it may be the current one.
int read_piece(_espl &e, int i)
{
    const int before = std::exchange(e.ibrk, -1);
    int code = espl_ok;
    if (before >= 0 && before == i - 1) {
        std::swap(e.coe0, e.coe1);
        e.tbrk0 = e.tbrk1;
    } else {
        code = read_break(e, i, e.coe0, e.tbrk0);
    }
    if (code > 0)
        code = read_break(e, i + 1, e.coe1, e.tbrk1);
    if (code > 0)
        e.ibrk = i;
    else
        espl_forget_piece(e);
    return code;
}

// The next piece is tried before the others are searched, since times mostly increase.
int setbrk_from_file(_espl &e, double t)
{
    if (e.ibrk >= 0 && t >= e.tbrk1) {
        const int code = read_piece(e, e.ibrk + 1);
        if (code < 0 || is_in_piece(e, t))
            return code;
    }
    int found = 0;
    for (int n = e.nbrks - 1; n > 1;) {
        const int half = n / 2;
        double time = 0;
        const int code = read_break(e, found + half, nullptr, time);
        if (code < 0)
            return code;
        found += time <= t ? half : 0;
        n -= half;
    }
    const int code = read_piece(e, found);
    return code < 0 || is_in_piece(e, t) || std::isnan(t) ? code : espl_few_breaks;
}

} // namespace

void espl_forget_piece(_espl &e)
{
    e.ibrk = -1;
    e.tbrk0 = std::numeric_limits<double>::infinity();
    e.tbrk1 = -e.tbrk0;
}

int espl_seek(_espl &e, double t)
{
    if (continues(e, t))
        return espl_ok;
    return e.mode == 0 ? setbrk_from_memory(e, t) : setbrk_from_file(e, t);
}

int espl_rehash(_espl *e)
{
    if (e == nullptr)
        return espl_set_error(espl_bad_arg);
    espl_forget_piece(*e);
    if (e->nbrks < 2)
        return espl_set_error(espl_few_breaks);
    int code = espl_ok;
    if (e->mode == 0) {
        e->t1 = e->brks[e->nbrks - 1].time;
        set_piece(*e, e->brks);
    } else {
        code = read_break(*e, e->nbrks - 1, nullptr, e->t1);
        if (code > 0)
            code = read_piece(*e, 0);
    }
    e->t0 = e->tbrk0;
    return espl_set_error(code);
}
