// The edit box: a window of its own with a message, an edit page and a "Done" button.
#pragma once

#include "wi/wiobj.h"

struct wi_editbox {
    wi_obj *title;    // the label that shows the message
    wi_obj *editarea; // the edit page
};

// A hidden box of 600 by 600, shown by wi_on. The message `msgstr` (null is empty) stands above the page, which starts
// with the text `defstr`; "Done" calls cbfunc(box, tag) and leaves the box open. `parent` is not used.
wi_obj *wi_mk_editbox(wi_obj *parent, const char *msgstr, const char *defstr, wi_callback cbfunc, int tag);

// The page's text, as wi_editpage_getstr and wi_editpage_putstr have it.
char *wi_editbox_getstr(wi_obj *wo);
void wi_editbox_putstr(wi_obj *wo, const char *str);

// Replaces the message.
void wi_editbox_setmsg(wi_obj *wo, const char *msg);
