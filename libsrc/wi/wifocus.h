// Keyboard focus: objects take it in the order of their making, which is the order of reading.
//
// The walk goes depth first through the containers and wraps round at the window. It ends without a change
// when it has come round and nothing can take the focus. Null arguments and types that cannot be walked
// through are program errors.
#pragma once

#include "wi/wiobj.h"

// Gives the focus to the first object of `wo`'s subtree that takes it, or, when there is none, to the next
// one after `wo`.
void wi_activate_first(wi_obj *wo);

// Moves on from the child `from` of `container`.
void wi_activate_findnext(wi_obj *container, wi_obj *from);

// Moves on from `wo` in its parent.
void wi_activate_next(wi_obj *wo);
