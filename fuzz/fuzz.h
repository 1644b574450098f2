// What the fuzz targets share.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

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

// Whether the text holds a word of letters and digits, in whatever case.
inline bool mentions(std::string_view text, std::string_view word)
{
    constexpr auto same = [](char a, char b) { return (a | 0x20) == (b | 0x20); };
    return std::search(text.begin(), text.end(), word.begin(), word.end(), same) != text.end();
}
