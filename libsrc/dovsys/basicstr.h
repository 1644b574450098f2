// String helpers that work in place and never allocate. Strings are NUL-terminated bytes and must not be null; case is
// ASCII unless said otherwise. Whitespace is blank, tab and line feed. Editing helpers return their first argument.
#pragma once

// Comparison without regard to case: negative, 0 or positive, the difference of the first two upper-cased bytes that
// differ. The second looks at no more than n characters; n < 1 gives 0.
int strcmpx(const char *s, const char *t);
int strncmpx(const char *s, const char *t, int n);

// Index of the first s2 in s1, -1 when there is none. Two empty strings give 0; one empty string is found nowhere and
// holds nothing.
int strindx(const char *s1, const char *s2);

char toupperx(char cc);
char tolowerx(char cc);
char *struprx(char *s);
char *strlwrx(char *s); // by the locale's rules, unlike struprx()

// Copies at most n - 1 characters and terminates; n is the size of s. Nothing for n < 1.
char *strlimcpy(char *s, const char *t, int n);

// Pads s with blanks to n characters; s holds n + 1. A longer string stays.
char *extendstr(char *s, int n);

// Remove leading or trailing whitespace.
char *ridstartws(char *s);
char *ridendws(char *s);

// Moves n bytes; the ranges may overlap. Nothing for n < 1.
void *xmove(void *target, const void *source, int n);
