// Functions of grids, stored row after row.
#include "wi/spargs.h"
#include "wi/spworkers.h"

#include "dovsys/dovsys.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace {

// Fills in each element's column or row from 1. Both functions report by the first one's name.
template <class Index>
sp_value *grid_indices(const sp_call &call, Index index)
{
    const int nx = bestint(sp_arg_number(call, 0));
    const int ny = bestint(sp_arg_number(call, 1));
    if (nx < 1 || ny < 1)
        return sp_mk_error("Bad argument in X2DINDX.");
    sp_value *result = sp_try_array(static_cast<std::size_t>(nx) * static_cast<std::size_t>(ny));
    if (result->type == sp_error)
        return result;
    double *out = result->ary;
    for (int j = 1; j <= ny; ++j)
        for (int i = 1; i <= nx; ++i)
            *out++ = index(i, j);
    return result;
}

constexpr std::size_t block = 512;

// Which of n points are greater than their eight neighbours, 1 or 0. Rows have nx points.
SP_WIDE void flag_peaks(const double *points, std::size_t nx, std::uint8_t *flags, std::size_t n)
{
    const double *row = points - 1; // each from the point's left neighbour on
    const double *above = row - nx;
    const double *below = row + nx;
    const auto tops = [](double x, double a, double b) { return (x > a ? 1 : 0) & (x > b ? 1 : 0); };
    for (std::size_t i = 0; i < n; ++i) {
        const double x = row[i + 1];
        flags[i] = static_cast<std::uint8_t>(tops(x, row[i], row[i + 2]) & tops(x, above[i + 1], below[i + 1]) &
                                             tops(x, above[i], above[i + 2]) & tops(x, below[i], below[i + 2]));
    }
}

// 64 flags as bits.
std::uint64_t bits_of(const std::uint8_t *flags)
{
    std::uint64_t bits = 0;
    for (unsigned i = 0; i < 8; ++i) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, flags + 8 * static_cast<std::size_t>(i), sizeof eight);
        bits |= (eight * 0x0102040810204080U >> 56) << 8 * i; // gathers the lowest bits of the bytes
    }
    return bits;
}

// Puts down the peaks' positions from 1; returns their end.
double *find_peaks(const double *data, std::size_t nx, std::size_t ny, double *out)
{
    std::array<std::uint8_t, block> flags{};
    for (std::size_t j = 1; j + 1 < ny; ++j)
        for (std::size_t i = 1; i + 1 < nx; i += block) {
            const std::size_t first = j * nx + i;
            const std::size_t n = std::min(block, nx - 1 - i);
            flag_peaks(data + first, nx, flags.data(), n);
            std::fill(flags.begin() + static_cast<std::ptrdiff_t>(n), flags.end(), std::uint8_t{0});
            for (std::size_t k = 0; k < n; k += 64)
                for (std::uint64_t bits = bits_of(flags.data() + k); bits != 0; bits &= bits - 1)
                    *out++ = static_cast<double>(first + k + static_cast<std::size_t>(std::countr_zero(bits)) + 1);
        }
    return out;
}

} // namespace

sp_value *spfunc_x2dindx(const sp_call &call)
{
    return grid_indices(call, [](int i, int /*j*/) { return i; });
}

sp_value *spfunc_y2dindx(const sp_call &call)
{
    return grid_indices(call, [](int /*i*/, int j) { return j; });
}

sp_value *spfunc_find2dpks(const sp_call &call)
{
    const sp_elements data(*call.args[0]);
    const int columns = bestint(sp_arg_number(call, 1));
    if (columns < 1)
        return sp_mk_error("Bad argument in FIND2DPKS.");
    const auto nx = static_cast<std::size_t>(columns);
    const std::size_t ny = data.size() / nx;
    if (nx < 3 || ny < 3)
        return sp_mk_error("Not enough data to find peaks in FIND2DPKS.");
    // Of any four points that touch one at most is a peak.
    sp_value *result = sp_mk_elements(((nx - 1) / 2) * ((ny - 1) / 2));
    const double *end = find_peaks(data.data(), nx, ny, result->ary);
    if (end != result->ary)
        return sp_cut_result(result, static_cast<std::size_t>(end - result->ary));
    sp_free_value(result);
    return sp_mk_error("No peaks found in FIND2DPKS.");
}
