// What the string field and the numeric field have in common: a label window and, made right after it so that screen
// readers name the one after the other, an edit window.
#pragma once

#include "wi/wiwindow.h"

// Gives the object its two windows. A null label is empty.
void wi_make_field(wi_obj *wo, const wi_obj *parent, const char *label, wi_window &labelarea, wi_window &editarea);

// Label and edit window side by side in `r`: the label has the fraction `split` of the width.
void wi_place_field(wi_window labelarea, wi_window editarea, double split, const wi_rect &r);

void wi_show_field(wi_window labelarea, wi_window editarea, bool on);

wi_focus_step wi_focus_window(wi_window window);
