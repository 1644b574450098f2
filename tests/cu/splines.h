// Splines for tests.
#pragma once

#include "cu/cu.h"
#include "dovsys/dovsys.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

struct free_espl {
    void operator()(_espl *e) const { espl_free(e); }
};
using spline = std::unique_ptr<_espl, free_espl>;
using numbers = std::vector<double>;

// What a fit asks for. A breakpoint or point whose abscissa is `missing` does not exist.
constexpr double missing = -7e77;
inline std::vector<std::pair<double, int>> breaks;
inline std::vector<std::pair<double, double>> points;

inline spline fit(int ncoe)
{
    const auto offer = [](const auto &from, int i, auto *a, auto *b) {
        const auto &[x, y] = from.at(static_cast<std::size_t>(i));
        *a = x;
        *b = y;
        return x == missing ? 0 : 1;
    };
    return spline(bspl_fit(
        ncoe, static_cast<int>(points.size()), static_cast<int>(breaks.size()),
        [](int i, double *x, double *y) { return decltype(offer){}(points, i, x, y); },
        [](int i, double *time, int *ncont) { return decltype(offer){}(breaks, i, time, ncont); }));
}

// The polynomial with these coefficients, and its derivatives.
inline double polynomial(const numbers &coe, double t, int ider = 0)
{
    double sum = 0;
    for (int i = static_cast<int>(coe.size()) - 1; i >= ider; --i) {
        double factor = 1;
        for (int n = 0; n < ider; ++n)
            factor *= i - n;
        sum = sum * t + factor * coe[static_cast<std::size_t>(i)];
    }
    return sum;
}

// A spline in memory; coefficients piece after piece, the last breakpoint's too. The flags are 1, 2, ...
inline spline make(const numbers &times, int ncoe, const numbers &coe, int ncont = 0)
{
    spline e(espl_init_for_memory(static_cast<int>(times.size()), ncoe));
    for (int i = 0; i < e->nbrks; ++i) {
        double *own = e->brks[i].coe;
        e->brks[i] = {times.data()[i], ncont, i + 1, own};
        std::copy_n(coe.data() + std::ptrdiff_t{i} * ncoe, ncoe, own);
    }
    espl_rehash(e.get());
    return e;
}
