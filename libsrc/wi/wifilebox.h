// The file box: asks for a file to open with the platform's dialog.
//
// The box is no window of its own; wi_on pops the dialog up, as wi_filebox_popup does.
#pragma once

#include "wi/wiobj.h"

struct wi_filebox {
    wi_callback accept_cb;  // called after a file was chosen, or null
    char *filestr;          // own copy of the full path chosen last, or null; earlier ones stay allocated
    char title[64];         // of the dialog, at most 63 characters; empty for the platform's own
    char *defdir;           // own buffer of 256: directory, which may end with a file mask (c:\data\*.iq)
    int wo_accept;          // tag of accept_cb; 0 until a file selection sets it
    wi_obj *callbacktarget; // the file selection that owns the box, or null
};

// A box for what is in the window of `parent`, which must be given and is not linked with the box. At most 63
// characters of `msgstr` and 255 of `defdir` are kept; null is empty. `wo_acpt` is accepted and not stored.
wi_obj *wi_mk_filebox(wi_obj *parent, const char *msgstr, const char *defdir, wi_callback cbfunc, wi_obj *wo_acpt);

// A new copy of the path chosen last, empty when there is none; free with jfree.
char *wi_filebox_getname(wi_obj *wo);

// Replace the default path and the title, cut as above; null is empty.
void wi_filebox_setdir(wi_obj *wo, const char *defdir);
void wi_filebox_setmsg(wi_obj *wo, const char *msg);

// Shows the dialog. When a file was chosen its path is kept, put into the string field of the file selection that owns
// the box, and accept_cb(file selection or else box, wo_accept) is called; a cancelled dialog changes nothing.
void wi_filebox_popup(wi_obj *wo);
