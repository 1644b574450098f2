// Rates of change by local fits.
#include "wi/spfile.h"

#include "dovsys/dovsys.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

// Sums of a weighted least squares fit of c0 + c1 d + c2 d^2.
struct sums {
    std::array<double, 5> powers{}; // of w d^k
    std::array<double, 3> values{}; // of w y d^k

    void add(double d, double y, double weight)
    {
        double power = weight;
        for (std::size_t k = 0; k < powers.size(); ++k, power *= d) {
            powers[k] += power;
            if (k < values.size())
                values[k] += power * y;
        }
    }
};

using vector = std::array<double, 3>;

double determinant(const vector &a, const vector &b, const vector &c)
{
    return a[0] * (b[1] * c[2] - b[2] * c[1]) - a[1] * (b[0] * c[2] - b[2] * c[0]) + a[2] * (b[0] * c[1] - b[1] * c[0]);
}

// Coefficient 1 or 2, by Cramer's rule; 0 when the points do not determine a parabola.
double coefficient(const sums &s, int order)
{
    const vector column[] = {{s.powers[0], s.powers[1], s.powers[2]},
                             {s.powers[1], s.powers[2], s.powers[3]},
                             {s.powers[2], s.powers[3], s.powers[4]}};
    const double whole = determinant(column[0], column[1], column[2]);
    if (whole == 0)
        return 0;
    return (order == 1 ? determinant(column[0], s.values, column[2]) : determinant(column[0], column[1], s.values)) /
           whole;
}

// Tricube, which has not quite come to 0 at the farthest point (W. S. Cleveland, J. Am. Stat. Assoc. 74, 1979).
double weight_at(double d)
{
    const double t = std::fabs(d) / 1.1;
    const double u = 1 - t * t * t;
    return u * u * u;
}

// Of the parabola through three points, by divided differences (I. Newton): exact where the numbers are simple.
double rate_of_three(const double *times, const double *values, double time, int order)
{
    const double first = (values[1] - values[0]) / (times[1] - times[0]);
    const double second = ((values[2] - values[1]) / (times[2] - times[1]) - first) / (times[2] - times[0]);
    return order == 1 ? first + second * (time - times[0] + (time - times[1])) : 2 * second;
}

// The rate at a time, from points first to last; two make a line. Distances are taken in units of the largest, and
// values from that of the first point, so that neither a late time nor a large value costs digits.
double rate_at(const sp_track &track, double time, std::size_t first, std::size_t last, bool weighted, int order)
{
    if (last - first < 3)
        return last - first == 2 && order == 1
                   ? (track.values[first + 1] - track.values[first]) / (track.times[first + 1] - track.times[first])
                   : 0;
    if (last - first == 3)
        return rate_of_three(track.times + first, track.values + first, time, order);
    const double unit = std::max(std::fabs(track.times[first] - time), std::fabs(track.times[last - 1] - time));
    if (!(unit > 0))
        return 0;
    sums s;
    for (std::size_t k = first; k < last; ++k) {
        const double d = (track.times[k] - time) / unit;
        s.add(d, track.values[k] - track.values[first], weighted ? weight_at(d) : 1);
    }
    const double c = coefficient(s, order);
    return order == 1 ? c / unit : 2 * c / (unit * unit);
}

} // namespace

void sp_fit_rates(const sp_track &track, const fileparams &parms, int order, double *out)
{
    sp_value *times = sp_mk_array(static_cast<int>(track.n));
    sp_value *values = sp_mk_array(static_cast<int>(track.n));
    std::size_t n = 0; // of points that take part
    for (std::size_t i = 0; i < track.n; ++i)
        if (track.used == nullptr || track.used[i] != 0) {
            times->ary[n] = track.times[i];
            values->ary[n++] = track.values[i];
        }
    const sp_track points = {times->ary, values->ary, nullptr, n};
    const std::size_t window = std::min(n, static_cast<std::size_t>(std::max(parms.navg, 3)));
    std::size_t before = 0;
    for (std::size_t i = 0; i < track.n; ++i) {
        const std::size_t first = std::min(before - std::min(before, window / 2), n - window);
        out[i] = rate_at(points, track.times[i], first, first + window, parms.wtauto != 0, order);
        before += track.used == nullptr || track.used[i] != 0 ? 1 : 0;
    }
    sp_free_value(times);
    sp_free_value(values);
}
