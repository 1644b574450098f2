// mcvt_all   Compares the conversions of all 2^32 patterns of a 4-byte real with arithmetic; some minutes. It is no
// test of the suite, which looks at a sample.

#include "fileio/mcvt.h"
#include "mcvt_reference.h"

#include <cinttypes>
#include <cstdio>
#include <cstring>
#include <vector>

namespace {

std::uint64_t differences(int from, int to)
{
    constexpr std::uint64_t block = 1 << 16;
    std::vector<std::uint32_t> values(block);
    std::uint64_t wrong = 0;
    setmcvt(from, to);
    for (std::uint64_t first = 0; first < power(32); first += block) {
        for (std::uint64_t i = 0; i < block; ++i)
            values[i] = static_cast<std::uint32_t>(first + i);
        mcvt_run_f4(values.data(), block);
        for (std::uint64_t i = 0; i < block; ++i) {
            const auto pattern = static_cast<std::uint32_t>(first + i);
            std::array<unsigned char, 4> expected;
            std::memcpy(expected.data(), &pattern, 4);
            convert_by_arithmetic(from, to, 4, expected.data());
            wrong += std::memcmp(expected.data(), &values[i], 4) != 0;
        }
    }
    return wrong;
}

} // namespace

int main()
{
    std::uint64_t wrong = 0;
    for (const auto &[from, to] : {std::array{1, 3}, {1, 4}, {3, 1}, {4, 1}, {3, 4}, {5, 2}, {2, 5}}) {
        const std::uint64_t here = differences(from, to);
        std::printf("%d to %d: %" PRIu64 " of 4294967296 differ\n", from, to, here);
        std::fflush(stdout);
        wrong += here;
    }
    return wrong != 0;
}
