// Settings from variables: numbers, texts and words of a vocabulary.
//
// Each reader returns 1 when the variable exists, that is when its kind is not NULL, else 0 and leaves the target
// alone. The variable's kind need not fit: a number is the first element of an ARRAY, a SCALER or what a STRING begins
// with, else 0; a missing first element is 0.
#pragma once

#include "wi/spcontext.h"

int s_get_int(sp_context *context, const char *name, std::int32_t *target); // rounded half away from zero, within int
int s_get_float(sp_context *context, const char *name, float *target);
int s_get_double(sp_context *context, const char *name, double *target);

// The text of the value, as converted to STRING; an ERROR leaves the target alone. The first makes a new text and frees
// the one before with jfree(); the second copies at most `width` characters into a place for one more.
int s_get_string(sp_context *context, const char *name, char **target);
int s_get_fstring(sp_context *context, const char *name, char *target, int width);

// 1 for a number that is not zero and for the words YES and TRUE, 0 for other numbers and words. Other kinds leave the
// target alone, as they do below.
int s_get_yesno(sp_context *context, const char *name, std::int32_t *target);

// Codes, given by a word or by a number that is increased by 0.5 and truncated. Thickness is kept within 0 to 9;
// another code beyond its last, 15 for colours, 9 for line types and 4 for curve types, is what an unknown word gives.
int s_get_thick(sp_context *context, const char *name, std::int32_t *target);
int s_get_color(sp_context *context, const char *name, std::int32_t *target);
int s_get_linetype(sp_context *context, const char *name, std::int32_t *target);
int s_get_curvetype(sp_context *context, const char *name, std::int32_t *target);

// Codes of words, without regard to case. An unknown word is 0, "normal", "solid" and "line", and colour 1,
// "foreground".
int s_find_thick(const char *word);
int s_find_color(const char *word);
int s_find_linetype(const char *word);
int s_find_curvetype(const char *word);

// The first word of a code; null when there is none.
const char *s_thick_word(int code);
const char *s_color_word(int code);
const char *s_linetype_word(int code);
const char *s_curvetype_word(int code);

// Largest and smallest finite element of an ARRAY, or the number of a SCALER; not-a-number when there is none, also for
// null.
double s_max(const sp_value *val);
double s_min(const sp_value *val);
