// Directory listing over a wildcard mask such as c:\data\*.iq, one at a time in the process:
//
//     rddir_init(mask);
//     while (const char *file = rddir(mask))
//         ...
#pragma once

// The next call of rddir() starts a new listing. Returns its argument.
const char *rddir_init(const char *filemask);

// Next entry that matches the mask: the mask's directory part, or the working directory for a mask without one, and the
// name. All entries are given, directories, "." and ".." included, in the system's order; *.* matches every name, and
// whether case counts is the host's rule. Null at the end, and from then on until rddir_init(); null as well when
// nothing matches, but then the next call starts over. The mask of later calls is not looked at.
//
// The result lies in one buffer of 260 characters that the next call overwrites. An entry whose full name does not fit
// is skipped; a mask that does not fit, or null, matches nothing. A call before any rddir_init() starts a listing.
const char *rddir(const char *filemask);

// Closes the listing in progress if its handle has the value of the first character of the string, which no handle has
// in practice; any other value and null do nothing. A listing closes itself at its end.
void rddir_free(const char *charptrhandle);

// Splits fname after its last backslash, on other systems than Windows also after the last '/', into directory part and
// name, each trimmed of whitespace at both edges; without a separator the path is empty. Both buffers hold as much as
// fname and may be fname itself. None may be null.
void splitit(const char *fname, char *path, char *name);
