// One file in memory in place of the system's, for the targets that open measurement files.
#pragma once

#include "fileio/dovstream.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

inline std::string memory_file;
inline std::int64_t memory_position;

inline void use_memory_file()
{
    dov_io = {
        [](const char *, bool) {
            memory_position = 0;
            return 1;
        },
        [](const char *) {
            memory_position = 0;
            memory_file.clear();
            return 1;
        },
        [](int, void *buf, std::int64_t n) {
            const auto size = static_cast<std::int64_t>(memory_file.size());
            const std::int64_t some = std::clamp<std::int64_t>(size - memory_position, 0, n);
            std::memcpy(buf, memory_file.data() + std::min(memory_position, size), static_cast<std::size_t>(some));
            memory_position += some;
            return some;
        },
        [](int, const void *buf, std::int64_t n) {
            const auto end = static_cast<std::size_t>(memory_position + n);
            memory_file.resize(std::max(memory_file.size(), end));
            std::memcpy(memory_file.data() + memory_position, buf, static_cast<std::size_t>(n));
            memory_position += n;
            return n;
        },
        [](int, std::int64_t offset, int origin) -> std::int64_t {
            const std::int64_t to = offset + (origin == SEEK_END ? static_cast<std::int64_t>(memory_file.size()) : 0);
            return to < 0 ? -1 : memory_position = to;
        },
        [](int) { return 0; }};
}
