// What the fuzz targets share.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

// Ends the process, which the fuzzer reports with the input.
inline void require(bool holds)
{
    if (!holds)
        std::abort();
}

// The input up to its first NUL.
inline std::string text_of(const std::uint8_t *begin, const std::uint8_t *end)
{
    return {begin, std::find(begin, end, std::uint8_t{0})};
}
