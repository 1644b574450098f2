// The toggle array: a column of toggle buttons with a rule for how many may be on.
//
// Toggles are addressed by index, 0 at the top. Toggles of the same name change together.
#pragma once

#include "wi/wiobj.h"

// How many toggles are on. What a change breaks is mended by the rule: where another one was switched on, all others go
// off (exactly one, at most one); where none is left, toggle 0 goes on (exactly one, at least one).
enum wi_togary_mode : int {
    wi_togary_exactly_one = 0,
    wi_togary_at_most_one = 1,
    wi_togary_at_least_one = 2,
    wi_togary_any = 3,
};

struct wi_togslot {
    char *name; // own copy
};

struct wi_togary {
    int editable;    // 1 when clicks change the state
    int mode;        // a wi_togary_mode
    int *state;      // reserved
    int *activated;  // reserved
    int nslots;      // number of toggles
    wi_togslot *ary; // one for each
    wi_callback chgcb;
    int tag;
    wi_obj *butary; // the button array of one column that holds the toggles
};

// One toggle for each text of `list`, which ends with a null pointer and must hold at least one. The mode is
// wi_togary_exactly_one, so toggle 0 is on. `split` is not used. With a null parent the array gets a window of its own.
wi_obj *wi_mk_togary(wi_obj *parent, const char *const *list, double split);

// The state of one toggle, 0 or 1.
int wi_togary_getstate(wi_obj *wo, int indx);

// The index of the first toggle that is on, -1 when there is none.
int wi_togary_getindex(wi_obj *wo);

// Switches a toggle on (state 1) or off (0) under the rule of the mode; other states change nothing. Switching any
// toggle off in the mode wi_togary_exactly_one switches toggle 0 on. The index may be the number of toggles: the rule
// is then applied to the toggles there are.
void wi_togary_setstate(wi_obj *wo, int index, int state);

// Reads and sets all states; `ary` has one element for each toggle. Where only one may be on, the first element equal
// to 1 counts. When there is none, in the mode wi_togary_exactly_one, toggle 0 goes on if no other one is on, and off
// otherwise. A null `ary` is a program error.
void wi_togary_getary(wi_obj *wo, int *ary);
void wi_togary_setary(wi_obj *wo, const int *ary);

// Changes the rule; it holds at once.
void wi_togary_setmode(wi_obj *wo, int newmode);

// 0 keeps the user, not the program, from changing a state.
void wi_togary_editable(wi_obj *wo, int editable);

// Keeps a callback with the array for whoever reports changes of it. A click does not call it.
void wi_togary_chng_cb(wi_obj *wo, wi_callback cb, int tag);

// No effect: toggles have no labels of their own.
void wi_togary_split(wi_obj *wo, double split);
