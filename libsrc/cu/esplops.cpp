// What mathematics does with splines.

#include "cu/espl.h"
#include "cu/esplstate.h"
#include "dovsys/dovsys.h"
#include "dovsys/internal.h"
#include "gen/gen.h"

#include <algorithm>
#include <climits>
#include <functional>

namespace {

bool is_in_memory(const _espl *e)
{
    return e != nullptr && e->mode == 0;
}

// Applies an action to every breakpoint of a spline in memory.
template <typename action>
int change(_espl *e, action on_break)
{
    if (!is_in_memory(e))
        return espl_set_error(espl_bad_arg);
    std::for_each(e->brks, e->brks + e->nbrks, on_break);
    return espl_set_error(espl_ok);
}

// What a merged breakpoint is made of: the breakpoints of both splines that are not above it.
struct merging {
    const _espl &e;
    const _espl &other;
    int i = 0; // breakpoints of e and of the other that are passed
    int j = 0;

    bool is_done() const { return i == e.nbrks && j == other.nbrks; }

    // Passes the next time; whether e has it.
    bool step()
    {
        const bool from_e = i < e.nbrks && (j == other.nbrks || !(other.brks[j].time < e.brks[i].time));
        if (!from_e || (j < other.nbrks && other.brks[j].time == e.brks[i].time))
            ++j;
        i += from_e ? 1 : 0;
        return from_e;
    }
};

// espl_mergebrks() with room for ncoe coefficients, at least those of e; the further ones are zero.
espl_ptr merged(const _espl &e, const _espl &other, int ncoe)
{
    espl_ptr all(espl_init_for_memory(e.nbrks + std::min(other.nbrks, INT_MAX - e.nbrks), ncoe));
    if (all == nullptr)
        return nullptr;
    int count = 0;
    for (merging at{e, other}; !at.is_done(); ++count) {
        _brkpoint &brk = all->brks[count];
        const bool from_e = at.step();
        const _brkpoint &source = from_e ? e.brks[at.i - 1] : other.brks[at.j - 1];
        const _brkpoint &piece = e.brks[std::max(at.i - 1, 0)];
        std::copy_n(piece.coe, e.ncoe, brk.coe);
        if (!from_e)
            tranpp(brk.coe, e.ncoe, source.time - piece.time);
        brk.time = source.time;
        brk.ncont = from_e ? source.ncont : ncoe - 1;
        brk.flg2 = source.flg2;
    }
    espl_cut(*all, count);
    espl_rehash(all.get());
    return all;
}

// Both in memory, and null when one is not to be had.
struct loaded_pair {
    espl_ptr a;
    espl_ptr b;
    loaded_pair(const _espl *first, const _espl *second)
        : a(espl_copy(first)), b(a != nullptr ? espl_copy(second) : nullptr)
    {
    }
};

} // namespace

int espl_mult(_espl *e, double fact)
{
    return change(
        e, [=](_brkpoint &brk) { std::for_each(brk.coe, brk.coe + e->ncoe, [fact](double &coe) { coe *= fact; }); });
}

int espl_plus(_espl *e, double fact)
{
    return change(e, [fact](_brkpoint &brk) { brk.coe[0] += fact; });
}

int espl_integrate(_espl *e, double f0)
{
    if (!is_in_memory(e) || e->nbrks < 2)
        return espl_set_error(espl_bad_arg);
    double value = f0;
    for (int i = 0; i < e->nbrks; ++i) {
        _brkpoint &brk = e->brks[i];
        brk.coe =
            static_cast<double *>(jrealloc_bytes(brk.coe, (static_cast<std::size_t>(e->ncoe) + 1) * sizeof(double)));
        for (int power = e->ncoe; power > 0; --power)
            brk.coe[power] = brk.coe[power - 1] / power;
        brk.coe[0] = value;
        brk.ncont = std::clamp(brk.ncont, -1, INT_MAX - 1) + 1;
        if (i + 1 < e->nbrks)
            value = espl_horner(brk.coe, e->ncoe + 1, e->brks[i + 1].time - brk.time);
    }
    ++e->ncoe;
    return espl_rehash(e);
}

int espl_diff(_espl *e)
{
    const int code = change(e, [=](_brkpoint &brk) {
        for (int i = 1; i < e->ncoe; ++i)
            brk.coe[i - 1] = i * brk.coe[i];
        brk.coe[e->ncoe - 1] = 0;
        brk.ncont = std::max(brk.ncont, 0) - 1;
    });
    if (code > 0 && e->ncoe > 1)
        --e->ncoe;
    return code;
}

_espl *espl_mergebrks(const _espl *e, const _espl *other)
{
    const loaded_pair both(e, other);
    return both.b != nullptr ? merged(*both.a, *both.b, e->ncoe).release() : nullptr;
}

_espl *espl_add(const _espl *a, const _espl *b)
{
    const loaded_pair both(a, b);
    if (both.b == nullptr)
        return nullptr;
    const int ncoe = std::max(a->ncoe, b->ncoe);
    espl_ptr sum = merged(*both.a, *both.b, ncoe);
    const espl_ptr addend = sum != nullptr ? merged(*both.b, *both.a, ncoe) : nullptr;
    if (addend == nullptr)
        return nullptr;
    if (addend->nbrks != sum->nbrks) { // which only times out of order bring about
        espl_set_error(espl_few_breaks);
        return nullptr;
    }
    for (int i = 0; i < sum->nbrks; ++i) {
        _brkpoint &brk = sum->brks[i];
        const _brkpoint &more = addend->brks[i];
        std::transform(brk.coe, brk.coe + ncoe, more.coe, brk.coe, std::plus<>());
        brk.ncont = std::min(brk.ncont, more.ncont);
    }
    return sum.release();
}

double *espl_plttimes(const _espl *e, int *n)
{
    *n = 0;
    const espl_ptr loaded(espl_copy(e));
    if (loaded == nullptr)
        return nullptr;
    double *times = c_mkdary(loaded->nbrks);
    std::transform(loaded->brks, loaded->brks + loaded->nbrks, times, [](const _brkpoint &brk) { return brk.time; });
    *n = loaded->nbrks;
    return times;
}
