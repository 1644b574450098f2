// What the file box makes of a default path such as c:\data\*.iq.
#pragma once

#include <string>
#include <string_view>

struct wi_file_pattern {
    std::string directory; // what stands before the last backslash, or a drive (c:), or empty
    std::string mask;      // the rest
    std::string extension; // of the mask, as written; empty when there is none or it begins with "*"
};

wi_file_pattern filestringparser(std::string_view path);

// The filter list of the open-file dialog: description and pattern of each choice, each ended by a zero byte, and a
// zero byte at the end. First the files of the pattern's extension, if any, then all kinds of measurement files, then
// all files.
std::string wi_file_filter(const wi_file_pattern &pattern);
