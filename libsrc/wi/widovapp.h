// The application window: the top-level window of an interface.
#pragma once

#include "wi/wiobj.h"

struct HFONT__;

struct wi_dovapp {
    char *title;         // own copy
    int quit_enabled;    // 0: the close box and Alt+F4 do nothing
    wi_callback quit_cb; // called instead of closing, or null
    int quit_tag;
    wi_window focus; // the control that had the keyboard when the window was left, or null
    HFONT__ *font;   // of all its controls; shared
};

// A new hidden application window titled `label` (copied), which must be given. `parent` is not used: the
// window is top-level.
wi_obj *wi_mk_dovapp(wi_obj *parent, const char *label);

// Sets what closing the window does: nothing when `enable` is 0; else `cbfunc(wo, tag)` is called and the
// window stays, or, without a callback, the window is destroyed, which ends the program. `name` is not used.
void wi_dovapp_quit(wi_obj *wo, int enable, const char *name, wi_callback cbfunc, int tag);

// Replaces the title.
void wi_dovapp_label(wi_obj *wo, const char *label);
