// The journal of user actions. Journalling is off: registering and recording have no effect.
#pragma once

#include "wi/wiobj.h"

// Registers an object whose actions can be recorded.
void wi_journal_add_wo(wi_obj *wo);

// Records that `wo` acted, with the action code `icb`.
void wi_journal_write(wi_obj *wo, int icb);
