// What the modules of the system library and their tests share, and nobody else needs.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

// The standard allocator as the tracked one calls it. A test replaces entries to make an allocation fail.
struct std_allocator {
    void *(*calloc)(std::size_t count, std::size_t size);
    void *(*realloc)(void *p, std::size_t size);
    void (*free)(void *p);
};
extern std_allocator dovsys_allocator;

// jmalloc() and jrealloc() for a computed size; one that no int holds ends the process like any other exhaustion.
void *jmalloc_bytes(std::size_t n);
void *jrealloc_bytes(void *p, std::size_t n);

// The platform's part of directory work.

// Ends a directory part: '\' everywhere, the system's own separator besides.
bool is_dir_separator(char c);

// The separator to append to path: the system's own, unless the path is written with the other one.
char dir_separator_for(std::string_view path);

// Longest full file name of a listing, with its terminator.
constexpr std::size_t listing_name_size = 260;
using listing_name = std::array<char, listing_name_size>;

// Current working directory; false when it does not fit or cannot be told.
bool current_directory(listing_name &directory);

// A search gives the names, without directory, of all entries that match the mask. directory and pattern are the two
// parts of the mask; which of the three is used depends on the platform. One search is in progress at a time.
using search_handle = std::intptr_t;
constexpr search_handle no_search = -1;
search_handle search_first(const char *mask, const char *directory, const char *pattern, listing_name &name);
bool search_next(search_handle search, listing_name &name);
void search_close(search_handle search);

// Put a module's kept state back to what it is when the process starts. Blocks that callers hold are not freed.
void jmalloc_nomm_reset();
void jmalloc_reset(); // before jmalloc_nomm_reset(): its tables are tracked blocks
void comutil_reset();
void logicals_reset();
void rddir_reset();
