#include "cu/espl.h"
#include "cu/esplstate.h"
#include "dovsys/dovsys.h"

#include <algorithm>
#include <cfloat>
#include <climits>
#include <cstdint>
#include <utility>

namespace {

int esplerror = espl_ok;

// Null when an int does not hold the size, or there is no memory.
template <typename T>
T *try_array(int n)
{
    const std::int64_t size = std::int64_t{n} * static_cast<std::int64_t>(sizeof(T));
    return size > INT_MAX ? nullptr : static_cast<T *>(jjmalloc(static_cast<int>(size)));
}

_espl *refuse(int code)
{
    espl_set_error(code);
    return nullptr;
}

// i! / (i - d)!, the factor of power i in derivative d.
double power_factor(int i, int d)
{
    double product = 1;
    for (int n = 0; n < d && product <= DBL_MAX; ++n)
        product *= i - n;
    return product;
}

double derivative(const _espl &e, double dt, int ider)
{
    double sum = power_factor(e.ncoe - 1, ider) * e.coe0[e.ncoe - 1];
    for (int i = e.ncoe - 2; i >= ider; --i)
        sum = sum * dt + power_factor(i, ider) * e.coe0[i];
    return sum;
}

// All breakpoints of a spline on file.
int load(const _espl &e, _espl &copy)
{
    int code = espl_ok;
    for (int i = 0; i < e.nbrks && code > 0; ++i)
        code = e.reader(e.fp, i, &copy.brks[i]);
    return code;
}

void copy_breaks(const _espl &e, _espl &copy)
{
    for (int i = 0; i < e.nbrks; ++i) {
        double *coe = std::exchange(copy.brks[i], e.brks[i]).coe;
        copy.brks[i].coe = std::copy_n(e.brks[i].coe, e.ncoe, coe) - e.ncoe;
    }
}

} // namespace

_espl *espl_init_for_memory(int mxbrk, int ncoe)
{
    if (mxbrk < 1 || ncoe < 1)
        return refuse(espl_bad_arg);
    espl_ptr e(try_array<_espl>(1));
    if (e != nullptr)
        e->brks = try_array<_brkpoint>(mxbrk);
    if (e == nullptr || e->brks == nullptr)
        return refuse(espl_no_memory);
    e->ncoe = ncoe;
    for (; e->nbrks < mxbrk; ++e->nbrks) {
        e->brks[e->nbrks].coe = try_array<double>(ncoe);
        if (e->brks[e->nbrks].coe == nullptr)
            return refuse(espl_no_memory);
    }
    espl_forget_piece(*e);
    espl_set_error(espl_ok);
    return e.release();
}

_espl *espl_init_for_reader(_splfile *fp, espl_reader reader, int nbrks, int ncoe)
{
    if (nbrks < 2 || ncoe < 1)
        return refuse(espl_few_breaks);
    espl_ptr e(try_array<_espl>(1));
    if (e == nullptr)
        return refuse(espl_no_memory);
    e->mode = 1;
    e->fp = fp;
    e->reader = reader;
    e->nbrks = nbrks;
    e->ncoe = ncoe;
    e->coe0 = try_array<double>(ncoe);
    e->coe1 = try_array<double>(ncoe);
    if (e->coe0 == nullptr || e->coe1 == nullptr)
        return refuse(espl_no_memory);
    return espl_rehash(e.get()) > 0 ? e.release() : nullptr;
}

_espl *espl_copy(const _espl *e)
{
    if (e == nullptr)
        return refuse(espl_bad_arg);
    espl_ptr copy(espl_init_for_memory(e->nbrks, e->ncoe));
    if (copy == nullptr)
        return nullptr;
    if (e->mode == 0)
        copy_breaks(*e, *copy);
    else if (const int code = load(*e, *copy); code < 0)
        return refuse(code);
    return espl_rehash(copy.get()) > 0 ? copy.release() : nullptr;
}

void espl_free(_espl *e)
{
    if (e == nullptr)
        return;
    if (e->mode == 0) {
        espl_cut(*e, 0);
        jfree(e->brks);
    } else {
        jfree(e->coe0);
        jfree(e->coe1);
    }
    jfree(e);
}

double espl(_espl *e, double tme, int ider)
{
    if (e == nullptr || ider < 0) {
        espl_set_error(espl_bad_arg);
        return 0;
    }
    esplerror = espl_ok;
    if (ider >= e->ncoe)
        return 0;
    if (!espl_is_inside(*e, tme) && espl_set_error(espl_seek(*e, tme)) < 0)
        return 0;
    const double dt = tme - e->tbrk0;
    return ider == 0 ? espl_horner(e->coe0, e->ncoe, dt) : derivative(*e, dt, ider);
}

int espl_bound(const _espl *e, double *t0, double *t1)
{
    if (e == nullptr)
        return espl_set_error(espl_bad_arg);
    if (t0 != nullptr)
        *t0 = e->t0;
    if (t1 != nullptr)
        *t1 = e->t1;
    return espl_set_error(espl_ok);
}

int espl_error()
{
    return esplerror;
}

int espl_set_error(int code)
{
    return esplerror = code;
}

void espl_cut(_espl &e, int nbrks)
{
    for (int i = nbrks; i < e.nbrks; ++i)
        jfree(std::exchange(e.brks[i].coe, nullptr));
    e.nbrks = nbrks;
}
