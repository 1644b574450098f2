// The drawing area: a white window on which the application draws with the platform's means, with callbacks for what
// is to be drawn and for the mouse.
#pragma once

#include "wi/wiobj.h"

// A mouse action at (x, y) of the area's window. `buttons` points at three ints: when a button is pressed, released or
// held, the number of the one pressed or released last (0 left, 1 middle, 2 right) and two zeros; when none is held,
// whether the left, the middle and the right one are (all 0). They may be handed to wi_journal_mouse as they are.
using wi_mouse_callback = void (*)(wi_obj *wo, int tag, int x, int y, const int *buttons);

struct wi_drawarea {
    wi_callback expose_cb, resize_cb; // these and the next may be null
    int expose_tag, resize_tag;
    wi_mouse_callback mouse_down_cb, mouse_up_cb, mouse_move_cb, mouse_freemv_cb;
    int mouse_down_tag, mouse_up_tag, mouse_move_tag, mouse_freemv_tag;
    int mouse_down_on, mouse_up_on, mouse_move_on, mouse_freemv_on; // reserved: a callback that is set is called
};

// A drawing area without mouse callbacks; the keyboard passes it by. While the message loop runs, each repaint calls
// resize_cb(wo, resize_tag) when the size is not that of the last repaint, and else expose_cb(wo, expose_tag): both are
// to draw everything. The size is remembered for all areas in common, so two areas of different sizes that are
// repainted in turn are told of a new size each time. With a null parent the area gets a window of its own.
wi_obj *wi_mk_drawarea(wi_obj *parent, wi_callback expose_cb, int expose_tag, wi_callback resize_cb, int resize_tag);

// The window to draw on. It has a device context of its own, which keeps what is selected into it.
wi_window wi_drawarea_getwidget(const wi_obj *wo);

// Replace a callback and its tag; null turns it off.
void wi_drawarea_expose_cb(wi_obj *wo, wi_callback cb, int tag);
void wi_drawarea_resize_cb(wi_obj *wo, wi_callback cb, int tag);

// `type` 0 is the press of a button, 1 its release, 2 a move while one is held, 3 a move while none is. The mouse is
// not captured: what happens outside the window is not seen, so a button released there counts as held until it is
// released inside.
void wi_drawarea_mouse_cb(wi_obj *wo, int type, wi_mouse_callback func_cb, int tag);

// ---- for the frame ----

// Registers the window class of drawing areas.
void registerdrawwindow();

// Asks all drawing areas to be repainted. What was shown before the message loop ran has told nobody to draw.
void exposedrawwindows();
