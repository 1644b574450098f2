// The message pop-up: one window for all messages of the installer.
#pragma once

struct wi_obj;

// Shows `s` in the pop-up and returns at once. While the pop-up is shown, further messages are added below those it
// shows; after it was acknowledged it starts afresh, as it does when a message would not fit.
void popmsg(const char *s);

// Returns `win`, or when that is null a new pop-up, hidden, whose stored pointer is the label with the text.
wi_obj *msgwin_init(wi_obj *win);

// Callback of the pop-up's button: hides the pop-up and runs the registered callback, if any.
void msgwin_cb(wi_obj *wo, int tag);

// Has `cb` called once, with `tag` and the pop-up's button, when the pop-up is acknowledged next. `wo` is kept until
// then and not passed on.
void popmsg_set_aux_cb(wi_obj *wo, void (*cb)(wi_obj *wo, int tag), int tag);
