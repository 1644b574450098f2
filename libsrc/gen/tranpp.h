// Polynomials by their Taylor coefficients: coe[0] + coe[1] * (t - t0) + coe[2] * (t - t0)^2 + ...
#pragma once

// Replaces the n coefficients about t0 by those of the same polynomial about t0 + dt, by repeated synthetic division.
// Nothing for a null pointer or n < 2.
void tranpp(double *coe, int n, double dt);
