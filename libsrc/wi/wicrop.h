// The crop: one child inside margins.
#pragma once

#include "wi/wiobj.h"

struct wi_crop {
    double ctop, cbottom, cleft, cright; // fractions of the area cut away on each side
};

// The margins' absolute values are used. With a null parent the crop gets a window of its own.
wi_obj *wi_mk_crop(wi_obj *parent, double ctop, double cbottom, double cleft, double cright);
