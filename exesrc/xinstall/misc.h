// The installation procedure and its text substitution. No window is needed here: what there is to say goes through
// popmsg.
#pragma once

// Stores the name of the product, cut to 40 characters. It names the product's directory and its two files.
void set_progname(const char *ss);

// Installs the product into the directory `dest`: creates <dest>\<product>, copies <product>.env and
// <product>_install.bat there from the current directory, replaces "default_location" by the directory (without its
// trailing backslash) and "program_name" by the product's name in both copies, runs the copied batch file and deletes
// it. Returns 1 when all steps were issued, whatever the commands made of them, and 0, having issued none, when the
// directory cannot be written or `dest` holds a character that no path has. An empty `dest` is the root of the current
// drive.
// Each substitution is repeated until there is nothing left to replace; it does not end when the directory's name is
// the word "default_location" itself, and ends at the limit of chstr when the name contains it.
int batch_install(const char *dest);

// Replaces the first occurrence of `ss_from` in the text file `infile` by `ss_to` and rewrites the file. Returns 1 when
// that is done; 0 when there is no occurrence or a failure was reported. The file as it is read and the result must
// each be below 100000 bytes. A file that cannot be read to its end, is too large or cannot be opened for writing stays
// as it is; one that cannot be written to its end is incomplete, which the message says.
int chstr(const char *infile, const char *ss_from, const char *ss_to);

// Joins argv[1] to argv[argc] without separators, stopping before an argument that would pass 500 characters, and
// splits the result at blanks and tabs outside double quotes into at most two words. The quotes are dropped. `pargv`
// holds two buffers of 200 bytes; a longer word is cut to 199. Returns the number of words.
int parse_args(char **argv, int argc, char **pargv);
