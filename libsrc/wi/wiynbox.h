// The yes/no box: a question that the user answers.
//
// The box is no window of its own: each pop-up shows a dialog of the platform, captioned "Question:", and returns
// after the answer's callback. wi_on pops it up as well.
#pragma once

#include "wi/wiobj.h"

struct wi_ynbox {
    char *question; // own copy
    wi_callback yes_cb, no_cb;
    int yes_tag, no_tag;
};

// A question about what is in the window of `parent`, which must be given and is not linked with the box. The answers
// call yes_cb(box, yes_tag) and no_cb(box, no_tag); a null callback is skipped.
wi_obj *wi_mk_ynbox(wi_obj *parent, const char *qstr, wi_callback yes_cb, int yes_tag, wi_callback no_cb, int no_tag);

// Replaces the question, which must not be null.
void wi_ynbox_setquestion(wi_obj *wo, const char *qstr);

// Asks. Closing the dialog without an answer counts as No.
void wi_ynbox_popup(wi_obj *wo);
