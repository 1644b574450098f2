// The increment/decrement field: a numeric field and an up/down pair that steps it.
#pragma once

#include "wi/wiobj.h"

struct wi_incdecfld {
    wi_obj *numfld;
    wi_obj *updownbut;
    wi_obj *drect; // holds the two side by side
    double inc;    // the step
    int usetoplim, usebotlim;
    int editable; // reserved; the numeric field keeps it
    double toplim, botlim;
};

// Shows two decimals. With a null parent the field gets a window of its own.
wi_obj *wi_mk_incdecfld(wi_obj *parent, const char *label, double split, double inc);

void wi_incdecfld_split(wi_obj *wo, double split);
void wi_incdecfld_label(wi_obj *wo, const char *label);
double wi_incdecfld_getval(wi_obj *wo);
void wi_incdecfld_putval(wi_obj *wo, double val);
char *wi_incdecfld_getstr(wi_obj *wo); // free with jfree
void wi_incdecfld_putstr(wi_obj *wo, const char *str);
void wi_incdecfld_decimals(wi_obj *wo, int ndec);
void wi_incdecfld_editable(wi_obj *wo, int editable);

void wi_incdecfld_inc(wi_obj *wo, double inc);

// From now on no step goes beyond the limit: one that would is refused whole. A limit stays on.
void wi_incdecfld_toplim(wi_obj *wo, double toplim);
void wi_incdecfld_botlim(wi_obj *wo, double botlim);

// Replaces the callbacks of the buttons where given; null leaves the default, which steps the value. `cr_cb`, called
// on Enter, is always replaced; null turns it off. All are called with the field.
void wi_incdecfld_set_cb(wi_obj *wo, wi_callback up_cb, int up_tag, wi_callback dn_cb, int dn_tag, wi_callback cr_cb,
                         int cr_tag);

// What the buttons do by default: step the value of `wo` by the increment, unless a limit forbids it. `tag` is not
// used.
void defaultupcallback(wi_obj *wo, int tag);
void defaultdowncallback(wi_obj *wo, int tag);
