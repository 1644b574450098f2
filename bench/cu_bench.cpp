// cu_bench bspline-fit|bspline-eval REPS   Least-squares fits and evaluation of cubic splines, callbacks included.
//
// Prints lines `case ours n metric value` (tabs). Points are those of a noisy sum of two sines, irregular in x; they
// and the abscissae of the evaluation are made by the same generator as for the programs this is measured beside.

#include "cu/cu.h"
#include "dovsys/dovsys.h"
#include "measure.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

std::vector<double> xs;
std::vector<double> ys;
int intervals;

int point(int i, double *x, double *y)
{
    *x = xs[static_cast<std::size_t>(i)];
    *y = ys[static_cast<std::size_t>(i)];
    return 1;
}

int breakpoint(int i, double *time, int *ncont)
{
    *time = i == intervals ? xs.back() : xs.front() + (xs.back() - xs.front()) * i / intervals;
    *ncont = 2;
    return 1;
}

void make_points(int n)
{
    std::uint32_t random = 9;
    xs.resize(static_cast<std::size_t>(n));
    ys.resize(xs.size());
    for (std::size_t i = 0; i < xs.size(); ++i) {
        xs[i] = (static_cast<double>(i) + 0.8 * next_random(random)) / n * 100;
        ys[i] = std::sin(xs[i]) + 0.3 * std::sin(7.1 * xs[i]) + 0.1 * (next_random(random) - 0.5);
    }
}

_espl *fit(int breakpoints)
{
    intervals = breakpoints - 1;
    return bspl_fit(4, static_cast<int>(xs.size()), breakpoints, point, breakpoint);
}

double rms(_espl *e)
{
    double sum = 0;
    for (std::size_t i = 0; i < xs.size(); ++i)
        sum += std::pow(ys[i] - espl(e, xs[i], 0), 2);
    return std::sqrt(sum / static_cast<double>(xs.size()));
}

template <typename work>
double seconds(work &&run)
{
    const auto start = std::chrono::steady_clock::now();
    run();
    return seconds_since(start);
}

void line(const char *name, const std::string &n, const char *metric, double value)
{
    std::printf("%s\tours\t%s\t%s\t%.9g\n", name, n.c_str(), metric, value);
}

void measure_fits(int reps)
{
    for (const int n : {100000, 1000000}) {
        make_points(n);
        for (const int breakpoints : {10, 100, 1000}) {
            const std::string size = std::to_string(n) + "x" + std::to_string(breakpoints);
            _espl *fitted = fit(breakpoints);
            line("bspline-fit", size, "rms", rms(fitted));
            for (int r = 0; r < reps; ++r) {
                espl_free(fitted);
                line("bspline-fit", size, "ms", 1e3 * seconds([&] { fitted = fit(breakpoints); }));
            }
            espl_free(fitted);
        }
    }
}

void measure_evaluations(int reps)
{
    make_points(100000);
    std::uint32_t random = 21;
    std::vector<double> abscissae(1000000);
    std::generate(abscissae.begin(), abscissae.end(),
                  [&] { return std::clamp(100 * next_random(random), xs.front(), xs.back()); });
    std::vector<double> values(abscissae.size());
    for (const char *order : {"random", "increasing"}) {
        for (const int breakpoints : {100, 1000}) {
            _espl *fitted = fit(breakpoints);
            const auto evaluate = [&] {
                std::transform(abscissae.begin(), abscissae.end(), values.begin(),
                               [fitted](double x) { return espl(fitted, x, 0); });
            };
            evaluate();
            for (int r = 0; r < reps; ++r)
                line("bspline-eval", order + ("x" + std::to_string(breakpoints)), "ns", 1e3 * seconds(evaluate));
            espl_free(fitted);
        }
        std::sort(abscissae.begin(), abscissae.end());
    }
}

} // namespace

int main(int argc, char **argv)
{
    const std::string_view name = argc > 1 ? argv[1] : "";
    const int reps = argc > 2 ? std::atoi(argv[2]) : 3;
    if (name == "bspline-fit")
        measure_fits(reps);
    else if (name == "bspline-eval")
        measure_evaluations(reps);
    else
        return 2;
    return 0;
}
