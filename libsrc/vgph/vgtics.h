// Axis tics: a round increment for the labels of an axis, the label values that fall on it, and their texts.
#pragma once

#include <array>

constexpr int vg_mxlabs = 50;     // label values of an axis
constexpr int vg_label_size = 32; // bytes of a label's text, with its zero
constexpr int vg_axiserr_size = 100;

// The multipliers that are weighed, in this order. 10 becomes 1 with the next power of ten.
constexpr std::array<int, 4> type_codes = {1, 2, 5, 10};

// One axis. cal_inc() reads lim0 and lim1 and fills what is marked; the rest is for drawing.
struct _vgaxisparm {
    double lim0, lim1;             // values at the start and the end; lim0 > lim1 is a reversed axis
    int nospan;                    // filled: 1 when the axis has no usable span and one label
    int inctype;                   // filled: the multiplier 1, 2 or 5
    int nlabs;                     // filled: label values
    double labvals[vg_mxlabs];     // filled: in the order of the axis
    double incval;                 // filled: increment, inctype * 10^inctens; negative on a reversed axis
    int incsign;                   // filled: 1 on a reversed axis
    int inctens;                   // filled: power of ten
    int axiserr;                   // filled: 1 when the numbers do not allow labels
    char errstr[vg_axiserr_size];  // filled: why, else empty
    float x0, y0, alen, min_minor; // place, length, least distance of minor tics
    int dolabs, reverse, r90, doendlabs;
    double lim0j, lim1j; // filled: the limits, each moved outward by one in the 13th decimal
    double scale;
};

// Chooses increment and labels for about nreqlabs labels; below 2 counts as 2, above 45 as 45. Of the increments 1, 2,
// 5 and 10 times the power of ten below span / nreqlabs it takes the one whose number of labels is nearest, the
// smallest of those alike; one with fewer than 2 labels only when that is the first.
//
// Equal limits, limits that are no numbers and a span or increment that no finite number can express make an axis of
// one label at lim0, and lim1 becomes lim0. A span below 1e-11 of the middle value sets axiserr and leaves one label at
// the middle. Nothing for a null axis.
void cal_inc(_vgaxisparm *a, int nreqlabs);

// The multiples of inc between x0 and x1, both included, from x0 on; inc has the sign of x1 - x0, or there are none but
// in the shortest ranges. Zero is never negative. At most vg_mxlabs are stored, and their number is returned. The
// middle alone for inc = 0; none where multiples are so large that numbers do not tell them apart.
int cal_tics(double x0, double x1, double inc, double *ticary);

// Splits val into frac * mult with mult = 10^iten and 1 <= |frac| < 10, by repeated multiplication or division by ten.
// 0, or 1 with frac = val, mult = 1 and iten = 0 for zero and for what is no finite number.
int getfm(double val, double *frac, double *mult, int *iten);

// val moved by one in the n-th decimal of its frac, upward for dir >= 0 and else downward. Zero moves by 10^-n.
double adj_precision(double val, int n, int dir);

// The text of label value val on an axis after cal_inc(): as many decimals as the increment has, and an exponent where
// that would be long. Without blanks at its edges.
void vg_label_text(const _vgaxisparm *a, double val, char text[vg_label_size]);

// The texts of a limit beside the end of its axis, and of the one label of an axis without span; both have leading
// blanks up to their width of 13 and 15.
void vg_end_label_text(double val, char text[vg_label_size]);
void vg_nospan_label_text(double val, char text[vg_label_size]);
