// File tests and directory creation. A backslash separates directories on every system, the system's own separator
// besides; so where a file name may hold a backslash, such a file is not seen.
#pragma once

// 1 for an existing regular file or an existing directory, else 0, also for null.
int dovsys_is_file(const char *path);
int dovsys_is_directory(const char *path);

// Creates one directory: 0 on success, else -1 with errno set by the system; null fails.
int dovsys_mkdir(const char *path);
