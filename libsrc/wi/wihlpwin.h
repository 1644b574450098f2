// The help window.
#pragma once

#include "wi/wihlp.h"

// Builds the window, hidden.
wi_hlp_window wi_hlp_mk_window();

// Shows the topic of the record's own key.
void wi_hlp_show(wi_hlp &hlp);
