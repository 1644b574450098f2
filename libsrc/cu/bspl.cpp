#include "cu/bspl.h"
#include "cu/bsplblock.h"
#include "cu/esplstate.h"
#include "dovsys/dovsys.h"
#include "dovsys/internal.h"
#include "gen/gen.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <utility>

namespace {

constexpr double before_all = -1e30;
constexpr const char *unknown_error = "Unknown error in B-spline fit.";

char *last_error = nullptr;

double *make_numbers(std::ptrdiff_t n)
{
    return static_cast<double *>(jmalloc_bytes(static_cast<std::size_t>(n) * sizeof(double)));
}

int fail(bspltype &w, const char *why)
{
    jfree(std::exchange(w.errstr, c_mkstr(why)));
    return 0;
}

int fail_at(bspltype &w, double time)
{
    std::array<char, 80> text;
    const int length = std::snprintf(text.data(), text.size(), "Invalid breakpoint continuity at %20.11E.", time);
    std::replace(text.begin(), text.begin() + length, ',', '.'); // of the locale
    return fail(w, text.data());
}

int check_order(bspltype *w)
{
    if (w->ncoe < 1)
        return fail(*w, "NCOE must be larger than zero.");
    if (w->ncoe > bspl_mxcoe)
        return fail(*w, "NCOE is too Large.");
    return 1;
}

int init_spline(bspltype *w)
{
    w->espl = espl_init_for_memory(w->mxbrk, w->ncoe);
    return w->espl != nullptr ? 1 : fail(*w, "Unable to init espl (internal prob?).");
}

// How often a breakpoint is a knot; anything outside 1 ... k is wrong.
std::int64_t multiplicity(const bspltype &w, int i)
{
    if (i == 0 || i == w.nbrks - 1)
        return w.ncoe;
    return std::int64_t{w.ncoe} - w.espl->brks[i].ncont - 1;
}

// N = R'R and b = R'(Q'y).
void multiply_out(bspltype &w)
{
    const std::ptrdiff_t k = w.ncoe;
    const std::ptrdiff_t width = 2 * k - 1;
    for (std::ptrdiff_t i = 0; i < w.nequ; ++i) {
        const double *row = w.rary + i * k;
        const std::ptrdiff_t count = std::min<std::ptrdiff_t>(k, w.nequ - i);
        for (std::ptrdiff_t j = 0; j < count; ++j) {
            w.bary[i + j] += row[j] * w.zary[i];
            for (std::ptrdiff_t l = j; l < count; ++l)
                w.qary[(i + j) * width + k - 1 + l - j] += row[j] * row[l];
        }
    }
    for (std::ptrdiff_t r = 0; r < w.nequ; ++r)
        for (std::ptrdiff_t c = r + 1; c < std::min<std::ptrdiff_t>(r + k, w.nequ); ++c)
            w.qary[c * width + k - 1 - (c - r)] = w.qary[r * width + k - 1 + (c - r)];
}

// Whether a column is a combination of those before it; the diagonal of N has the squares of the columns' lengths.
bool is_singular(const bspltype &w)
{
    for (std::ptrdiff_t i = 0; i < w.nequ; ++i) {
        const double length = std::sqrt(w.qary[i * (2 * w.ncoe - 1) + w.ncoe - 1]);
        if (!(std::fabs(w.rary[i * w.ncoe]) > bspl_singular * length))
            return true;
    }
    return w.nequ < 1;
}

bool all_finite(const _brkpoint &brk, int ncoe)
{
    return std::all_of(brk.coe, brk.coe + ncoe, [](double value) { return std::isfinite(value); });
}

void free_workspace(bspltype &w)
{
    for (double *numbers : {w.knots, w.qary, w.bary, w.aary, w.adif, w.rary, w.zary})
        jfree(numbers);
    jfree(w.errstr);
    espl_free(w.espl);
}

} // namespace

int bspl_get_brks(bspltype *w)
{
    double before = before_all;
    int accepted = 0;
    for (int i = 0; w->brk_cb != nullptr && i < w->mxbrk; ++i) {
        _brkpoint &brk = w->espl->brks[accepted];
        if (w->brk_cb(i, &brk.time, &brk.ncont) == 0)
            continue;
        if (!(brk.time > before) || !std::isfinite(brk.time))
            return fail(*w, "Breakpoint times out of order.");
        before = brk.time;
        ++accepted;
    }
    w->nbrks = accepted;
    espl_cut(*w->espl, accepted);
    return 1;
}

int bspl_mk_knots(bspltype *w)
{
    const _brkpoint *brks = w->espl->brks;
    w->nknots = 0;
    for (int i = 0; i < w->nbrks; ++i) {
        const std::int64_t m = multiplicity(*w, i);
        if (m < 1 || m > w->ncoe)
            return fail_at(*w, brks[i].time);
        w->nknots += static_cast<int>(m);
    }
    w->nequ = std::max(w->nknots - w->ncoe, 0); // one breakpoint has no interval, and nothing to solve for
    w->knots = make_numbers(w->nknots);
    double *knot = w->knots;
    for (int i = 0; i < w->nbrks; ++i)
        knot = std::fill_n(knot, multiplicity(*w, i), brks[i].time);
    return 1;
}

int bspl_form_matrix(bspltype *w)
{
    const std::ptrdiff_t n = w->nequ;
    w->rary = make_numbers(n * w->ncoe);
    w->zary = make_numbers(n);
    w->qary = make_numbers(n * (2 * w->ncoe - 1));
    w->bary = make_numbers(n);
    const int last_interval = w->nequ - 1;
    const double first = n > 0 ? w->knots[0] : 1;
    const double last = n > 0 ? w->knots[w->nknots - 1] : 0; // without an interval no point lies between them
    bspl_block block;
    int ileft = w->ncoe - 1;
    double before = before_all;
    for (int i = 0; w->dat_cb != nullptr && i < w->mxdat; ++i) {
        double x = 0;
        double y = 0;
        if (w->dat_cb(i, &x, &y) == 0)
            continue;
        ++w->ndat;
        if (!(x >= first && x <= last) || !std::isfinite(y))
            continue;
        if (!(x > before))
            return fail(*w, "X values out of order.");
        before = x;
        if (block.is_full() || (x >= w->knots[ileft + 1] && ileft < last_interval)) {
            block.rotate_into(*w, ileft);
            while (x >= w->knots[ileft + 1] && ileft < last_interval)
                ++ileft;
        }
        block.add(x, y);
    }
    block.rotate_into(*w, ileft);
    multiply_out(*w);
    return 1;
}

int bspl_solve(bspltype *w)
{
    w->aary = make_numbers(w->nequ);
    if (is_singular(*w) || solve_banded_system(w->rary, w->zary, w->aary, w->nequ, 0, w->ncoe - 1) == 0)
        return fail(*w, "Fit failure! (Singular matrix)");
    return 1;
}

int bspl_to_pp(bspltype *w)
{
    const int k = w->ncoe;
    w->adif = make_numbers(std::ptrdiff_t{w->nequ} * k);
    bspl_dr(w->knots, w->aary, w->nequ, k, w->adif, k);
    _brkpoint *brk = w->espl->brks;
    for (int i = 0; i < w->nbrks - 1; ++i, ++brk) {
        bspl_ev(w->knots, w->adif, w->nequ, k, brk->time, brk->coe, k);
        double factorial = 1;
        for (int d = 1; d < k; ++d)
            brk->coe[d] /= factorial *= d;
    }
    std::copy_n(brk[-1].coe, k, brk->coe);
    tranpp(brk->coe, k, brk->time - brk[-1].time);
    const bool finite = std::all_of(w->espl->brks, brk + 1, [k](const _brkpoint &b) { return all_finite(b, k); });
    return finite ? 1 : fail(*w, unknown_error);
}

_espl *bspl_fit(int ncoe, int mxdat, int mxbrk, bspl_dat_callback dat_cb, bspl_brk_callback brk_cb)
{
    constexpr int (*steps[])(bspltype *) = {check_order,      init_spline, bspl_get_brks, bspl_mk_knots,
                                            bspl_form_matrix, bspl_solve,  bspl_to_pp};
    jfree(std::exchange(last_error, nullptr));
    bspltype w{};
    w.ncoe = ncoe;
    w.mxdat = mxdat;
    w.mxbrk = mxbrk;
    w.dat_cb = dat_cb;
    w.brk_cb = brk_cb;
    const bool done = std::all_of(std::begin(steps), std::end(steps), [&w](auto step) { return step(&w) != 0; });
    _espl *fitted = nullptr;
    if (done) {
        fitted = std::exchange(w.espl, nullptr);
        espl_rehash(fitted);
    } else {
        last_error = std::exchange(w.errstr, nullptr);
    }
    free_workspace(w);
    return fitted;
}

char *bspl_get_error()
{
    return std::exchange(last_error, nullptr);
}
