// The hardcopy button, and the one "Printing Options" window that a program has: the type of printer, the print queue,
// the path and the user's command. It starts with what the environment says:
//
//   ZOLTHCTYPE   PS, CPS or HPGL in any case; anything else, or none, is TEK
//   ZOLTHCQUEUE  the queue; lp when it is not defined
//   ZOLTHCPATH   the path
//   ZOLTHCUSER   the user's command
//
// The choices stay until the program ends, and are no part of a journal.
#pragma once

#include "vgph/vghardcopy.h"
#include "wi/wiobj.h"

// A push button that calls cbfunc(button, tag), in which the application makes its hardcopy. The first one builds the
// options window, which stays hidden.
wi_obj *wi_hc_menu(wi_obj *parent, const char *label, wi_callback cbfunc, int tag);

// A callback for the application's own button or menu item: tag 0 shows the options window, 1 hides it.
void win_cb(wi_obj *wo, int tag);

// The application has filled the record itself: the next wi_hc_getenv leaves it alone.
void wi_hc_set_usr();

// Fills the record with the user's choices and returns 1; `usrcmd` stays as it is when there is no command. Returns 0
// without touching the record once after wi_hc_set_usr, and for null.
int wi_hc_getenv(vghardcopy *hc);
