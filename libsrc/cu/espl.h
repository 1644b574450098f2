// A spline as pieces of Taylor polynomials: evaluation, derivatives, integrals, sums.
//
// Piece i is valid from breakpoint i to the next:
//   value(t) = coe[0] + coe[1] * (t - time) + ... + coe[ncoe - 1] * (t - time)^(ncoe - 1)
// Before the first breakpoint the first piece continues, from the last one on the last piece does: the piece between
// the last two breakpoints. The last breakpoint holds that same polynomial about its own time. At a breakpoint the
// piece that starts there counts.
//
// A spline is held in memory, or read piece by piece from an open spline file as it is evaluated. The operations that
// change coefficients need it in memory; espl_copy() brings it there.
//
// Codes are 1 for success and negative for failure; espl_error() has that of the last call.
#pragma once

struct _splfile; // an open spline file; who opens it knows it

constexpr int espl_ok = 1;
constexpr int espl_no_memory = -3;
constexpr int espl_bad_arg = -13;    // null, a bad derivative order, or a spline on file where one in memory is needed
constexpr int espl_few_breaks = -16; // fewer than two breakpoints, or times that are no numbers

struct _brkpoint {
    double time; // abscissa
    int ncont;   // highest derivative that is continuous here; 0 the value only, -1 none
    int flg2;    // kept with the breakpoint, for its owner
    double *coe; // ncoe coefficients; each array is a block of its own and belongs to the spline
};

// Reads breakpoint i of a spline file into brk; the coefficients only when coe is not null. 1, or the file's error
// code.
using espl_reader = int (*)(_splfile *fp, int i, _brkpoint *brk);

struct _espl {
    int mode;            // 0 in memory, 1 on file
    _splfile *fp;        // mode 1: the file, which belongs to the caller and stays open while the spline is used
    double t0, t1;       // bounds: first and last breakpoint
    int nbrks;           // breakpoints
    int ncoe;            // coefficients of a piece: degree + 1
    int ibrk;            // current piece, the one that was evaluated last
    double tbrk0, tbrk1; // its start and end
    double *coe0, *coe1; // coefficients of it and of the next; mode 0: those of the breakpoints, mode 1: blocks
    _brkpoint *brks;     // mode 0: nbrks breakpoints; a block
    espl_reader reader;  // mode 1: how the file is read
};

// Makers. Each returns a new spline, which the caller frees, or null with the code set.

// In memory: mxbrk breakpoints of ncoe coefficients, all zero. Null when either is below 1, or when there is no memory.
// The caller fills the breakpoints, times increasing, and calls espl_rehash().
_espl *espl_init_for_memory(int mxbrk, int ncoe);

// On file, with the first piece read. Null when nbrks < 2, when ncoe < 1 (both espl_few_breaks), or on an error of the
// file. A file that is opened as a spline by name or by handle: see the spline file's own module, which calls this.
_espl *espl_init_for_reader(_splfile *fp, espl_reader reader, int nbrks, int ncoe);

// The same spline in memory, wherever e is.
_espl *espl_copy(const _espl *e);

// e's function with the breakpoints of both, each time once. A breakpoint of e keeps its ncont and flg2, one that only
// `other` has gets ncont = ncoe - 1, since nothing breaks there, and the other's flg2. In memory.
_espl *espl_mergebrks(const _espl *e, const _espl *other);

// The sum of both functions on the breakpoints of both, of the larger order; each addend continues beyond its own
// bounds. ncont is the lower of the two, flg2 that of a where it has the breakpoint. In memory. espl_few_breaks when
// times that are out of order leave the two without common breakpoints.
_espl *espl_add(const _espl *a, const _espl *b);

void espl_free(_espl *e); // null is ignored

// Derivative ider (0 the function itself) at tme. 0 with espl_bad_arg for a null spline or ider < 0; 0 and success for
// ider >= ncoe. Also 0 with espl_few_breaks when a spline in memory has no piece for tme, and then
// "\nInternal problem in espl.\n" is printed; with the file's code when a piece cannot be read.
// The current piece is tried first, others are found by bisection.
double espl(_espl *e, double tme, int ider);

// Makes bounds and current piece those of the breakpoints; needed after these were changed by hand. Returns the code:
// espl_few_breaks for fewer than two.
int espl_rehash(_espl *e);

// Bounds. Null results are not stored.
int espl_bound(const _espl *e, double *t0, double *t1);

// New array of the breakpoint times, *n of them, for marks on a plot; the caller frees it with jfree(). Null and *n = 0
// with the code set when they cannot be had.
double *espl_plttimes(const _espl *e, int *n);

// Change a spline in memory and return the code.
int espl_mult(_espl *e, double fact); // fact * function
int espl_plus(_espl *e, double fact); // function + fact

// The antiderivative with value f0 at t0; order and every ncont become one higher.
int espl_integrate(_espl *e, double f0);

// The derivative; order and every ncont become one lower, but not below 1 and -1. A spline of order 1 becomes zero.
int espl_diff(_espl *e);

// The code of the last call; the second sets it, for modules that make splines, and returns it.
int espl_error();
int espl_set_error(int code);
