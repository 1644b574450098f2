// The button array: a grid of push and toggle buttons that are addressed by name.
#pragma once

#include "wi/wiobj.h"

struct wi_butelm {
    char *label;    // own copy of the name
    int type;       // 1 toggle, 0 push
    wi_obj *button; // null in a cell left blank
};

struct wi_butary {
    int nrows, ncols;
    int numbuttons;         // cells used so far
    int maxbuttons;         // cells there are
    wi_obj *rectanglearray; // holds the buttons; it is what lies in the parent
    wi_butelm *ary;         // the cells, row by row
    wi_obj *callbacktarget; // the toggle array that gets the callbacks instead, or null
};

// An empty grid, filled row by row. A count of rows or columns below 1 makes an array that takes no button. With a null
// parent the array gets a window of its own.
wi_obj *wi_mk_butary(wi_obj *parent, int nrows, int ncols);

// Fills the next cell with a button named and labelled `name` (null is empty): a toggle when `type` is 1, else a push
// button. `cbfunc` (may be null) is called with the array and `tag`. The array's help key becomes that of its last
// button. A full array is a program error.
void wi_butary_button(wi_obj *wo, const char *name, int type, wi_callback cbfunc, int tag);

// Leaves the next cell empty. A full array is a program error.
void wi_butary_blank(wi_obj *wo);

// Sets every toggle of that name, and reads the first. Names are compared with case; an unknown name is a program
// error, and so is that of a push button.
void wi_butary_setstate(wi_obj *wo, const char *name, int state);
int wi_butary_getstate(wi_obj *wo, const char *name);
