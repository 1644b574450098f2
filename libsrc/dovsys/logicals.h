// Environment logicals: named settings read from the process environment.
#pragma once

// Value of the environment variable lognam, or tabnam_lognam when a table is given; null when it is undefined, when
// lognam is null or when the whole name is longer than 511 characters. An empty value is defined. A value is cut at 255
// characters. The result lies in one buffer that the next successful call overwrites.
const char *get_logical(const char *lognam, const char *tabnam);

// The same for Fortran: the name is the first loglen characters of logn, trailing blanks included, and equn receives
// the value in equlen characters, filled up with blanks; its last character is a NUL. An undefined name gives blanks.
extern "C" void transl_(const char *logn, char *equn, int loglen, int equlen);

// The user's home directory, from the logical "HOME", ending in a separator: the system's own, or '\' for a value that
// is written without the system's own. Empty when HOME is undefined. The first call decides for the whole process.
// A value of more than 58 characters ends the process with a message on standard error and status 1.
const char *dovsys_homedir();
