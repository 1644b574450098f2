// Files as bytes, and a folder for them that no other run of the tests uses.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <string>

struct test_folder {
    explicit test_folder(const std::string &name)
        : path(std::filesystem::temp_directory_path() /
               (name + std::to_string(testing::UnitTest::GetInstance()->start_timestamp())))
    {
        std::filesystem::create_directories(path);
    }
    ~test_folder() { std::filesystem::remove_all(path); }
    std::string operator()(const std::string &file) const { return (path / file).string(); }
    std::filesystem::path path;
};

inline std::string read_bytes(const std::string &name)
{
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void write_bytes(const std::string &name, const std::string &bytes)
{
    std::ofstream(name, std::ios::binary) << bytes;
}

inline std::string from_hex(const std::string &hex)
{
    std::string bytes;
    std::string digits;
    for (const char c : hex) {
        if (c != ' ')
            digits += c;
        if (digits.size() == 2) {
            bytes += static_cast<char>(std::stoi(digits, nullptr, 16));
            digits.clear();
        }
    }
    return bytes;
}

// An IQ file with two samples (1, -2) and (0.5, 3), t0 10, prf 4, tbias 0.25, xlam 2, and the keywords n = 7 and x
// = 1.5 in a reserved area of 40 bytes; as machines 1 (VAX), 3 (Sun), 4 (PC) and 5 (Alpha VMS) write it.
inline std::string iq_file(int machine)
{
    const std::string text = std::string("two samples") + std::string(92, ' ') + std::string(1, '\0');
    const auto build = [&](const char *head, const char *reserved, const char *version, const char *reals,
                           const char *samples) {
        std::string area = from_hex(reserved);
        area.resize(40, '\0');
        return from_hex(head) + area + from_hex(version) + text + from_hex(reals) + from_hex(samples);
    };
    constexpr const char *little = "28000000 90000000 08000000 02000000";
    switch (machine) {
    case 1:
        return build((std::string("01016500") + little).c_str(), "01 08 01 07000000 6e00 0c 02 c040000000000000 7800",
                     "01000000 deadbeef", "2042000000000000 8041000000000000 803f000000000000 0041000000000000",
                     "80400000 00c10000 00400000 40410000");
    case 3:
        return build("03016500 00000028 00000090 00000008 00000002",
                     "01 08 01 00000007 6e00 0c 02 3ff8000000000000 7800", "00000001 deadbeef",
                     "4024000000000000 4010000000000000 3fd0000000000000 4000000000000000",
                     "3f800000 c0000000 3f000000 40400000");
    case 5:
        return build((std::string("05016500") + little).c_str(), "01 08 01 07000000 6e00 0c 02 1840000000000000 7800",
                     "01000000 deadbeef", "4440000000000000 3040000000000000 f03f000000000000 2040000000000000",
                     "80400000 00c10000 00400000 40410000");
    default:
        return build((std::string("04016500") + little).c_str(), "01 08 01 07000000 6e00 0c 02 000000000000f83f 7800",
                     "01000000 deadbeef", "0000000000002440 0000000000001040 000000000000d03f 0000000000000040",
                     "0000803f 000000c0 0000003f 00004040");
    }
}
