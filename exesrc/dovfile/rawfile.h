// A measurement file as bytes, whatever is wrong with it.
#pragma once

#include "dovfile/dovfile.h"

#include "fileio/dovstream.h"

struct raw_file {
    explicit raw_file(const char *name);
    raw_file(const raw_file &) = delete;
    raw_file &operator=(const raw_file &) = delete;
    ~raw_file();

    bool is_open() const { return stream->handle >= 0; }
    std::string bytes(std::int64_t offset, std::int64_t n); // those of them that are there

    std::unique_ptr<dov_stream> stream;
    std::int64_t size = 0;
    bool has_header = false;    // there are 20 bytes
    bool known_machine = false; // and they are in the format of one
    _keywords kw{};             // in this machine's order if so
};

// A record in this machine's format.
std::string native_record(const raw_file &file, std::span<const dov_field> fields, std::string record);
