// What the installer's tests do with texts and files.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

// All occurrences replaced, or the first `times`.
inline std::string replaced(std::string s, const std::string &from, const std::string &to, int times = -1)
{
    for (std::size_t i = 0; times-- != 0 && (i = s.find(from, i)) != std::string::npos; i += to.size())
        s.replace(i, from.size(), to);
    return s;
}

inline std::string bytes_of(const std::filesystem::path &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline std::string cannot_write_to(const std::string &dir)
{
    return "Unable to write to directory " + dir + "!  Check permissions or if directory exists!";
}
