// The bytes of one open file behind a buffer, which holds either what was read ahead or what is still to be written.
#pragma once

#include <cstdint>
#include <string_view>

// What this library asks of the system, replaceable so that a test can make any of it fail. Each has the contract of
// the system's call of that name: read and write may do less than asked, and a failure is negative. Only regular files
// are opened. n is at most dov_most.
constexpr std::int64_t dov_most = 1 << 30;
struct dov_system {
    int (*open)(const char *name, bool update);
    int (*create)(const char *name);
    std::int64_t (*read)(int handle, void *buf, std::int64_t n);
    std::int64_t (*write)(int handle, const void *buf, std::int64_t n);
    std::int64_t (*seek)(int handle, std::int64_t offset, int origin);
    int (*close)(int handle);
};
extern dov_system dov_io;

// Of the largest buffer; large, since a call to the system costs as much as copying many kilobytes.
constexpr std::int64_t dov_buffer_size = 1 << 20;

struct dov_stream {
    int handle;
    std::int64_t at;       // where the next byte is read or written
    std::int64_t device;   // where the descriptor stands
    std::int64_t end;      // the file is at least so long
    std::int64_t start;    // file offset of the buffer
    std::int64_t length;   // bytes in it
    bool pending;          // they are to be written
    std::int64_t window;   // bytes to read ahead: few at first, more while reading goes on
    std::int64_t capacity; // of the buffer, which grows with its use
    char *buffer;          // owned; null at first
};

// Stands at offset: false when the descriptor cannot be moved there. Nothing may be pending.
bool dov_stream_seek(dov_stream &s, std::int64_t offset);

// The number of bytes read, fewer than n at the end of the file or after a failure. Nothing may be pending.
std::int64_t dov_stream_read(dov_stream &s, void *buf, std::int64_t n);

// Makes the buffer hold n bytes, at most dov_buffer_size: false when there is no memory for them.
bool dov_stream_reserve(dov_stream &s, std::int64_t n);

// The next n bytes, for which there must be room, where they lie in the buffer until the next operation; fewer as
// above.
std::string_view dov_stream_take(dov_stream &s, std::int64_t n);

// Write n bytes, the first when there is time, the second at once, and what is pending. After a failure nothing is
// pending any more, and `at` is the place of the first byte that was not written.
bool dov_stream_write(dov_stream &s, const void *buf, std::int64_t n);
bool dov_stream_flush(dov_stream &s);
