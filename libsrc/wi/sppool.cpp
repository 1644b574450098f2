#include "wi/sppool.h"

#include "dovsys/dovsys.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstddef>

namespace {

constexpr int least_kept = 512;                         // elements; smaller blocks the allocator keeps by itself
constexpr std::size_t most_kept = std::size_t{1} << 25; // elements in all blocks together: 256 MB

constexpr std::size_t most_elements = INT_MAX / sizeof(double); // the allocator counts bytes by an int

struct kept_block {
    double *ary;
    std::size_t size; // elements
};

// The block that came last stands first; empty places are at the end.
std::array<kept_block, 8> kept{};

using place = decltype(kept)::iterator;

void remove(place block)
{
    *std::move(block + 1, kept.end(), block) = {};
}

std::size_t total()
{
    std::size_t sum = 0;
    for (const kept_block &block : kept)
        sum += block.size;
    return sum;
}

void free_last()
{
    const auto last = std::find_if(kept.rbegin(), kept.rend(), [](const kept_block &b) { return b.ary != nullptr; });
    jfree(last->ary);
    *last = {};
}

double *make(std::size_t size)
{
    return size <= most_elements ? static_cast<double *>(jjmalloc(static_cast<int>(size * sizeof(double)))) : nullptr;
}

} // namespace

double *sp_pool_take(int npts)
{
    const auto size = static_cast<std::size_t>(npts);
    // A block of twice the size would keep memory from others for as long as the value lives.
    const auto fits = [=](const kept_block &b) { return b.size >= size && b.size / 2 <= size; };
    const place block = npts < least_kept ? kept.end() : std::find_if(kept.begin(), kept.end(), fits);
    if (block == kept.end())
        return make(size);
    double *ary = block->ary;
    remove(block);
    return ary;
}

void sp_pool_give(double *ary, int npts)
{
    const auto size = static_cast<std::size_t>(std::max(npts, 0));
    if (ary == nullptr || npts < least_kept || size > most_kept || jused() > 0) {
        jfree(ary);
        return;
    }
    while (kept.back().ary != nullptr || total() + size > most_kept)
        free_last();
    std::move_backward(kept.begin(), kept.end() - 1, kept.end());
    kept.front() = {ary, size};
}

void sp_pool_flush()
{
    for (const kept_block &block : kept)
        jfree(block.ary);
    kept = {};
}
