#include "vgph/vgtics.h"
#include "dovsys/dovsys.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int least_labels = 2;
constexpr int most_labels = 45;
constexpr int nudged_decimal = 13;
constexpr double largest_middle = 1e11; // in spans
constexpr const char *span_error = "Floating point problems.  Unable to get rawinc in cal_tic.";

// 1 divided by ten so many times, rounded each time, until nothing is left.
constexpr auto tenths = [] {
    std::array<double, 325> table{1};
    for (std::size_t i = 1; i < table.size(); ++i)
        table[i] = table[i - 1] / 10;
    return table;
}();
static_assert(tenths.back() == 0 && tenths[tenths.size() - 2] > 0);

double middle(double a, double b)
{
    const double sum = a + b;
    return std::isfinite(sum) ? sum * 0.5 : a * 0.5 + b * 0.5;
}

// Multiples of inc between x0 and x1: count of them from first * inc on.
struct tic_run {
    double first;
    int count;
};

// Rounded products grow with k, so what lies between is one run, and what does not is at its edges: two multiples on
// each side that are looked at in case a quotient was rounded, and one by which the quotient itself may be wrong.
tic_run multiples(double x0, double x1, double inc)
{
    constexpr int edge = 5;
    constexpr double unit_steps_end = 9007199254740992.0; // 2^53
    double first = std::floor(x0 / inc) - 2;
    double last = std::floor(x1 / inc) + 2;
    if (!(std::fabs(first) < unit_steps_end && std::fabs(last) < unit_steps_end))
        return {0, 0};
    const double low = std::min(x0, x1);
    const double high = std::max(x0, x1);
    const auto outside = [=](double k) { return !(k * inc >= low && k * inc <= high); };
    for (int i = 0; i < edge && first <= last && outside(first); ++i)
        ++first;
    for (int i = 0; i < edge && first <= last && outside(last); ++i)
        --last;
    return {first, static_cast<int>(std::clamp(last - first + 1, 0.0, static_cast<double>(vg_mxlabs)))};
}

int count_tics(double x0, double x1, double inc)
{
    return inc == 0 ? 1 : multiples(x0, x1, inc).count;
}

void set_single_label(_vgaxisparm &a)
{
    a.lim1 = a.lim0j = a.lim1j = a.labvals[0] = a.lim0;
    a.nospan = a.inctype = a.nlabs = 1;
    a.incval = 0;
    a.inctens = a.incsign = 0;
}

void set_error(_vgaxisparm &a)
{
    c_strncpy(a.errstr, span_error, vg_axiserr_size);
    a.axiserr = a.nospan = a.inctype = a.nlabs = 1;
    a.labvals[0] = middle(a.lim0, a.lim1);
    a.incval = 0;
    a.inctens = a.incsign = 0;
}

// The multiplier whose number of labels is nearest to nreq.
int best_type(const _vgaxisparm &a, double smult, int nreq)
{
    int best = type_codes[0];
    int best_score = 0;
    for (const int type : type_codes) {
        const int count = count_tics(a.lim0j, a.lim1j, type * smult);
        const int score = std::abs(nreq - count);
        if (type != type_codes[0] && (count < least_labels || score >= best_score))
            continue;
        best = type;
        best_score = score;
    }
    return best;
}

// One way to write what is no number: without a sign.
double as_written(double val)
{
    return std::isnan(val) ? std::fabs(val) : val;
}

// Points in every locale.
void with_points(char *text)
{
    std::replace(text, text + std::strlen(text), ',', '.');
}

} // namespace

int getfm(double val, double *frac, double *mult, int *iten)
{
    *frac = val;
    *mult = 1;
    *iten = 0;
    if (val == 0 || !std::isfinite(val))
        return 1;
    double rest = std::fabs(val);
    int tens = 0;
    for (; rest < 1; --tens)
        rest *= 10;
    if (tens < 0)
        *mult = tenths[static_cast<std::size_t>(-tens)];
    for (; rest >= 10; ++tens) {
        rest /= 10;
        *mult *= 10;
    }
    *iten = tens;
    *frac = std::copysign(rest, val);
    return 0;
}

double adj_precision(double val, int n, int dir)
{
    double frac = 0;
    double mult = 0;
    int iten = 0;
    getfm(val, &frac, &mult, &iten);
    const double step = tenths[static_cast<std::size_t>(std::clamp(n, 0, static_cast<int>(tenths.size()) - 1))];
    return (frac + (dir < 0 ? -step : step)) * mult;
}

int cal_tics(double x0, double x1, double inc, double *ticary)
{
    if (inc == 0) {
        ticary[0] = middle(x0, x1);
        return 1;
    }
    const tic_run run = multiples(x0, x1, inc);
    for (int i = 0; i < run.count; ++i)
        ticary[i] = (run.first + i) * inc + 0.0; // which makes -0 a 0
    return run.count;
}

void cal_inc(_vgaxisparm *a, int nreqlabs)
{
    if (a == nullptr)
        return;
    const int nreq = std::clamp(nreqlabs, least_labels, most_labels);
    a->axiserr = 0;
    a->errstr[0] = '\0';
    if (a->lim1 - a->lim0 == 0)
        return set_single_label(*a);
    const int outward = a->lim0 >= a->lim1 ? 1 : -1;
    a->lim0j = adj_precision(a->lim0, nudged_decimal, outward);
    a->lim1j = adj_precision(a->lim1, nudged_decimal, -outward);
    const double signed_span = a->lim1j - a->lim0j;
    const double span = std::fabs(signed_span);
    a->nospan = 0;
    if (std::fabs(middle(a->lim0j, a->lim1j) / span) > largest_middle)
        return set_error(*a);
    double frac = 0;
    double mult = 0;
    if (getfm(span / nreq, &frac, &mult, &a->inctens) != 0)
        return set_single_label(*a);
    a->incsign = signed_span < 0 ? 1 : 0;
    double smult = a->incsign != 0 ? -mult : mult;
    a->inctype = best_type(*a, smult, nreq);
    if (a->inctype == 10) {
        a->inctype = 1;
        ++a->inctens;
        smult *= 10;
    }
    a->incval = a->inctype * smult;
    a->nlabs = cal_tics(a->lim0j, a->lim1j, a->incval, a->labvals);
}

void vg_label_text(const _vgaxisparm *a, double val, char text[vg_label_size])
{
    constexpr double largest_fixed = 1e8;
    constexpr int widest_fixed = 12;
    const double magnitude = std::fabs(val);
    const int decimals = std::max(-a->inctens, 0);
    bool is_fixed = magnitude <= largest_fixed;
    if (a->inctens < 0) { // by an estimate of what stands before the decimals
        const int digits = magnitude < 1 || !std::isfinite(val) ? 0 : static_cast<int>(std::log10(magnitude) + 1);
        is_fixed = digits + 2 + (val < 0 ? 1 : 0) + decimals <= widest_fixed;
    }
    if (is_fixed && std::isfinite(val)) {
        *std::to_chars(text, text + vg_label_size - 1, val, std::chars_format::fixed, decimals).ptr = '\0';
        return;
    }
    std::snprintf(text, vg_label_size, "%13.7E", as_written(val));
    with_points(c_ridedgews(text));
}

void vg_end_label_text(double val, char text[vg_label_size])
{
    std::snprintf(text, vg_label_size, "%13.7G", as_written(val));
    with_points(text);
}

void vg_nospan_label_text(double val, char text[vg_label_size])
{
    std::snprintf(text, vg_label_size, "%15.8G", as_written(val));
    with_points(text);
}
