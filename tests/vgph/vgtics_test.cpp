#include "tic_laws.h"

#include <gtest/gtest.h>

#include <clocale>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr double inf = std::numeric_limits<double>::infinity();
const double nan = std::nan("");

_vgaxisparm axis(double lim0, double lim1, int labels)
{
    _vgaxisparm a{};
    a.lim0 = lim0;
    a.lim1 = lim1;
    cal_inc(&a, labels);
    return a;
}

// The increment's parts and the texts of all labels.
std::string described(const _vgaxisparm &a)
{
    std::string all = std::to_string(a.inctype) + "^" + std::to_string(a.inctens) + (a.incsign != 0 ? "r" : "");
    for (int i = 0; i < a.nlabs; ++i) {
        char text[vg_label_size];
        vg_label_text(&a, a.labvals[i], text);
        all.append(" ").append(text);
    }
    return all;
}

TEST(Axis, HasRoundLabels)
{
    using row = std::tuple<double, double, int, const char *>;
    for (const char *locale : {"German", "de_DE.UTF-8", "C"}) {
        std::setlocale(LC_ALL, locale);
        for (const auto &[lim0, lim1, labels, expected] :
             {row{0, 10, 5, "2^0 0 2 4 6 8 10"},
              row{10, 0, 5, "2^0r 10 8 6 4 2 0"},
              row{0, 10, 1, "1^1 0 10"},
              row{0, 10, -7, "1^1 0 10"},
              row{0, 10, 4, "5^0 0 5 10"},
              row{0.5, -0.5, 4, "2^-1r 0.4 0.2 0.0 -0.2 -0.4"},
              row{-1, 1, 4, "5^-1 -1.0 -0.5 0.0 0.5 1.0"},
              row{0.1, 0.3, 2, "1^-1 0.1 0.2 0.3"},
              row{0, 97, 10, "1^1 0 10 20 30 40 50 60 70 80 90"},
              row{0, 3e8, 3, "1^8 0 100000000 2.0000000E+08 3.0000000E+08"},
              row{1e4, 1e4 + 3e-5, 3, "1^-5 10000.00000 10000.00001 10000.00002 10000.00003"},
              row{-1e6, -1e6 - 2e-5, 2, "2^-5r -1.0000000E+06 -1.0000000E+06"},
              row{1e-9, 3e-9, 2, "1^-9 0.000000001 0.000000002 0.000000003"},
              row{1e-11, 3e-11, 2, "1^-11 1.0000000E-11 2.0000000E-11 3.0000000E-11"},
              row{4, 4, 9, "1^0 4"},
              row{0, inf, 5, "1^0 0"},
              row{7, nan, 5, "1^0 7"},
              row{inf, inf, 5, "1^0 INF"},
              row{-nan, 1, 5, "1^0 NAN"},
              row{-1.7e308, 1.7e308, 5, "1^0 -1.7000000E+308"}})
            EXPECT_EQ(described(axis(lim0, lim1, labels)), expected) << lim0 << " " << lim1 << " " << locale;
    }
    EXPECT_EQ(axis(0, 1, 100).nlabs, axis(0, 1, 45).nlabs);
    const _vgaxisparm single = axis(4, nan, 9);
    EXPECT_EQ((std::vector{single.lim1, single.lim0j, single.lim1j}), (std::vector<double>(3, 4)));
    EXPECT_EQ(single.nospan * 10 + single.axiserr, 10);
    const _vgaxisparm tiny = axis(1e12, 1e12 + 1, 5);
    EXPECT_STREQ(tiny.errstr, "Floating point problems.  Unable to get rawinc in cal_tic.");
    EXPECT_EQ((std::vector{tiny.labvals[0], tiny.incval, tiny.lim1}), (std::vector{1e12 + 0.5, 0.0, 1e12 + 1}));
    EXPECT_EQ((std::vector{tiny.axiserr, tiny.nospan, tiny.nlabs}), (std::vector(3, 1)));
    EXPECT_EQ(axis(1.7e308, std::nextafter(1.7e308, inf), 5).labvals[0], 1.7e308);
    cal_inc(nullptr, 5);
    char text[vg_label_size];
    vg_end_label_text(-1234567.8, text);
    EXPECT_STREQ(text, "     -1234568");
    vg_nospan_label_text(1e-5 / 3, text);
    EXPECT_STREQ(text, "  3.3333333E-06");
}

TEST(Axis, IsSplitAndNudgedByTens)
{
    using row = std::tuple<double, double, double, int>;
    for (const auto &[val, frac, mult, iten] :
         {row{-250, -2.5, 100, 2}, row{0.04, 4, 0.01, -2}, row{10, 1, 10, 1}, row{9.5, 9.5, 1, 0}, row{0, 0, 1, 0},
          row{-inf, -inf, 1, 0}, row{1e-3, 1, 0.1 / 10 / 10, -3}}) {
        double f = 0;
        double m = 0;
        int i = 9;
        EXPECT_EQ(getfm(val, &f, &m, &i), val == 0 || val == -inf ? 1 : 0);
        EXPECT_EQ((std::tuple{f, m, i}), (std::tuple{frac, mult, iten})) << val;
    }
    EXPECT_EQ((std::vector{adj_precision(200, 2, 0), adj_precision(-200, 2, -1), adj_precision(0, 3, -1),
                           adj_precision(5, 9999, 1), adj_precision(5, -3, 1), adj_precision(inf, 13, -1)}),
              (std::vector{(2 + 0.1 / 10) * 100, -(2 + 0.1 / 10) * 100, -(0.1 / 10 / 10), 5.0, 6.0, inf}));
    double labels[vg_mxlabs];
    using range = std::tuple<double, double, double, int>;
    for (const auto &[x0, x1, inc, count] : {range{3, 9, -1, 0}, range{1e300, 2e300, 1, 0}, range{inf, inf, 1, 0},
                                             range{nan, 1, 1, 0}, range{-0.5, 1, inf, 0}, range{3, 4, 0, 1}})
        EXPECT_EQ(cal_tics(x0, x1, inc, labels), count) << x0 << " " << inc;
    EXPECT_EQ(labels[0], 3.5);
    EXPECT_EQ(cal_tics(0, 1e9, 1, labels), vg_mxlabs);
    EXPECT_EQ(labels[49], 49);
}

// From denormal limits to those near overflow, wide and narrow, around zero and far away, reversed or not.
TEST(Axis, KeepsItsLawsWhateverTheRange)
{
    std::mt19937_64 random(2385);
    std::uniform_real_distribution<double> fraction(-1, 1);
    for (int i = 0; i < 20000; ++i) {
        const double offset = fraction(random) * std::pow(10, std::floor(310 * fraction(random)));
        const double span = fraction(random) * std::pow(10, std::floor(310 * fraction(random)));
        const double narrow = offset * (1 + std::pow(10, -16 * std::fabs(fraction(random))));
        const double lim1 = i % 3 == 0 ? narrow : i % 3 == 1 ? span : offset + span;
        const auto labels = static_cast<int>(random() % 60);
        const _vgaxisparm a = axis(offset, lim1, labels);
        ASSERT_EQ(broken_law(a), nullptr) << broken_law(a) << ": " << offset << " " << lim1 << " " << labels;
    }
}

} // namespace
