// plot_bench CASE REPS   Drawing of 40 curves of 100,000 points each as SVG: noise on a wave, X in order.
//
// Prints lines `plot ours 40x100000 metric value` (tabs): points a second, and the bytes of the picture.

#include "measure.h"
#include "wi/sp.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int curves = sp_most_curves;
constexpr int points = 100000;

void fill(sp_config &config)
{
    std::uint32_t state = 5;
    config.ncurves = curves;
    for (int i = 0; i < curves; ++i) {
        sp_curve &curve = config.curves[i];
        curve.xval = sp_mk_array(points);
        curve.yval = sp_mk_array(points);
        curve.icolor = 1 + i % 14;
        for (int k = 0; k < points; ++k) {
            curve.xval->ary[k] = k;
            curve.yval->ary[k] = std::sin(k * 1e-4 + i) + next_random(state) * 0.1;
        }
    }
    config.xaxes[0].f1 = points;
    config.yaxes[0].f0 = -1.2;
    config.yaxes[0].f1 = 1.2;
}

} // namespace

int main(int argc, char **argv)
{
    const int reps = argc > 2 ? std::atoi(argv[2]) : 3;
    sp_context *context = sp_init_context(nullptr, "bench", nullptr);
    fill(context->config);
    for (int r = -1; r < reps; ++r) { // the first warms up
        const auto start = std::chrono::steady_clock::now();
        const std::size_t bytes = sp_plot_svg(context).size();
        const double taken = seconds_since(start);
        if (r >= 0)
            std::printf("plot\tours\t%dx%d\tpoints/s\t%.9g\nplot\tours\t%dx%d\tbytes\t%zu\n", curves, points,
                        curves * (points / taken), curves, points, bytes);
    }
    sp_free_context(context);
    return 0;
}
