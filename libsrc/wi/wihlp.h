// Help of the toolkit's objects. Help requests are accepted and have no effect as long as no help library is
// connected.
#pragma once

#include "wi/wiobj.h"

// Gives the object the help key that belongs to its label.
void wi_hlp_setstr(wi_obj *wo, const char *lab);

// Shows the help of the object; null is ignored.
void wi_hlp_srch(wi_obj *wo);

// Allows (nonzero) or forbids editing of help topics; forbidden at start.
void wi_hlp_editable(int editable);
int wi_hlp_iseditable();
