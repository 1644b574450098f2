#include "dovsys/bestint.h"

#include <algorithm>
#include <climits>
#include <cmath>

int bestint(double x)
{
    if (std::isnan(x))
        return 0;
    x += x > 0 ? 0.5 : -0.5;
    return static_cast<int>(std::clamp(x, static_cast<double>(INT_MIN), static_cast<double>(INT_MAX)));
}
