// The double rectangle: two children side by side or one above the other.
#pragma once

#include "wi/wiobj.h"

struct wi_drect {
    int direction;  // 0 top and bottom, 1 left and right
    float sizefrac; // the first child's fraction of the height or width
    int nchild;     // children placed so far, 0 to 2
    wi_obj *child2; // the second child; the first is the object's `child`
};

// `dir` must be 0 or 1 and `split` between 0 and 1, both excluded. With a null parent the double rectangle
// gets a window of its own.
wi_obj *wi_mk_drect(wi_obj *parent, int dir, double split);

// Moves the split; it takes effect at the next layout.
void wi_drect_split(wi_obj *wo, double split);
