// The status line: a read-only string field for messages about progress, which show at once, even while the program
// does not return to the message loop.
#pragma once

#include "wi/wiobj.h"

struct wi_status {
    wi_obj *strfld; // the string field that shows the text; it is what lies in the parent
};

// A status line with a label that takes the fraction `split` of the width. With a null parent it gets a window of its
// own.
wi_obj *wi_mk_status(wi_obj *parent, const char *label, double split);

// The status line made last, or null: where any part of a program can tell its progress.
wi_obj *wi_status_latest();

// Shows `str` and repaints the line before it returns.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wshadow" // the record has the same name
void wi_status(wi_obj *wo, const char *str);
#pragma GCC diagnostic pop

// As the string field's operations; the text is new, free it with jfree.
char *wi_status_getstr(wi_obj *wo);
void wi_status_label(wi_obj *wo, const char *label);
void wi_status_split(wi_obj *wo, double split);
