// The command line as a vector of words. Words are separated by blanks, tabs and line feeds; there is no
// quoting: a double quote is a character like any other.
#pragma once

// 1 for blank, tab, line feed and the terminating NUL.
int iswhitespace(char c);

// Number of words in `s`.
int counttokens(const char *s);

// The next word of `s`: from the end position left by the previous call (kept for the life of the process) to
// the next white space, as a new zero-filled block of its length + 2; an empty text when no word is left. The
// caller frees it with jfree.
char *getnexttoken(const char *s);

// *argc becomes the number of words, *argv a new array of *argc + 1 texts: a single blank, then the words. There
// is no null entry after the last. Free each with jfree.
void parsecommandline(const char *cmdline, int *argc, char ***argv);
