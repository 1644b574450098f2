// Strings, string lists and arrays for all libraries. What a function returns as new comes from jmalloc(), which ends
// the process when memory is exhausted, and is freed by the caller with jfree().
//
// Strings are NUL-terminated bytes; case is ASCII. Whitespace is blank, tab and line feed, not carriage return. Null
// strings and lists are taken everywhere: they give 0, null or the other argument unchanged unless said otherwise.
// Pointers to capacity figures must not be null.
#pragma once

// New strings and arrays. Null for a null source or a count below 1.
char *c_mkstr(const char *str); // copy, with room for one character more
char *c_cpstr(const char *str); // the same
char *c_mkstrn(int n);          // n zero bytes: an empty string of capacity n
double *c_mkdary(int n);        // n zeros
double *c_cpdary(const double *d, int n);
float *c_mkfary(int n);
float *c_cpfary(const float *f, int n);
int *c_mkiary(int n);
int *c_cpiary(const int *ia, int n);

// String lists: arrays of string pointers that end with a null pointer. Capacity beyond the end is null as well, so a
// list stays ended while capacity remains. A list owns its strings.

char **c_mklist(int n); // empty list for n - 1 strings
int c_listlen(const char *const *slst);

// Capacity n instead of the present one when n is above the length; a null list is made. Returns the list's new place.
char **c_growlist(char **slst, int n);

// Append a copy of str, or the pointer itself, which the list then owns. Capacity is the caller's duty.
void c_addlist(char **slst, const char *str);
void c_mvtolist(char **slst, char *sptr);

// The same with growth. *mn is the list's capacity; when no more than two places are left, copying grows it to
// length + 4 and moving by 10. Returns the list's new place. For a null list the first makes one of at least 4
// places; the second returns null and the pointer stays the caller's.
char **c_addlistgrow(char **slst, const char *sptr, int *mn);
char **c_mvtolistgrow(char **slst, char *sptr, int *mn);

void c_freelist(char **slst); // with its strings

// Index of the first equal entry, -1 when there is none; whether there is one. The x forms ignore case.
int c_locinlist(const char *const *slst, const char *str);
int c_locinlistx(const char *const *slst, const char *str);
int c_isinlist(const char *const *slst, const char *str);
int c_isinlistx(const char *const *slst, const char *str);

// 1 when equal, else 0, also for nulls.
int c_iseq(const char *s1, const char *s2);
int c_iseqx(const char *s1, const char *s2);

// strcmpx(); 1 when either is null.
int c_strcmpx(const char *s1, const char *s2);

// 1 when s2 abbreviates the keyword s1, in which the first marker c stands where the abbreviation may end: for LIS*T
// these are LIS and LIST. A keyword without a marker must be given whole.
int c_isabbr(const char *s1, const char *s2, char c);
int c_isabbrx(const char *s1, const char *s2, char c);

// 1 when s matches the template t, in which '?' stands for one character and '*' for any number, even none. But nothing
// in a template matches at the end of s: AB* does not match AB, and * not the empty string.
int c_iswild(const char *t, const char *s);
int c_iswildx(const char *s1, const char *s2);

// First c outside double quotes, or null. A quote is itself found when c is one and it opens. The NUL is never found.
const char *c_strchrq(const char *str, char c);
char *c_strchrq(char *str, char c);

// Editing in place; each returns its first argument.

char *c_strupcase(char *str);
char *c_strlowcase(char *str);

// Copy or append as much as fits; n is the whole size of s1. A null s2 makes a copy empty.
char *c_strncpy(char *s1, const char *s2, int n);
char *c_strncat(char *s1, const char *s2, int n);

// Appends s2, which must not lie in s1, to the new string s1 of capacity *n and returns its new place. When it does not
// fit, *n becomes both lengths + 100. A null s1 makes a string of at least *n bytes, 20 for *n below 1 and a null s2.
char *c_strcatgrow(char *s1, const char *s2, int *n);

// Pads with blanks to n characters, n >= 1; the string's place holds n + 1. A longer string stays.
char *c_extendstr(char *str, int n);

// The same for n >= 0, but a longer string is cut.
char *c_setstrlen(char *str, int n);

char *c_ridstartws(char *str);
char *c_ridendws(char *str);
char *c_ridedgews(char *str);

// Expands tabs to columns of 8 within mxn bytes, the whole size of str; what does not fit is cut. A line feed starts
// again at column 0, other control characters take no column. A string without tabs stays, however long.
char *c_ridtab(char *str, int mxn);

// New list of the words of str, separated by whitespace outside double quotes. Quotes belong to their word; one that is
// not closed runs to the end. Null gives an empty list.
// The first writes a NUL over the separator after each word. The second leaves str alone, and for every word a second
// copy stays allocated that nobody holds.
char **c_words(char *str);
char **c_words_new(const char *str);

// Numbers as text, without needless zeros but with a digit on both sides of the point: 12.5, 3.0, 1.5e-07. Magnitudes
// from 1e-6 to 1e6 are fixed with 12 decimals (5 for c_sfmtf), others have an exponent and 14 decimals (6). The point
// is a point in every locale; what is no number is "nan", "inf" or "-inf". Each function has ten buffers in turn: a
// result stays valid until its tenth next call.
const char *c_sfmtd(double dd);
const char *c_sfmtf(double ff);
const char *c_sfmti(int ii);
