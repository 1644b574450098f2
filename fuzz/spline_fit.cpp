// Fits of any points and breakpoints: a spline with finite coefficients, or a reason.

#include "fuzz.h"

#include "cu/cu.h"
#include "dovsys/dovsys.h"

#include <cmath>
#include <cstring>
#include <vector>

namespace {

std::vector<double> numbers; // pairs: breakpoints first, then points
int breaks;

double number(int i)
{
    return numbers[static_cast<std::size_t>(i)];
}

int breakpoint(int i, double *time, int *ncont)
{
    *time = number(2 * i);
    const double second = number(2 * i + 1);
    std::memcpy(ncont, &second, sizeof *ncont);
    *ncont %= 12;
    return *time != 0 ? 1 : 0;
}

int point(int i, double *x, double *y)
{
    *x = number(2 * (breaks + i));
    *y = number(2 * (breaks + i) + 1);
    return *y != 0 ? 1 : 0;
}

} // namespace

// The order, how many breakpoints, then the pairs.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size < 2 + sizeof(double))
        return 0;
    numbers.assign((size - 2) / sizeof(double), 0);
    std::memcpy(numbers.data(), data + 2, numbers.size() * sizeof(double));
    const int pairs = static_cast<int>(numbers.size() / 2);
    breaks = std::min<int>(data[1], pairs);
    _espl *e = bspl_fit(data[0] % 13 - 1, pairs - breaks, breaks, point, breakpoint);
    char *reason = bspl_get_error();
    require((e == nullptr) == (reason != nullptr));
    for (int i = 0; e != nullptr && i < e->nbrks; ++i)
        for (int d = 0; d < e->ncoe; ++d)
            require(std::isfinite(e->brks[i].coe[d]) && espl_error() == espl_ok);
    jfree(reason);
    espl_free(e);
    return 0;
}
