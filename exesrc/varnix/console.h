// What the system is asked about a stream.
#pragma once

#include <cstdio>
#include <string>

bool is_terminal(std::FILE *stream);
bool is_regular_file(std::FILE *stream);

// Bytes are read and written as they are, on systems where that is not so anyway.
void make_binary(std::FILE *stream);

// The next line without its line feed, whatever bytes it holds; false at the end.
bool read_line(std::FILE *stream, std::string &line);

// Asks for a line with the prompt, where it can be edited and called back if the program was built with a library for
// that; false at the end.
bool ask_line(const char *prompt, std::string &line);
