// Values among the bytes of records and of services' arguments, which need not be aligned.
#pragma once

#include "fileio/filetype.h"

#include <cstring>

template <typename T>
T dov_load(const void *from)
{
    T value;
    std::memcpy(&value, from, sizeof value);
    return value;
}

template <typename T>
void dov_store(const T &value, void *to)
{
    std::memcpy(to, &value, sizeof value);
}

// What a service answers with an argument that is filled.
template <typename T>
int dov_give(const T &value, void *arg)
{
    dov_store(value, arg);
    return dov_ok;
}

inline char *dov_field_bytes(void *record, const dov_field &field)
{
    return static_cast<char *>(record) + field.offset;
}

inline const char *dov_field_bytes(const void *record, const dov_field &field)
{
    return static_cast<const char *>(record) + field.offset;
}
