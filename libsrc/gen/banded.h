// Systems of linear equations whose coefficients lie in a band along the diagonal.
//
// A band of ml diagonals below the main one and mu above it is stored by rows of w = ml + mu + 1 numbers: element (r,
// c) is matrix[r * w + ml + c - r]. Places of the first and last rows that lie outside the matrix are not looked at.
//
//   ml = 1, mu = 2:   -    a00  a01  a02
//                     a10  a11  a12  a13
//                     a21  a22  a23  -
//                     a32  a33  -    -
#pragma once

// Solves the n equations matrix * solution = rhs: Gaussian elimination with row exchanges, after columns and rows were
// scaled by powers of two to largest elements near 1. Matrix and right-hand side stay; solution, which may be rhs
// itself, has room for n numbers. Time and memory grow with n, not with its square.
// 1 when solved. 0 when n < 1, a pointer is null, a bandwidth is negative, or the system is singular: a pivot of the
// scaled system is not above w * 2^-52, or a pivot or the solution is not finite. The solution is then
// untouched.
int solve_banded_system(const double *matrix, const double *rhs, double *solution, int n, int ml, int mu);
