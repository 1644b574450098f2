// The icon: shows one of three bitmaps, which are the program's resources 102, 103 and 104. A program without them
// shows nothing.
#pragma once

#include "wi/wiobj.h"

struct HDC__;

struct wi_icon {
    HDC__ *ostacontext; // bitmap 104; shared by all icons, as the other two; null when there is no such resource
    HDC__ *dovcontext;  // bitmap 102
    HDC__ *pelvcontext; // bitmap 103
    int currenticon;    // 1 shows bitmap 102, 2 bitmap 104, 3 bitmap 103, anything else nothing
};

// The bitmap stands unscaled in the top-left corner of the icon's place. The keyboard passes an icon by. With a null
// parent the icon gets a window of its own.
wi_obj *wi_mk_icon(wi_obj *wo_parent, int icon);

// Chooses another bitmap, which shows at the next repaint. The one message stands for a null object and a wrong type.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wshadow" // the record has the same name
void wi_icon(wi_obj *wo, int icon);
#pragma GCC diagnostic pop
