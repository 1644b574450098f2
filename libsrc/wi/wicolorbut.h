// The colour button: shows one of ten colours; a click steps to the next one that may be chosen.
#pragma once

#include "wi/wiobj.h"

#include <cstdint>

// White, black, red, blue, green, yellow, purple, brown, salmon, orange, in this order from index 0.
constexpr int wi_colorbut_colors = 10;

struct wi_colorbut {
    int enablearray[wi_colorbut_colors]; // 1 when the colour may be chosen
    int currentcolor;                    // index of the colour
    int editable;                        // 0: shown in the colour of the window, and a click does nothing
    int alldisabled;                     // 1 when no colour may be chosen; the same
    wi_callback chgcb;                   // called after a click changed the colour, or null
    int tag;
    std::intptr_t oldwindowproc; // the class's window procedure
};

// A white button on which all colours may be chosen. With a null parent the button gets a window of its own.
wi_obj *wi_mk_colorbut(wi_obj *wo_parent);

// Indices outside 0 to 9 mean the nearest one; an `ary` has ten elements, and a null one is a program error.

// Shows the colour, and allows it to be chosen.
void wi_colorbut_setcolor(wi_obj *wo, int indx);

// The index of the colour; -1 while the button is not editable.
int wi_colorbut_getcolor(wi_obj *wo);

// Allows (nonzero) or forbids to choose a colour, or each. A button whose colour is forbidden steps to the next one.
void wi_colorbut_colorstate(wi_obj *wo, int indx, int state);
void wi_colorbut_setary(wi_obj *wo, const int *ary);

// Which colours may be chosen, 0 or 1 for each.
void wi_colorbut_getary(wi_obj *wo, int *ary);

void wi_colorbut_editable(wi_obj *wo, int editable);

// `cb(wo, tag)` is called after each click that changed the colour; null turns it off.
void wi_colorbut_chng_cb(wi_obj *wo, wi_callback cb, int tag);
