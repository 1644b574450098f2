// The edit page: text of many lines in a fixed-pitch font, with scroll bars.
//
// Texts of the interface below use the OEM character set and line feeds; the window's own use what the platform wants.
// A page takes no part in walks of the keyboard focus, and Tab is a character in it. It has no help of its own.
#pragma once

#include "wi/wiobj.h"

constexpr int wi_editpage_size = 1'000'000; // bytes of a page's text, with its terminating zero

struct wi_editpage {
    wi_window editarea;
    int editable; // 1 when the user may type
};

// An empty page that the user may edit. With a null parent it gets a window of its own.
wi_obj *wi_mk_editpage(wi_obj *parent);

// Shows `str`, of which as much is kept as fits wi_editpage_size with two characters for each line feed.
void wi_editpage_putstr(wi_obj *wo, const char *str);

// The page's text in a new buffer of wi_editpage_size bytes; free with jfree. At most 999,998 characters of the
// window's text are read; a carriage return and what follows it are one line feed.
char *wi_editpage_getstr(wi_obj *wo);

// Whether the user may type.
void wi_editpage_editable(wi_obj *wo, int editable);
