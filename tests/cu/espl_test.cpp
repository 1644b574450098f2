#include "splines.h"
#include "support/allocator_watch.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <random>
#include <utility>

namespace {

// The breakpoints of a "file", what reading them costs, and the read that fails.
const _espl *on_file;
int reads;
int failing_read;

int read_break(_splfile *, int i, _brkpoint *brk)
{
    if (++reads == failing_read)
        return -2;
    double *coe = std::exchange(*brk, on_file->brks[i]).coe;
    brk->coe = coe;
    if (coe != nullptr)
        std::copy_n(on_file->brks[i].coe, on_file->ncoe, coe);
    return 1;
}

// Piece i is the constant i, so that a value tells which piece it comes from.
TEST(Spline, FindsItsPieceInMemoryAndOnFile)
{
    std::mt19937 random(2385);
    for (const int n : {2, 3, 4, 7, 100}) {
        spline memory(espl_init_for_memory(n, 1));
        for (int i = 0; i < n; ++i) {
            memory->brks[i].time = 12 * i + 1;
            *memory->brks[i].coe = std::min(i, n - 2);
        }
        espl_rehash(memory.get());
        on_file = memory.get();
        reads = failing_read = 0;
        const spline file(espl_init_for_reader(nullptr, read_break, n, 1));
        ASSERT_EQ(reads, 3);
        for (int i = 0; i < 2000; ++i) { // single steps and jumps, breakpoints among them, and beyond both ends
            const double t = i < 1000 ? i * n / 80.0 - 5 : static_cast<int>(random() % 2000) % (12 * n + 20) - 9;
            const double piece = std::clamp(std::floor((t - 1) / 12), 0.0, n - 2.0);
            reads = 0;
            ASSERT_EQ(espl(memory.get(), t, 0), piece) << n << " " << t;
            ASSERT_EQ(espl(file.get(), t, 0), piece) << n << " " << t;
            ASSERT_LE(reads, i < 1000 ? 1 : 10); // the next piece needs one breakpoint, any other one its bisection
        }
    }
}

TEST(Spline, OnFileSurvivesReadsThatFail)
{
    const spline memory = make({0, 1, 2, 4, 8}, 2, {1, 2, 3, 4, 5, 6, 7, 8, 39, 8});
    on_file = memory.get();
    for (failing_read = 1; failing_read <= 18; ++failing_read) { // the last one is not reached
        reads = 0;
        const spline e(espl_init_for_reader(nullptr, read_break, 5, 2));
        ASSERT_EQ(e == nullptr, failing_read <= 3);
        for (const double t : {1.5, 7.0, 0.5}) {
            const double value = e != nullptr ? espl(e.get(), t, 0) : 0;
            EXPECT_EQ(value, espl_error() == -2 ? 0 : espl(memory.get(), t, 0)) << failing_read << " " << t;
        }
        EXPECT_EQ(e != nullptr && spline(espl_copy(e.get())) != nullptr,
                  failing_read < 13 ? e != nullptr : failing_read > 17);
    }
}

TEST(Spline, HasDerivativesAndSaysWhatIsWrong)
{
    const spline e = make({1, 3}, 4, {2, -1, 0.5, 0.25, 4, 4, 2, 0.25});
    for (const double t : {-4.0, 1.0, 2.5, 3.0, 9.0})
        for (int d = 0; d < 6; ++d)
            EXPECT_EQ(espl(e.get(), t, d), polynomial({2, -1, 0.5, 0.25}, t - 1, d)) << t << " " << d;
    EXPECT_EQ(espl_error(), espl_ok);
    EXPECT_EQ(espl(e.get(), 2, -1) + espl(nullptr, 2, 0), 0);
    EXPECT_EQ(espl_error(), espl_bad_arg);
    const spline disorder = make({1, std::nan(""), 4}, 1, {0, 1, 2});
    testing::internal::CaptureStdout();
    EXPECT_EQ(espl(spline(espl_init_for_memory(1, 2)).get(), 0, 0) + espl(disorder.get(), 2, 0), 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "\nInternal problem in espl.\n\nInternal problem in espl.\n");
    EXPECT_EQ(espl_error(), espl_few_breaks);
    EXPECT_TRUE(espl_init_for_memory(0, 4) == nullptr && espl_init_for_memory(4, 0) == nullptr);
    EXPECT_TRUE(espl_init_for_memory(INT_MAX, 4) == nullptr && espl_init_for_memory(2, INT_MAX) == nullptr);
    EXPECT_EQ(espl_mult(nullptr, 2) + espl_diff(nullptr) + espl_integrate(nullptr, 0), 3 * espl_bad_arg);
    for (int failing = 1; failing <= 6; ++failing) { // the last one is not reached
        const allocator_watch watch(failing);
        EXPECT_EQ(spline(espl_init_for_memory(3, 2)) != nullptr, failing == 6);
        EXPECT_EQ(watch.live(), 0U);
    }
}

// t^2 - 1 up to 2, then 3 + 4 (t - 2), then a jump to 100.
spline mixed()
{
    return make({0, 2, 4, 5}, 3, {-1, 0, 1, 3, 4, 0, 100, 0, 0, 100, 0, 0}, 1);
}

TEST(Spline, IsScaledIntegratedAndDifferentiatedExactly)
{
    const spline before = mixed();
    const spline e = mixed();
    EXPECT_EQ(espl_integrate(e.get(), 5), espl_ok);
    for (const auto &[t, thirds] : {std::pair{0, 15}, {1, 13}, {2, 17}, {3, 32}, {4, 59}, {5, 359}, {6, 659}})
        EXPECT_NEAR(espl(e.get(), t, 0), thirds / 3.0, 1e-13) << t;
    EXPECT_EQ(e->ncoe * 10 + e->brks[1].ncont, 42);
    EXPECT_EQ(espl_diff(e.get()) + espl_mult(e.get(), -2) + espl_plus(e.get(), 0.5), 3);
    for (const double t : {-1.0, 0.0, 1.5, 2.0, 3.25, 4.0, 4.5, 5.0, 7.0})
        EXPECT_EQ(espl(e.get(), t, 0), 0.5 - 2 * espl(before.get(), t, 0)) << t;
    for (int i = 0; i < 4; ++i)
        espl_diff(e.get());
    EXPECT_EQ((std::vector{e->ncoe, e->brks[1].ncont, e->brks[1].flg2}), (std::vector{1, -1, 2}));
    EXPECT_EQ(espl(e.get(), 1, 0), 0);
    e->brks[0].ncont = INT_MAX;
    espl_integrate(e.get(), 0);
    EXPECT_EQ(e->brks[0].ncont, INT_MAX);
}

TEST(Splines, AreMergedAndAddedExactly)
{
    const spline a = mixed();
    const spline b = make({-2, 1, 2, 3}, 4, {1, 2, 3, 4, 0.5, -1, 2, 0, 7, 7, 7, 7, 28, 42, 28, 7}, -1);
    const spline merged(espl_mergebrks(a.get(), b.get()));
    const spline sum(espl_add(a.get(), b.get()));
    int n = 0;
    const jmalloc_ptr<double> times(espl_plttimes(sum.get(), &n));
    EXPECT_EQ(numbers(times.get(), times.get() + n), (numbers{-2, 0, 1, 2, 3, 4, 5}));
    std::vector<int> marks{merged->ncoe, sum->ncoe};
    for (int i = 0; i < n; ++i)
        marks.insert(marks.end(), {merged->brks[i].ncont, sum->brks[i].ncont, sum->brks[i].flg2});
    EXPECT_EQ(marks, (std::vector{3, 4, 2, -1, 1, 1, 1, 1, 2, -1, 2, 1, -1, 2, 2, -1, 4, 1, 1, 3, 1, 1, 4}));
    for (double t = -4; t < 8; t += 0.125)
        for (int d = 0; d < 4; ++d) {
            EXPECT_EQ(espl(merged.get(), t, d), espl(a.get(), t, d)) << t;
            EXPECT_EQ(espl(sum.get(), t, d), espl(a.get(), t, d) + espl(b.get(), t, d)) << t << " " << d;
        }
    EXPECT_TRUE(espl_add(a.get(), nullptr) == nullptr && espl_plttimes(nullptr, &n) == nullptr);
}

} // namespace
