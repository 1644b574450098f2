// The list selection: a labelled drop-down list of texts to choose from, which can be made editable, so that a text of
// the user's own can be typed as well.
//
// In its rectangle the list shows one line; opened, it reaches ten lines below that and scrolls further.
#pragma once

#include "wi/wiobj.h"

#include <cstdint>

struct wi_listsel {
    wi_window labelarea;
    wi_window editarea;     // the editable drop-down, hidden at first
    wi_window staticarea;   // the one to choose from only
    char **list;            // own copy of the choices, ends with null; null when there never was a list
    int nlist;              // their number
    double split;           // fraction of the width given to the label
    int editable;           // 1 while the editable drop-down is the visible one
    char *labtxt;           // own copy
    wi_callback selchng_cb; // called on a choice and on Enter in the editable drop-down, or null
    int selchng_tag;
    std::intptr_t oldwindowproc;     // the class's, of the edit part of the editable drop-down
    std::intptr_t oldstaticlistproc; // the class's, of the drop-down to choose from
};

// `list` ends with a null pointer and is copied as by wi_listsel_setlist; the first choice is selected. A null label is
// empty. With a null parent the list selection gets a window of its own.
wi_obj *wi_mk_listsel(wi_obj *parent, const char *label, double split, const char *const *list);

// Replaces the choices by copies cut to 120 characters; null empties the list. The present choice stays when it is in
// the new list, else the first is selected. `wo` is not checked.
void wi_listsel_setlist(wi_obj *wo, const char *const *list);

// Selects the choice that equals `str`; nothing when there is none. No callback is called.
void wi_listsel_putstr(wi_obj *wo, const char *str);

// A new copy of the choice, empty when there is none; of an editable list, of what stands in the field, at most 255
// characters. Free with jfree.
char *wi_listsel_getstr(wi_obj *wo);

// The index of the choice, -1 when there is none. `wo` is not checked.
int wi_listsel_getindex(wi_obj *wo);

// Nonzero lets the user type a text of his own; the choice stays. `wo` is not checked.
void wi_listsel_editable(wi_obj *wo, int editable);

// Opens the list, unless it is empty.
void wi_listsel_popup_on(wi_obj *wo);

void wi_listsel_label(wi_obj *wo, const char *label);

// Takes effect at the next layout.
void wi_listsel_split(wi_obj *wo, double split);

// `cb(wo, tag)` is called when the user makes a choice, and when he presses Enter in the editable list; null turns it
// off.
void wi_listsel_selchng_cb(wi_obj *wo, wi_callback cb, int tag);

// A new copy of a list, its texts cut to 120 characters; null for null. Free with c_freelist.
char **wi_xx_listsel_create_clist(const char *const *list);
