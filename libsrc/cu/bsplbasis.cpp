#include "cu/bspl.h"

#include <algorithm>
#include <array>

namespace {

// What bspl_vn() keeps for going on: the order reached, and the distances from x to the knots on both sides.
int order = 0;
std::array<double, bspl_mxcoe> to_right;
std::array<double, bspl_mxcoe> to_left;

// The interval that counts for x, which lies between the first and the last knot; never an empty one.
int interval_of(const double *t, int n, int ncoe, double x)
{
    auto ileft = static_cast<int>(std::upper_bound(t + ncoe, t + n, x) - t) - 1;
    while (ileft > ncoe - 1 && t[ileft] == t[ileft + 1])
        --ileft;
    return ileft;
}

} // namespace

void bspl_vn(const double *t, int jhigh, int index, double x, int ileft, double *v)
{
    if (index == 1) {
        order = 1;
        v[0] = 1;
        if (jhigh <= 1)
            return;
    }
    const int last = std::min(std::max(jhigh, order + 1), bspl_mxcoe);
    for (; order < last; ++order) {
        const auto j = static_cast<std::size_t>(order);
        to_right[j - 1] = t[ileft + order] - x;
        to_left[j - 1] = x - t[ileft + 1 - order];
        double saved = 0;
        for (std::size_t i = 0; i < j; ++i) {
            const double term = v[i] / (to_right[i] + to_left[j - 1 - i]);
            v[i] = saved + to_right[i] * term;
            saved = to_left[j - 1 - i] * term;
        }
        v[j] = saved;
    }
}

void bspl_dr(const double *t, const double *a, int n, int ncoe, double *adif, int nder)
{
    std::copy(a, a + n, adif);
    for (int d = 1; d < nder; ++d) {
        const int order_left = ncoe - d;
        const double *above = adif;
        adif += n;
        for (int i = d; i < n; ++i) {
            const double width = t[i + order_left] - t[i];
            adif[i] = width == 0 ? 0 : (above[i] - above[i - 1]) / width * order_left;
        }
    }
}

int bspl_ev(const double *t, const double *adif, int n, int ncoe, double x, double *sval, int nder)
{
    if (!(x >= t[ncoe - 1] && x <= t[n])) {
        std::fill_n(sval, nder, 0.0);
        return 0;
    }
    const int ileft = interval_of(t, n, ncoe, x);
    std::array<double, bspl_mxcoe> v;
    for (int d = nder - 1; d >= 0; --d) {
        const int k = ncoe - d;
        bspl_vn(t, k, d == nder - 1 ? 1 : 2, x, ileft, v.data());
        const double *coefficients = adif + std::ptrdiff_t{d} * n + (ileft - k + 1);
        sval[d] = 0;
        for (int i = 0; i < k; ++i)
            sval[d] += coefficients[i] * v[static_cast<std::size_t>(i)];
    }
    return 1;
}
