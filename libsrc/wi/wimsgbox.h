// The message box: a text that the user acknowledges with OK.
//
// The box is no window of its own: it keeps the text, and each pop-up shows a dialog of the platform, captioned
// "Message:", that returns when the user has closed it. wi_on pops it up as well.
#pragma once

#include "wi/wiobj.h"

struct wi_msgbox {
    char string[100]; // the message, at most 98 characters
};

// `parent` is not used. A null message is empty.
wi_obj *wi_mk_msgbox(wi_obj *parent, const char *msgstr);

// Replaces the message by at most 98 characters of `msgstr`; null is empty.
void wi_msgbox_setmsg(wi_obj *wo, const char *msgstr);

// Shows the message. `wo` is not checked.
void wi_msgbox_popup(wi_obj *wo);

// The same dialog for a text of any length, without an object.
void wi_popmsg(const char *string);
