// The window table: which object owns a platform window; and the table of menu commands.
//
// Entries are never removed, so a handle that the platform uses again finds its first registration.
#pragma once

#include "wi/wiobj.h"

struct HINSTANCE__;
using wi_instance = HINSTANCE__ *;

// Registers a window; beyond 20000 entries the call is ignored.
void setwiobject(wi_window window, wi_obj *wo);

// The object of the first registration of `window`, or null. Takes constant time.
wi_obj *getwiobject(wi_window window);

// The application instance.
void setinstance(wi_instance instance);
wi_instance getinstance();

// One menu command: the menu bar and where the item is in it.
struct wi_menubutton_info {
    struct wi_obj *wi_obj;
    int pulldownindex;
    int buttonindex;
};

// Appends an entry (borrowed for the life of the process); beyond 400 entries the call is ignored.
void setmenuinfo(wi_menubutton_info *info);

// The id of the entry appended last; -1 when there is none.
int getmenuid();

// The entry with that id, or null when there is none.
wi_menubutton_info *getmenuinfo(unsigned short id);
