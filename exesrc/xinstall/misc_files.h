// What the installation procedure asks of the system, replaceable so that a test can make any of it fail.
#pragma once

#include <cstddef>
#include <cstdio>

// Each entry has the contract of the standard library's function of that name.
struct misc_files {
    std::FILE *(*open)(const char *name, const char *mode);
    std::size_t (*read)(void *buf, std::size_t size, std::size_t n, std::FILE *file);
    std::size_t (*write)(const void *buf, std::size_t size, std::size_t n, std::FILE *file);
    int (*error)(std::FILE *file);
    int (*close)(std::FILE *file);
    int (*system)(const char *command);
};

// The table in use; at first the system's own functions.
extern misc_files misc_io;
