// The hardcopy button. There are no printing options to choose from yet: it is a plain button.
#pragma once

#include "wi/wibutton.h"

// A push button that calls cbfunc(button, tag).
inline wi_obj *wi_hc_menu(wi_obj *parent, const char *label, wi_callback cbfunc, int tag)
{
    return wi_mk_button(parent, label, 0, cbfunc, tag);
}
