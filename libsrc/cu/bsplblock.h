// Points of one knot interval, gathered and then rotated together into the triangle of the fit.
#pragma once

#include "cu/bspl.h"

#include <array>
#include <cstddef>

class bspl_block {
public:
    static constexpr std::size_t most = 128; // points

    bool is_full() const { return count == most; }

    void add(double x, double y)
    {
        abscissae[count] = x;
        ordinates()[count] = y;
        ++count;
    }

    // Rotates the points, which lie in interval ileft, into the ncoe rows of w->rary and w->zary that they touch, and
    // is then empty.
    void rotate_into(bspltype &w, int ileft);

private:
    using column = std::array<double, most>;

    column &ordinates() { return columns[bspl_mxcoe]; }
    void pad();
    void form_columns(const double *t, std::size_t ncoe);
    void reflect(std::size_t j, std::size_t ncoe, double *row, double &z);

    std::size_t count = 0;
    std::size_t padded = 0; // count raised to whole lanes; what is beyond count is zero in all columns
    column abscissae;
    std::array<column, bspl_mxcoe + 1> columns; // the B-splines' values, the last one y
};
