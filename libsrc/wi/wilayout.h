// Arithmetic of the layout pass.
#pragma once

// extent x fraction, truncated toward zero. Held within a range in which sums of a few such numbers stay far from the
// limits of int; no window is that large.
inline int wi_fraction(int extent, double fraction)
{
    constexpr double limit = 1 << 20;
    const double product = extent * fraction;
    return static_cast<int>(product > limit ? limit : product > -limit ? product : -limit);
}
