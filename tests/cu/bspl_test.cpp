#include "splines.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <functional>
#include <limits>
#include <tuple>

namespace {

constexpr double inf = std::numeric_limits<double>::infinity();

// Breakpoints and points over first ... first + width, with values of f of 0 ... 1.
template <typename function>
void offer_function(int nbrks, int npoints, int ncont, double first, double width, function f)
{
    breaks.clear();
    points.clear();
    for (int i = 0; i < nbrks; ++i)
        breaks.emplace_back(first + width * i / (nbrks - 1), ncont);
    for (int i = 0; i < npoints; ++i) {
        const double x = first + width * (i + 0.385) / npoints;
        points.emplace_back(x, f((x - first) / width));
    }
}

double rms(const spline &e)
{
    double sum = 0;
    for (const auto &[x, y] : points)
        sum += std::pow(y - espl(e.get(), x, 0), 2);
    return std::sqrt(sum / static_cast<double>(points.size()));
}

TEST(Fit, GivesPolynomialsBackOfAnyOrderContinuityAndPlace)
{
    const numbers whole{1.5, -2.25, 0.75, 3.5, -1.25, 0.5, -2.75, 1.25, 0.25, -0.5};
    for (int k = 1; k <= bspl_mxcoe; ++k) {
        const numbers coe(whole.begin(), whole.begin() + k);
        for (const auto &[first, width] : {std::pair{0.0, 8.0}, {1e9, 1024.0}, {-1e9, 64.0}, {3e-20, 1e-20}})
            for (int ncont = -1; ncont <= k - 2; ++ncont) {
                offer_function(9, 400, ncont, first, width, [&](double u) { return polynomial(coe, u); });
                const spline e = fit(k);
                ASSERT_NE(e, nullptr) << k << " " << ncont << " " << first;
                EXPECT_LT(rms(e), 1e-14) << k << " " << ncont << " " << first;
                EXPECT_NEAR(espl(e.get(), first + width, 0), polynomial(coe, 1), 1e-12);
                EXPECT_NEAR(espl(e.get(), first + 0.6875 * width, 1) * width, polynomial(coe, 0.6875, 1), 1e-9);
            }
    }
}

// Residuals of an orthogonal method, from another program; sums of products would leave 1e-12 of the last.
TEST(Fit, LeavesTheResidualOfAnOrthogonalMethod)
{
    for (const double first : {0.0, 1e9})
        for (const auto &[k, least, most] : {std::tuple{4, 5.43e-6, 5.45e-6}, {10, 0.0, 1e-13}}) {
            offer_function(1000, 20000, k - 2, first, 1000, [](double u) { return std::sin(300 * u); });
            const double residual = rms(fit(k));
            EXPECT_TRUE(residual >= least && residual <= most) << residual;
        }
    // A stretch of 5 of 100 intervals without points, and then without breakpoints.
    offer_function(101, 20000, 2, 0, 100, [](double u) { return u * u * u; });
    const auto clear_middle = [](auto &offered) {
        for (auto &[x, y] : offered)
            x = x > 40 && x < 45 ? missing : x;
    };
    clear_middle(points);
    EXPECT_EQ(fit(4), nullptr);
    clear_middle(breaks);
    EXPECT_NEAR(espl(fit(4).get(), 41.5, 0), std::pow(0.415, 3), 1e-13);
}

TEST(Fit, SolvesTheNormalEquationsOfItsWorkspace)
{
    constexpr int k = 4;
    constexpr std::ptrdiff_t width = 2 * k - 1;
    offer_function(5, 40, 2, 10, 4, [](double u) { return std::cos(5 * u); });
    breaks[2].second = 0;
    points[7].first = 9.5;  // outside
    points[8].second = inf; // no number
    bspltype w{};
    w.ncoe = k;
    w.mxbrk = 5;
    w.mxdat = 40;
    w.brk_cb = [](int i, double *time, int *ncont) { return std::tie(*time, *ncont) = breaks.data()[i], 1; };
    w.dat_cb = [](int i, double *x, double *y) { return std::tie(*x, *y) = points.data()[i], 1; };
    w.espl = espl_init_for_memory(w.mxbrk, k);
    ASSERT_EQ(bspl_get_brks(&w) + bspl_mk_knots(&w) + bspl_form_matrix(&w), 3);
    EXPECT_EQ(numbers(w.knots, w.knots + w.nknots), (numbers{10, 10, 10, 10, 11, 12, 12, 12, 13, 14, 14, 14, 14}));
    EXPECT_EQ((std::vector{w.nequ, w.ndat, w.nbrks}), (std::vector{9, 40, 5}));
    numbers matrix(9 * width);
    numbers right(9);
    for (int ileft = k - 1; const auto &[x, y] : points) {
        while (x >= w.knots[ileft + 1])
            ++ileft;
        double v[k];
        bspl_vn(w.knots, k, 1, x, ileft, v);
        for (int i = 0; x >= 10 && y != inf && i < k * k; ++i) {
            const std::ptrdiff_t row = ileft - 3 + i / k;
            matrix.data()[row * width + 3 + i % k - i / k] += v[i / k] * v[i % k];
            right.data()[row] += i % k == 0 ? v[i / k] * y : 0;
        }
    }
    for (std::ptrdiff_t i = 0; i < 9 * width; ++i)
        EXPECT_NEAR(w.qary[i], matrix.data()[i], 1e-14) << i;
    for (int i = 0; i < 9; ++i)
        EXPECT_NEAR(w.bary[i], right.data()[i], 1e-14) << i;
    for (double *array : {w.knots, w.qary, w.bary, w.rary, w.zary})
        jfree(array);
    espl_free(w.espl);
}

TEST(Fit, FailsWithAReason)
{
    const std::string order = "Breakpoint times out of order.";
    const std::string singular = "Fit failure! (Singular matrix)";
    const std::string memory = "Unable to init espl (internal prob?).";
    const std::string continuity = "Invalid breakpoint continuity at    ";
    const double nan = std::nan("");
    const auto brk = [](std::size_t i, double time, int ncont) { return [=] { breaks[i] = {time, ncont}; }; };
    const auto point = [](std::size_t i, double x, double y) { return [=] { points[i] = {x, y}; }; };
    const auto first = [](std::size_t nbrks, std::size_t npoints) {
        return [=] { breaks.resize(nbrks), points.resize(npoints); };
    };
    using row = std::tuple<int, std::function<void()>, std::string>;
    for (const auto &[k, wrong, expected] : {row{0, first(4, 9), "NCOE must be larger than zero."},
                                             row{11, first(4, 9), "NCOE is too Large."},
                                             row{4, first(0, 9), memory},
                                             row{4, first(1, 9), singular},
                                             row{4, first(4, 6), singular},
                                             row{4, first(4, 10), singular},
                                             row{4, first(4, 0), singular},
                                             row{4, brk(1, missing, 2), ""},
                                             row{4, brk(0, 0.25, 2), order},
                                             row{4, brk(1, 0, 2), order},
                                             row{4, brk(1, nan, 2), order},
                                             row{4, brk(3, inf, 2), order},
                                             row{4, brk(0, -1e30, 2), order},
                                             row{4, brk(0, 0, 99), ""},
                                             row{4, brk(1, 0.25, 3), continuity + "2.50000000000E-01."},
                                             row{4, brk(1, 0.25, -1), ""},
                                             row{4, brk(2, 0.5, -2), continuity + "5.00000000000E-01."},
                                             row{4, brk(2, 0.5, INT_MIN), continuity + "5.00000000000E-01."},
                                             row{4, point(1, 2, 1), ""},
                                             row{4, point(3, 0.75 * (2 + 0.385) / 40, 1), "X values out of order."},
                                             row{4, point(1, nan, 1), ""},
                                             row{4, point(1, inf, 1), ""},
                                             row{4, point(1, 0.01, -inf), ""},
                                             row{4, point(4, 0.083, 1e300), ""}}) {
        offer_function(4, 40, 2, 0, 0.75, [](double u) { return u; });
        wrong();
        const spline e = fit(k);
        const jmalloc_ptr<char> reason(bspl_get_error());
        EXPECT_EQ(reason != nullptr ? reason.get() : "", expected);
        EXPECT_EQ(e != nullptr, expected.empty());
    }
    offer_function(2, 9, 2, 0, 5e-324, [](double u) { return u; }); // no width that a derivative could be taken over
    EXPECT_EQ(fit(4), nullptr);
    EXPECT_EQ(bspl_fit(4, 9, INT_MAX, nullptr, nullptr), nullptr);
    EXPECT_EQ(jmalloc_ptr<char>(bspl_get_error()).get(), memory);
    EXPECT_EQ(bspl_get_error(), nullptr);
}

} // namespace
