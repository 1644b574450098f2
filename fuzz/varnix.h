// What the fuzz targets of the language share.
#pragma once

#include "fuzz.h"

#include <string_view>

// Whether evaluating the text uses no more memory than its size accounts for, and gives the same each time: not with
// functions that make arrays as large as they are told, that give random numbers, or that read files.
inline bool is_tame(std::string_view text)
{
    for (const char *word : {"RAMP", "2DINDX", "RAND", "FILE", "SPL", "GETKW"})
        if (mentions(text, word))
            return false;
    return true;
}
