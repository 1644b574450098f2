// The button: a push button, or a toggle button with a check mark.
#pragma once

#include "wi/wiobj.h"

#include <cstdint>

struct wi_button {
    char *label;                 // own copy
    int type;                    // 1 toggle, else push
    wi_callback cbfunc;          // or null
    int tag;                     // passed to cbfunc
    wi_obj *callbacktarget;      // the composite that gets the callback instead of the button, or null
    std::intptr_t oldwindowproc; // the class's window procedure
};

// `type` 1 makes a toggle button, anything else a push button. `cbfunc` (may be null) is called with `tag` on each
// click; a toggle has changed its state before. A null label is empty. With a null parent the button gets a window
// of its own.
wi_obj *wi_mk_button(wi_obj *wo_parent, const char *label, int type, wi_callback cbfunc, int tag);

// Replaces the caption.
void wi_button_label(wi_obj *wo, const char *label);

// A new copy of the caption; free with jfree.
char *wi_button_getlabel(wi_obj *wo);

// The check mark of a toggle button; a push button is a program error.
void wi_button_setstate(wi_obj *wo, int state);
int wi_button_getstate(wi_obj *wo);
