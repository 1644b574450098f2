// Help: every interactive object has a key, such as help:xinstall:Location, that names a topic of a help library. A
// right button release over the object, or F1, shows the topic in the help window, or the topics whose names hold the
// key's last part.
//
// A help library is a text file of nested topics. A topic begins with a header after an empty line: a level digit 0 to
// 9, one blank, the topic's name; keys begin at level 0. Lines that begin with "!" are comments.
//
//     <empty line>
//     0 HELP
//     What stands here is the text of the key "help".
//     <empty line>
//     1 XINSTALL
//     The text of help:xinstall, and so on.
//
// Failures are told in the help message window and never end the program.
#pragma once

#include "wi/wihlptofc.h"
#include "wi/wiobj.h"

// The one help window of a program and its parts.
struct wi_hlp_window {
    wi_obj *hlp_win;                                        // the form that fills the window
    wi_obj *wo_edpg;                                        // the topic's text
    wi_obj *wo_sfld;                                        // "Search string:"
    wi_obj *wo_help, *wo_hcpy, *wo_dsmss, *wo_save, *wo_up; // buttons
    wi_obj *wo_lbl1;                                        // how many topics a keyword was found in
    wi_obj *wo_lbl2;                                        // which of them is shown
    wi_obj *wo_ud;                                          // the next, the previous of them
    wi_obj *wo_ss;                                          // "Topic:", the key that is shown
};

// The help of one object.
struct wi_hlp : wi_hlp_window {
    char *lib_name;     // own copy
    char *strt_str;     // own copy of the object's key
    char srch_str[200]; // the key that is shown at the moment
    int noinfo;         // 1 after a look-up that found nothing
    int print;          // 1 while a topic is printed
};

// The library when the program sets none. Its topics cannot be edited.
constexpr const char *def_lib = "d:\\zolt0\\zolt\\hlp\\zolt.hlp";

// ---- keys ----

// The program part of keys made from now on: "help:" and `str`. Null is ignored; without a call it is "default".
void wi_hlp_setprognm(const char *str);

// A new copy of what wi_hlp_setprognm was given, or null; free with jfree.
char *wi_hlp_getprognm();

// The library of keys made from now on; null is def_lib.
void wi_hlp_setlib(const char *str);

// The same for a library that lies beside the program's file.
void wi_hlp_setlib_of_program(const char *name);

// The next key made is a copy of `str`, whatever its object's label.
void wi_hlp_set_srchstr(const char *str);

// Gives the object its key: the program part, a colon and the label without a colon at its end. A label that is null,
// begins with a colon or has two in a row gives none. The first call builds the help window.
void wi_hlp_setstr(wi_obj *wo, const char *lab);

// Builds the help window when there is none.
void wi_hlp_init();

// ---- showing ----

// Shows help for the object; nothing for null and for an object without a key.
void wi_hlp_srch(wi_obj *wo);

// Shows a message, in lines of some 30 characters, in a window of its own that the user acknowledges; returns at once.
void wi_hlpmsg(const char *s);

// Allows (nonzero) or forbids editing of help topics; forbidden at start. Takes effect when a topic is shown next.
void wi_hlp_editable(int editable);
int wi_hlp_iseditable();
