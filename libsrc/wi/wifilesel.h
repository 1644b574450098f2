// The file selection: a label, a path to edit, and an "Open" button that lets the user choose a file.
#pragma once

#include "wi/wiobj.h"

struct wi_filesel {
    wi_obj *filebox; // pops up on "Open"
    wi_obj *strfld;  // the path
    wi_obj *button;  // "Open"
    wi_obj *drect;   // label and the rest side by side; it is what lies in the parent
    wi_obj *label;
};

// `path` is where the file box starts, completed by wi_filesel_checkdir; the field is empty at first. The label gets
// the fraction `split` of the width, which must lie between 0 and 1, both excluded. A null label is empty. With a null
// parent the file selection gets a window of its own.
wi_obj *wi_mk_filesel(wi_obj *parent, const char *label, const char *path, double split);

// `cb(wo, tag)` is called after a file was chosen, and on Enter in the field; null turns it off.
void wi_filesel_chng_cb(wi_obj *wo, wi_callback cb, int tag);

// Takes effect at the next layout.
void wi_filesel_split(wi_obj *wo, double split);

void wi_filesel_label(wi_obj *wo, const char *label);

// Where the file box starts: a directory, which may end with a file mask. Null is a program error.
void wi_filesel_setdir(wi_obj *wo, const char *path);

// The text of the field, as the string field's operations; free it with jfree.
void wi_filesel_putstr(wi_obj *wo, const char *str);
char *wi_filesel_getstr(wi_obj *wo);

// Completes a file mask by the data directory: a path with a backslash after its first character is taken as it is, any
// other is appended, without a leading backslash, to the directory "data" in the one that the logical "ZOLT" names
// (d:\zolt0\zolt when that is not set). `result` has room for wi_filesel_path_size bytes, does not overlap `path`, and
// is cut to that. A null path is empty.
constexpr int wi_filesel_path_size = 256;
void wi_filesel_checkdir(const char *path, char *result);
