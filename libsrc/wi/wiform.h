// The form: an area with coordinates of its own, in which children are placed by proportion.
#pragma once

#include "wi/wiobj.h"

struct wi_form {
    double xsize, ysize; // the extent of the form's coordinates
    wi_obj *last;        // the area made last
};

// An area of a form; the areas are chained in order of creation, the first being the form's child.
struct wi_null {
    double x0relative, y0relative; // left and top, as fractions of the form
    double x1relative, y1relative; // right and bottom
    wi_obj *next;
};

// Remembers a copy of `label` as the title of the next form that is made without a parent.
void wi_set_window_name(const char *label);

// A form of the given extent, which must be positive. With a null parent it gets a window of its own.
wi_obj *wi_mk_form(wi_obj *parent, double xsize, double ysize);

// A new area of the form from (x0, y0), the top left, to (x1, y1), in form units within the form's extent.
// It takes one child. x0 may be greater than x1: the area then starts at x0 and is |x1 - x0| wide.
wi_obj *wi_form_parent(wi_obj *wo, double x0, double y0, double x1, double y1);

// 1 when lo <= v <= hi, else 0.
int testcoordinates(double v, double lo, double hi);
