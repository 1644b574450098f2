// The rectangle array: a grid of equal cells, filled row by row in order of creation.
#pragma once

#include "wi/wiobj.h"

struct wi_rectary {
    wi_obj **children; // nrows x ncols, row by row; null where nothing was placed yet
    int numchildren;
    int maxchildren;
    int nrows, ncols;
    double xcrop, ycrop; // fraction of a cell's width and height left empty on each side
};

// Crops must be at least 0 and below 1. A count of rows or columns below 1 makes an array that takes no child.
// With a null parent the array gets a window of its own.
wi_obj *wi_mk_rectary(wi_obj *parent, int nrows, int ncols, double xcrop, double ycrop);
