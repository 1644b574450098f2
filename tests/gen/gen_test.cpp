#include "gen/gen.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

namespace {

using numbers = std::vector<double>;

// Zeros on the diagonal want rows exchanged; columns and rows have any magnitude.
TEST(BandedSystem, IsSolvedWhateverItsShapeAndScale)
{
    std::mt19937 random(2385);
    std::uniform_real_distribution<double> entry(-1, 1);
    for (const auto &[n, ml, mu] :
         {std::tuple{1, 0, 0}, {1, 3, 2}, {2, 4, 4}, {5, 0, 3}, {7, 3, 0}, {40, 2, 5}, {60, 9, 1}, {300, 3, 3}}) {
        const std::ptrdiff_t width = ml + mu + 1;
        numbers matrix(static_cast<std::size_t>(n * width), std::nan("")); // what lies outside is not looked at
        numbers expected(static_cast<std::size_t>(n));
        for (int c = 0; c < n; ++c)
            expected.data()[c] = std::ldexp(entry(random), -37 * (c % 5));
        numbers x(expected.size());
        for (int r = 0; r < n; ++r)
            for (int c = std::max(0, r - ml); c <= std::min(n - 1, r + mu); ++c) {
                const bool zero = r == c && ml > 0 && mu > 0 && n > 2;
                const double unscaled = zero ? 0 : entry(random) + (r == c ? 3 : 0);
                const double value = std::ldexp(unscaled, 37 * (c % 5) - 50 * (r % 3));
                matrix.data()[r * width + ml + c - r] = value;
                x.data()[r] += value * expected.data()[c];
            }
        ASSERT_EQ(solve_banded_system(matrix.data(), x.data(), x.data(), n, ml, mu), 1) << n << " " << ml << " " << mu;
        for (int c = 0; c < n; ++c)
            ASSERT_NEAR(std::ldexp(x.data()[c] - expected.data()[c], 37 * (c % 5)), 0, 1e-7) << n << " " << c;
    }
}

TEST(BandedSystem, ThatIsSingularLeavesTheSolution)
{
    for (const numbers &matrix :
         {numbers{0, 1, 2, 2, 4, 0, 1, 1, 0}, numbers{0, 1, 2, 2, 4 + 1e-15, 0, 1, 1, 0}, // rows that are multiples
          numbers(9, 0.0), numbers{0, 1, 1, 1, std::nan(""), 1, 1, 1, 0}, numbers{0, HUGE_VAL, 1, 1, 1, 1, 1, 3, 0},
          numbers{0, 5e-324, 0, 0, 1, 0, 0, 5e-324, 0}}) {
        numbers x{7, 8, 9};
        EXPECT_EQ(solve_banded_system(matrix.data(), x.data(), x.data(), 3, 1, 1), 0) << matrix[4];
        EXPECT_EQ(x, (numbers{7, 8, 9}));
    }
    EXPECT_EQ(solve_banded_system(nullptr, nullptr, nullptr, 3, 1, 1), 0);
}

TEST(Polynomial, IsTheSameAboutAnotherPoint)
{
    numbers coe{5, -3, 0, 2}; // 2 t^3 - 3 t + 5 at t = s + 2
    tranpp(coe.data(), 4, 2);
    tranpp(coe.data(), 1, 9);
    EXPECT_EQ(coe, (numbers{15, 21, 12, 2}));
}

} // namespace
