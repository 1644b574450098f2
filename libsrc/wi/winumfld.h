// The numeric field: a number to edit, with a label to its left. Only characters of a number can be typed; Enter
// shows the number in the field's own format before the callback runs.
#pragma once

#include "wi/wiobj.h"

#include <cstdint>

struct wi_numfld {
    wi_window labelarea;
    wi_window editarea;
    double split;      // fraction of the width given to the label
    char *label;       // own copy, kept by wi_numfld_label only
    int ndec;          // decimals shown, see wi_format
    int editable;      // 1 when the user may type
    wi_callback cr_cb; // called on Enter, or null
    int cr_tag;
    std::intptr_t oldwindowproc; // the class's window procedure
    wi_obj *incdec;              // the increment/decrement field that owns this field and gets its callbacks, or null
};

// The new field shows 0. With a null parent it gets a window of its own. A null label is empty.
wi_obj *wi_mk_numfld(wi_obj *parent, const char *label, double split, int ndec);

void wi_numfld_putstr(wi_obj *wo, const char *str);

// The text, in a new buffer of 256 bytes with at most 255 characters; free with jfree.
char *wi_numfld_getstr(wi_obj *wo);

void wi_numfld_putval(wi_obj *wo, double val);

// The number at the start of the text, 0 when there is none.
double wi_numfld_getval(wi_obj *wo);

// Shows the present value with `ndec` decimals from now on. Checks no arguments.
void wi_numfld_decimals(wi_obj *wo, int ndec);

void wi_numfld_label(wi_obj *wo, const char *label);

// Takes effect at the next layout.
void wi_numfld_split(wi_obj *wo, double split);

// 0 keeps the user, not the program, from changing the text.
void wi_numfld_editable(wi_obj *wo, int editable);

// `cr_cb(wo, cr_tag)` is called when Enter is pressed in the field; null turns it off.
void wi_numfld_set_cb(wi_obj *wo, wi_callback cr_cb, int cr_tag);
