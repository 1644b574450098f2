// vgtics_bench tics REPS   Increments and labels of axes with random limits, about 10 labels asked for.
//
// Prints lines `tics ours random metric value` (tabs): axes a second, positions alone and with the labels' texts.

#include "measure.h"
#include "vgph/vgtics.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

namespace {

std::vector<std::pair<double, double>> random_limits()
{
    std::uint32_t state = 3;
    std::vector<std::pair<double, double>> limits(20000);
    for (auto &[low, high] : limits) {
        low = (next_random(state) - 0.5) * 200;
        high = low + std::pow(10.0, next_random(state) * 8 - 4);
    }
    return limits;
}

int label_all(const _vgaxisparm &axis)
{
    int characters = 0;
    char text[vg_label_size];
    for (int i = 0; i < axis.nlabs; ++i) {
        vg_label_text(&axis, axis.labvals[i], text);
        characters += text[0];
    }
    return characters;
}

} // namespace

int main(int argc, char **argv)
{
    const int reps = argc > 2 ? std::atoi(argv[2]) : 3;
    const auto limits = random_limits();
    _vgaxisparm axis{};
    volatile int kept = 0;
    for (const bool labels : {false, true}) {
        for (int r = -1; r < reps; ++r) { // the first warms up
            const auto start = std::chrono::steady_clock::now();
            for (const auto &[low, high] : limits) {
                axis.lim0 = low;
                axis.lim1 = high;
                cal_inc(&axis, 10);
                kept = labels ? label_all(axis) : axis.nlabs;
            }
            const double taken = seconds_since(start);
            if (r >= 0)
                std::printf("tics\tours\trandom\t%s\t%.9g\n", labels ? "axes/s-labels" : "axes/s",
                            static_cast<double>(limits.size()) / taken);
        }
    }
    return kept < 0 ? 1 : 0;
}
