// The string field: one line of text to edit, with a label to its left.
#pragma once

#include "wi/wiobj.h"

#include <cstdint>

struct wi_strfld {
    wi_window labelarea;
    wi_window editarea;
    double split;      // fraction of the width given to the label
    char *label;       // own copy, kept by wi_strfld_label only
    int editable;      // 1 when the user may type
    wi_callback cr_cb; // called on Enter, or null
    int cr_tag;
    std::intptr_t oldeditwindowproc;   // the class's window procedure
    std::intptr_t oldstaticwindowproc; // reserved
    wi_obj *callbacktarget;            // the composite that gets callbacks and help requests instead, or null
};

// With a null parent the field gets a window of its own. A null label is empty.
wi_obj *wi_mk_strfld(wi_obj *parent, const char *label, double split);

void wi_strfld_putstr(wi_obj *wo, const char *str);

// The text, in a new buffer of 256 bytes with at most 255 characters; free with jfree.
char *wi_strfld_getstr(wi_obj *wo);

void wi_strfld_label(wi_obj *wo, const char *label);

// Takes effect at the next layout.
void wi_strfld_split(wi_obj *wo, double split);

// 0 keeps the user, not the program, from changing the text.
void wi_strfld_editable(wi_obj *wo, int editable);

// `cr_cb(wo, cr_tag)` is called when Enter is pressed in the field; null turns it off.
void wi_strfld_set_cb(wi_obj *wo, wi_callback cr_cb, int cr_tag);
