// Rounding to an int.
#pragma once

// Nearest integer, halves away from zero: 2.5 gives 3, -2.5 gives -3. A value beyond an int gives the nearest int, and
// not-a-number gives 0.
int bestint(double x);
