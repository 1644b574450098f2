// The frame: a box drawn around one child.
#pragma once

#include "wi/wiobj.h"

struct wi_frame {
    wi_obj *parent; // the object in whose window the frame is drawn
};

// With a null parent the frame gets a window of its own.
wi_obj *wi_mk_frame(wi_obj *parent);
