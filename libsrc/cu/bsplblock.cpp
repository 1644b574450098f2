#include "cu/bsplblock.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr std::size_t lanes = 4; // independent sums, which the compiler keeps in vector registers

double dot(const double *a, const double *b, std::size_t n)
{
    std::array<double, lanes> sums{};
    for (std::size_t p = 0; p < n; p += lanes)
        for (std::size_t lane = 0; lane < lanes; ++lane)
            sums[lane] += a[p + lane] * b[p + lane];
    return (sums[0] + sums[2]) + (sums[1] + sums[3]);
}

void subtract(double *to, double factor, const double *from, std::size_t n)
{
    for (std::size_t p = 0; p < n; ++p)
        to[p] -= factor * from[p];
}

} // namespace

void bspl_block::rotate_into(bspltype &w, int ileft)
{
    const auto ncoe = static_cast<std::size_t>(w.ncoe);
    const std::size_t first = static_cast<std::size_t>(ileft) + 1 - ncoe;
    if (count == 0)
        return;
    form_columns(w.knots + ileft, ncoe);
    for (std::size_t j = 0; j < ncoe; ++j)
        reflect(j, ncoe, w.rary + (first + j) * ncoe, w.zary[first + j]);
    count = 0;
}

// The recurrence of bspl_vn(), an order at a time for all points; t is the interval's left knot.
void bspl_block::form_columns(const double *t, std::size_t ncoe)
{
    padded = (count + lanes - 1) / lanes * lanes;
    std::fill(abscissae.begin() + count, abscissae.begin() + padded, t[0]);
    std::fill_n(columns[0].begin(), padded, 1.0);
    for (std::size_t j = 1; j < ncoe; ++j) {
        column saved;
        std::fill_n(saved.begin(), padded, 0.0);
        for (std::size_t i = 0; i < j; ++i) {
            const double *left = t - (j - 1 - i);
            const double right = t[i + 1];
            const double inverse = 1 / (right - *left);
            for (std::size_t p = 0; p < padded; ++p) {
                const double term = columns[i][p] * inverse;
                columns[i][p] = saved[p] + (right - abscissae[p]) * term;
                saved[p] = (abscissae[p] - *left) * term;
            }
        }
        columns[j] = saved;
    }
    for (column &values : columns)
        std::fill(values.begin() + count, values.begin() + padded, 0.0);
}

// The reflection that takes column j of the points into the diagonal element row[0]; row[i] belongs to column j + i and
// z to the ordinates.
void bspl_block::reflect(std::size_t j, std::size_t ncoe, double *row, double &z)
{
    const double *from = columns[j].data();
    const double squares = dot(from, from, padded);
    if (!(squares >= std::numeric_limits<double>::min())) // nothing there, or not enough to divide by
        return;
    const double length = -std::copysign(std::sqrt(row[0] * row[0] + squares), row[0]);
    const double head = row[0] - length;
    const double part = -1 / (length * head); // 2 / (v'v) for the vector v = (head, column j)
    row[0] = length;
    const auto apply = [&](double &top, double *values) {
        const double along = (head * top + dot(from, values, padded)) * part;
        top -= along * head;
        subtract(values, along, from, padded);
    };
    for (std::size_t i = j + 1; i < ncoe; ++i)
        apply(row[i - j], columns[i].data());
    apply(z, ordinates().data());
}
