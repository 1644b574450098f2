#include "wi/wiutil.h"

#include "dovsys/dovsys.h"

#include <algorithm>
#include <cstdio>

void wi_format(char *ss, double val, int ndec)
{
    constexpr std::size_t size = 40;
    const int decimals = std::min(ndec, 12);
    if (ndec > 0)
        std::snprintf(ss, size, val >= -1e14 && val <= 1e14 ? "%25.*f" : "%25.*e", decimals, val);
    else if (val > -1e12 && val < 1e12)
        std::snprintf(ss, size, "%lld", static_cast<long long>(val + (val > 0 ? 0.5 : -0.5)));
    else
        std::snprintf(ss, size, "%20.0e", val);
    c_ridedgews(ss);
}
