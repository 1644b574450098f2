// The label: a text that does not change by itself. The text wraps at the label's width.
#pragma once

#include "wi/wiobj.h"

// `just`: -1 left-aligned, 0 centred, 1 right-aligned; any other value centres. A null text is empty. With a null
// parent the label gets a window of its own.
wi_obj *wi_mk_label(wi_obj *wo_parent, const char *label, int just);

// Replaces the text; null makes it empty.
void wi_label(wi_obj *wo, const char *label);
