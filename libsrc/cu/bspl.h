// Least-squares fit of a spline of chosen order to points (x, y), with chosen breakpoints and continuity at each.
//
// The fit minimises the sum of squares of y - spline(x) over all coefficients of the B-splines: it solves the normal
// equations N a = b, N = A'A, b = A'y, where row i of A holds the B-splines at x_i. The equations are not solved from
// their sums of products, which would lose as many digits again as the problem itself does. Instead points are gathered
// interval by interval and rotated, up to 128 at a time, into the triangle R of A = QR by Householder reflections; then
// N = R'R, and R a = Q'y is solved. The residual is that of an orthogonal method. Only differences of abscissae and
// knots are used, so abscissae of 1e9 + small do no harm. Memory grows with breakpoints, not with points.
// Golub, Van Loan: Matrix Computations, 5.2 and 5.3; Lawson, Hanson: Solving Least Squares Problems, chapter 27.
//
// A system is singular when a diagonal element of R is not above bspl_singular times the length of its column: the
// B-spline is a combination of those before it, as far as the points can tell.
#pragma once

#include "cu/espl.h"

constexpr int bspl_mxcoe = 10; // highest order
constexpr double bspl_singular = 1e-12;

// Fills breakpoint or point i and returns nonzero when it exists. Each is asked once per i, in increasing order.
using bspl_brk_callback = int (*)(int i, double *time, int *ncont);
using bspl_dat_callback = int (*)(int i, double *x, double *y);

// The fit's workspace. The arrays are blocks that belong to it.
struct bspltype {
    int ncoe;   // order k: degree + 1
    int nbrks;  // breakpoints accepted
    int nknots; // knots
    int nequ;   // B-splines: nknots - ncoe
    int ndat;   // points that exist
    int mxbrk;  // how many breakpoints are asked for
    int mxdat;  // and how many points
    bspl_brk_callback brk_cb;
    bspl_dat_callback dat_cb;
    double *knots; // nknots, not decreasing
    double *qary;  // N in band storage: nequ rows of 2k - 1, the diagonal at k - 1
    double *bary;  // b
    double *aary;  // a, the solution
    double *adif;  // difference table of bspl_dr()
    char *errstr;  // why a step failed
    _espl *espl;   // the result, as far as it is made
    double *rary;  // R by rows of k, the diagonal first: a band of 0 below and k - 1 above
    double *zary;  // Q'y
};

// Fits a spline of order ncoe, 1 ... 10. brk_cb is asked for i = 0 ... mxbrk - 1, then dat_cb for i = 0 ... mxdat - 1;
// a null callback has nothing to give.
//
// Breakpoint times increase, start above -1e30 and are finite. ncont of an interior breakpoint is -1 ... ncoe - 2; that
// of the first and last is only kept. Points outside the breakpoints are skipped, and so are those with an x or y that
// is not a finite number. The x of those that are used increase strictly.
// A new spline in memory, or null: then bspl_get_error() has the reason. Fewer than two breakpoints make the system
// singular; a result that no finite number can express is an unknown error.
_espl *bspl_fit(int ncoe, int mxdat, int mxbrk, bspl_dat_callback dat_cb, bspl_brk_callback brk_cb);

// Why the last bspl_fit() failed, or null. The caller owns the text from now on and frees it with jfree().
char *bspl_get_error();

// The steps of a fit in their order. 1, or 0 with errstr set.
int bspl_get_brks(bspltype *w);    // asks for breakpoints; w->espl has room for mxbrk
int bspl_mk_knots(bspltype *w);    // first and last breakpoint k times, others k - ncont - 1 times
int bspl_form_matrix(bspltype *w); // asks for points; makes rary, zary, and qary, bary from them
int bspl_solve(bspltype *w);       // makes aary
int bspl_to_pp(bspltype *w);       // fills the coefficients of w->espl

// Values of B-splines, after C. de Boor, Package for calculating with B-splines, SIAM J. Numer. Anal. 14 (1977).
// Arrays start at 0; t are the knots. Orders are at most bspl_mxcoe.

// The values at x of the jhigh B-splines of order jhigh that are nonzero on t[ileft] <= x < t[ileft + 1], in
// v[0 ... jhigh - 1]; B-spline ileft - jhigh + 1 is the first. index 1 starts anew. index 2 goes on from the call
// before, whose v it needs: at least one order further, and up to jhigh.
void bspl_vn(const double *t, int jhigh, int index, double x, int ileft, double *v);

// Difference table of the n coefficients a of B-splines of order ncoe: adif[d * n + i] is coefficient i of derivative
// d, d = 0 ... nder - 1, in B-splines of order ncoe - d. Entries i < d have no meaning.
void bspl_dr(const double *t, const double *a, int n, int ncoe, double *adif, int nder);

// Value and derivatives at x from that table: sval[0 ... nder - 1], nder <= ncoe. At a knot the interval to its right
// counts, at the last one that to its left. 1, or 0 and zeros when x is not in t[ncoe - 1] ... t[n].
int bspl_ev(const double *t, const double *adif, int n, int ncoe, double x, double *sval, int nder);
