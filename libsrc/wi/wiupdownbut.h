// The up/down pair: a "+" and a "-" button side by side.
#pragma once

#include "wi/wiobj.h"

struct wi_updownbut {
    wi_callback upbut_cb, dnbut_cb;
    int upbut_tag, dnbut_tag;
    wi_obj *upbut, *downbut;
};

// Each callback (may be null) is called with the pair and its tag. With a null parent the pair gets a window of its
// own. Nothing is checked.
wi_obj *wi_mk_updownbut(wi_obj *parent, wi_callback up_cb, int up_tag, wi_callback down_cb, int down_tag);
