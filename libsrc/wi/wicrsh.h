// The plotting crosshair's word on closing a window.
#pragma once

#include "wi/wiobj.h"

// 1 when the window may be closed now. No plot has a crosshair yet, so it always may.
inline int crsh_safe(wi_obj *, wi_obj *, int)
{
    return 1;
}
