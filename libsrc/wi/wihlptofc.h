// The table of contents of a help library: the library's name with ".tofc" appended, one line per topic in the order of
// the library.
//
//   level digit, one blank, topic name, tab, position, line feed        1 XINSTALL<tab>9
//
// A topic begins with a header line after an empty line: a digit 0 to 9, one blank, the name. The position is that of
// the name's first character, counted from 0 with CR LF as one character; no character ends a file early. The start of
// the file counts as the start of a line, so one line feed before the first header is enough.
#pragma once

// Writes the table of the library `lib` anew and returns 1. When the library cannot be read or the table not be
// written, says so on standard output, leaves an existing table as it is and returns 0. Null is a file that cannot be
// read.
int mktofc(const char *lib);
