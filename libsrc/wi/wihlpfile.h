// Files of the help library: read as they are, replaced as a whole.
#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

// What help asks of the system, replaceable so that a test can make any of it fail. Each entry has the contract of the
// standard library's function of that name; `replace` is a rename that takes the place of an existing file.
struct wi_hlp_files {
    std::FILE *(*open)(const char *name, const char *mode);
    std::size_t (*read)(void *buf, std::size_t size, std::size_t n, std::FILE *file);
    std::size_t (*write)(const void *buf, std::size_t size, std::size_t n, std::FILE *file);
    int (*close)(std::FILE *file);
    int (*replace)(const char *from, const char *to);
};
extern wi_hlp_files wi_hlp_io;

struct wi_hlp_close {
    void operator()(std::FILE *file) const { wi_hlp_io.close(file); }
};
using wi_hlp_file = std::unique_ptr<std::FILE, wi_hlp_close>;

// Bytes of a file. Not a string, which would be filled with zeros first.
struct wi_hlp_bytes {
    std::unique_ptr<char[]> data;
    std::size_t size = 0;
    std::string_view view() const { return {data.get(), size}; }
};

// Larger files are not read: every position fits an int, and no file uses up the memory.
constexpr std::size_t wi_hlp_file_limit = std::size_t{1} << 28;

// An existing regular file for reading, else null.
wi_hlp_file wi_hlp_open(const char *name);

// Up to `most` bytes from position `from`, which is at most wi_hlp_file_limit; false when they cannot be read.
bool wi_hlp_read_part(std::FILE *file, std::size_t from, std::size_t most, wi_hlp_bytes &bytes);

// The whole file; false when it cannot be read or is too large.
bool wi_hlp_read_all(std::FILE *file, wi_hlp_bytes &bytes);
bool wi_hlp_read_all(const char *name, wi_hlp_bytes &bytes);

// Makes each CR LF one line feed, in place, as reading in text mode does. Other carriage returns stay.
void wi_hlp_text_mode(wi_hlp_bytes &bytes);

// Whether lines end in CR LF, told from the first.
bool wi_hlp_is_crlf(std::string_view text);

// Gives the file this content: written beside it as <name>.new and put in its place when all of it is on disk. False
// when that fails; the file, or its absence, is then as before. A file that may not be written is not replaced.
bool wi_hlp_write(const std::string &name, std::string_view text);
