// Generic setters and getters: each calls the operation of the object's own type.
//
// A null object is a program error of the operation, and so is a type that does not have the property. Texts
// are copied. Texts that are returned are new; the caller frees them with jfree.
#pragma once

#include "wi/wiobj.h"

void wi_set_message(wi_obj *wo, const char *msg); // a null message is a program error too
void wi_set_label(wi_obj *wo, const char *s);
// `a` is the fraction of the object's extent that its first part gets; `b` is accepted and not used.
void wi_set_split(wi_obj *wo, double a, double b);
void wi_set_decimals(wi_obj *wo, int n);
// `a` is the step; `b` is accepted and not used.
void wi_set_inc(wi_obj *wo, double a, double b);
void wi_set_string(wi_obj *wo, const char *s); // null shows one blank
void wi_set_value(wi_obj *wo, double v);
void wi_set_state(wi_obj *wo, int s);
void wi_set_dir(wi_obj *wo, const char *dir); // no effect on types without a directory
void wi_set_editable(wi_obj *wo, int flag);

char *wi_get_string(wi_obj *wo);
double wi_get_value(wi_obj *wo);
int wi_get_state(wi_obj *wo);

// A new copy of the object's label, or null for null and for types without one. Texts that live in a window
// are cut at 255 characters.
char *wi_get_label(wi_obj *wo);
