// The menu bar: a row of push buttons, the pull-downs, each of which opens a menu of commands and check items.
//
//     wi_obj *bar = wi_mk_menubar(wi_form_parent(form, 0, 0, 50, 8));
//     wi_menubar_pulldown(bar, "File");
//     wi_menubar_button(bar, "Open", 0, open_cb, 0);
//     wi_menubar_submenu(bar, "Recent");
//     wi_menubar_button(bar, "Keep the list", 1, keep_cb, 0); // a check item in the sub-menu
//     wi_menubar_submenu_done(bar);
//     wi_menubar_button(bar, "Quit", 0, quit_cb, 0);
//
// Operations on a pull-down or item mean the current one: that made last or, from then on, that chosen last. So an
// application addresses an item right after making it or in its callback; what has no current one is left alone.
#pragma once

#include "wi/windowtable.h"

struct HMENU__;

// The stack of a pull-down's menus that are being filled.
struct MenuList {
    HMENU__ *themenu;
    MenuList *prev; // the enclosing one; null for the pull-down's own
};

struct wi_mb_but {
    unsigned long idnumber;   // command id
    int type;                 // 1 for a check item
    wi_callback cbfunc;       // or null
    int tag;                  // passed to cbfunc
    wi_hlp *hlp;              // null: items have no help of their own
    wi_menubutton_info entry; // in the table of menu commands
};

struct wi_mb_pd {
    char *label; // reserved: the button's window has it
    wi_window button;
    MenuList *currentmenu; // where new items go
    wi_mb_but *ary;        // wi_menubar_most items
    int nbuts, ibut;       // items so far; the current one
    wi_hlp *hlp;           // or null
};

constexpr int wi_menubar_most = 20; // pull-downs of a bar, and items of a pull-down; sub-menus do not count

struct wi_menubar {
    wi_mb_pd *ary; // wi_menubar_most pull-downs
    int npd, ipd;  // pull-downs so far; the current one
};

// An empty bar. The pull-downs share its place in equal widths, which are truncated to pixels. It is shown and hidden
// with its window or container: alone, wi_on and wi_off of a bar are program errors. With a null parent it gets a
// window of its own.
wi_obj *wi_mk_menubar(wi_obj *parent);

// In all of these a null text is empty, and "&" marks the next character as the one to choose by.

// Adds a pull-down. Its help key is made of its label. Any key pressed while it has the keyboard focus moves the focus
// on. A 21st is a program error.
void wi_menubar_pulldown(wi_obj *wo, const char *label);

// Adds an item: `type` 1 is a check item, whose mark is flipped when it is chosen, anything else a command.
// cbfunc(wo, tag) is called after that; null for none. A 21st, sub-menus and all, is a program error, as is an item
// without a pull-down. Beyond 400 items in the whole program further ones act as the 400th.
void wi_menubar_button(wi_obj *wo, const char *label, int type, wi_callback cbfunc, int tag);

// Items from here on, up to the matching wi_menubar_submenu_done, go into a sub-menu. A full pull-down takes none. The
// second is ignored when no sub-menu is open and for what is no menu bar.
void wi_menubar_submenu(wi_obj *wo, const char *label);
void wi_menubar_submenu_done(wi_obj *wo);

// New texts of the current pull-down and the current item, whose mark stays.
void wi_menubar_pd_label(wi_obj *wo, const char *label);
void wi_menubar_b_label(wi_obj *wo, const char *label);

// The mark of the current item, 0 or 1; 0 when there is no item.
void wi_menubar_setstate(wi_obj *wo, int state);
int wi_menubar_getstate(wi_obj *wo);

// Marks the current item and takes the mark from all other check items of the pull-down; the current item is then the
// one that lost its mark last.
void wi_menubar_eset(wi_obj *wo);

// Carries out the menu command of that id, which becomes the current item; an unknown one does nothing.
void menudispatcher(unsigned short menuid);
