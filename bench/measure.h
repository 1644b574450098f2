// What the benchmarks share.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <vector>

inline double seconds_since(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Seconds for one call, `reps` samples, each over so many calls that it takes about `target` seconds; what is done to
// find out how many warms up.
template <class Call>
std::vector<double> measure(int reps, double target, Call call)
{
    const auto sample = [&](long calls) {
        const auto start = std::chrono::steady_clock::now();
        for (long i = 0; i < calls; ++i)
            call();
        return seconds_since(start);
    };
    long calls = 1;
    double taken = sample(calls);
    while (taken < target / 4) {
        calls *= 4;
        taken = sample(calls);
    }
    calls = std::max(1L, static_cast<long>(static_cast<double>(calls) * target / taken));
    std::vector<double> seconds(static_cast<std::size_t>(std::max(reps, 0)));
    std::generate(seconds.begin(), seconds.end(), [&] { return sample(calls) / static_cast<double>(calls); });
    return seconds;
}

// The next of the same random numbers everywhere, 0 up to 1; state is the seed at first.
inline double next_random(std::uint32_t &state)
{
    state = state * 1664525U + 1013904223U;
    return state / 4294967296.0;
}
