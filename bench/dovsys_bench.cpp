// The tracked allocator against the standard one: the same requests in the same order, so that the ratio of two lines
// is the cost of tracking.

#include "dovsys/internal.h"
#include "dovsys/jmalloc.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <random>
#include <vector>

namespace {

struct standard {
    static void *get(int n) { return std::calloc(1, static_cast<std::size_t>(n)); }
    static void put(void *p) { std::free(p); }
};

struct tracked {
    static void *get(int n) { return jmalloc(n); }
    static void put(void *p) { jfree(p); }
};

void set_accounting(bool on)
{
    jmalloc_nomm_reset();
    if (on)
        setenv("JUSED", "1", 1);
    else
        unsetenv("JUSED");
    getjenv();
}

// One block at a time.
template <typename allocator, bool accounting>
void pairs(benchmark::State &state)
{
    set_accounting(accounting);
    const int n = static_cast<int>(state.range(0));
    for (auto _ : state) {
        void *volatile p = allocator::get(n); // volatile, or the compiler removes the pair
        allocator::put(p);
    }
}

// Many live blocks; each step frees one and allocates one, in shuffled order.
template <typename allocator, bool accounting>
void live_blocks(benchmark::State &state)
{
    set_accounting(accounting);
    std::mt19937 random(2385);
    std::vector<void *> blocks(static_cast<std::size_t>(state.range(0)));
    std::vector<std::size_t> order(blocks.size());
    std::iota(order.begin(), order.end(), 0U);
    std::shuffle(order.begin(), order.end(), random);
    std::vector<int> sizes(4096);
    std::generate(sizes.begin(), sizes.end(), [&] { return 16 + static_cast<int>(random() % 112); });
    std::generate(blocks.begin(), blocks.end(), [&] { return allocator::get(16 + static_cast<int>(random() % 112)); });
    std::size_t step = 0;
    for (auto _ : state) {
        void *&block = blocks[order[step % order.size()]];
        allocator::put(block);
        block = allocator::get(sizes[step % sizes.size()]);
        ++step;
    }
    std::for_each(blocks.begin(), blocks.end(), allocator::put);
    set_accounting(false);
}

// All blocks allocated, then all freed in shuffled order.
template <typename allocator, bool accounting>
void fill_and_empty(benchmark::State &state)
{
    std::vector<void *> blocks(static_cast<std::size_t>(state.range(0)));
    std::mt19937 random(2385);
    for (auto _ : state) {
        set_accounting(accounting);
        std::generate(blocks.begin(), blocks.end(), [] { return allocator::get(48); });
        state.PauseTiming();
        std::shuffle(blocks.begin(), blocks.end(), random);
        state.ResumeTiming();
        std::for_each(blocks.begin(), blocks.end(), allocator::put);
    }
    set_accounting(false);
}

BENCHMARK(pairs<standard, false>)->Arg(24)->Arg(400);
BENCHMARK(pairs<tracked, false>)->Arg(24)->Arg(400);
BENCHMARK(live_blocks<standard, false>)->Arg(100000);
BENCHMARK(live_blocks<tracked, false>)->Arg(100000);
BENCHMARK(live_blocks<tracked, true>)->Arg(100000);
BENCHMARK(fill_and_empty<standard, false>)->Arg(100000);
BENCHMARK(fill_and_empty<tracked, false>)->Arg(100000);
BENCHMARK(fill_and_empty<tracked, true>)->Arg(100000);

} // namespace
