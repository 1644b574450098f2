#include "fileio/fileio.h"
#include "mcvt_reference.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

struct restored_conversion {
    ~restored_conversion() { setmcvt(mcvt_pc, mcvt_pc); }
};

// Every sign and exponent of every format with fractions that have bits at both ends.
std::vector<std::uint64_t> patterns(int bits)
{
    std::vector<std::uint64_t> all;
    for (std::uint64_t top = 0; top < 4096; ++top) {
        for (const std::uint64_t fraction :
             {0x0000000000000ULL, 0x0000000000001ULL, 0x0000000000008ULL, 0x8000000000000ULL, 0xfffffffffffffULL,
              0x7a5c3b1d9e2f6ULL, 0x0010080000004ULL})
            all.push_back(((top << 52) | fraction) >> (64 - bits));
    }
    return all;
}

// The byte orders in which a file may hold a pattern.
std::uint64_t as_stored(std::uint64_t pattern, int machine, int bytes)
{
    const real_format format = format_of(machine, bytes);
    std::array<unsigned char, 8> stored{};
    for (int i = bytes; i-- > 0; pattern /= 256)
        stored[static_cast<std::size_t>(format.order[static_cast<std::size_t>(i)])] =
            static_cast<unsigned char>(pattern % 256);
    std::uint64_t result = 0;
    std::memcpy(&result, stored.data(), sizeof result);
    return result;
}

TEST(MachineConversion, OfRealsAgreesWithArithmetic)
{
    const restored_conversion at_end;
    for (int pair = 0; pair < 25; ++pair) {
        const int from = pair / 5 + 1;
        const int to = pair % 5 + 1;
        ASSERT_EQ(setmcvt(from, to), 1);
        for (const int bytes : {4, 8}) {
            std::vector<unsigned char> run(1); // at an odd address
            std::vector<unsigned char> expected(1);
            int mistakes = 0;
            for (const std::uint64_t pattern : patterns(8 * bytes)) {
                const std::uint64_t value = as_stored(pattern, from, bytes);
                std::array<unsigned char, 8> one;
                std::array<unsigned char, 8> by_arithmetic;
                std::memcpy(one.data(), &value, 8);
                by_arithmetic = one;
                run.insert(run.end(), one.begin(), one.begin() + bytes);
                (bytes == 4 ? mcvt_f4 : mcvt_r8)(one.data());
                convert_by_arithmetic(from, to, bytes, by_arithmetic.data());
                expected.insert(expected.end(), by_arithmetic.begin(), by_arithmetic.begin() + bytes);
                if (one != by_arithmetic && ++mistakes < 5)
                    ADD_FAILURE() << from << " to " << to << ": " << bytes << " bytes, " << std::hex << pattern;
            }
            (bytes == 4 ? mcvt_run_f4 : mcvt_run_f8)(run.data() + 1, run.size() / static_cast<std::size_t>(bytes));
            EXPECT_EQ(run, expected) << from << " to " << to;
        }
    }
}

TEST(MachineConversion, OfKnownValues)
{
    const restored_conversion at_end;
    using row = std::tuple<int, int, std::string, std::string>;
    const std::string z8(8, '\0');
    for (const auto &[from, to, before, after] :
         {row{1, 4, {"\x80\x40\0\0", 4}, {"\0\0\x80\x3f", 4}},         // 1.0
          row{4, 1, {"\xdb\x0f\x49\xc0", 4}, {"\x49\xc1\xdb\x0f", 4}}, // -pi
          row{3, 5, {"\x7f\x80\0\0", 4}, "\xff\x7f\xff\xff"},          // infinity
          row{3, 1, {"\xff\xc0\0\1", 4}, "\xff\xff\xff\xff"},          // no number
          row{1, 3, {"\xff\0\1\2", 4}, {"\0\0\0\0", 4}},               // exponent 1
          row{3, 1, {"\x3f\xf0\0\0\0\0\0\0", 8}, {"\x80\x40\0\0\0\0\0\0", 8}},
          row{1, 3, {"\x80\x40\0\0\0\0\7\0", 8}, {"\x3f\xf0\0\0\0\0\0\0", 8}}, // bits that are dropped
          row{1, 3, {"\0\x80\0\0\0\0\0\0", 8}, {"\xb7\xe0\0\0\0\0\0\0", 8}},   // exponent 0 is converted
          row{1, 5, {"\0\x80\0\0\0\0\0\0", 8}, z8},                            // but not to G
          row{5, 1, {"\x10\x40\0\0\0\0\0\0", 8}, {"\x80\x40\0\0\0\0\0\0", 8}},
          row{5, 4, {"\xff\xff\0\0\0\0\0\0", 8}, "\xff\xff\xff\xff\xff\xff\xdf\xc7"}, // D's largest
          row{4, 5, {"\1\0\0\0\0\0\x10\x20", 8}, z8}}) {
        std::string value = before;
        ASSERT_EQ(setmcvt(from, to), 1);
        (value.size() == 4 ? mcvt_r4 : mcvt_f8)(value.data());
        EXPECT_EQ(value, after) << from << " to " << to;
    }
}

TEST(MachineConversion, OfIntegersReversesBytesBetweenSunAndOthers)
{
    const restored_conversion at_end;
    int source = 0;
    int target = 0;
    getmcvt(&source, &target);
    EXPECT_EQ(source * 10 + target, 44);
    for (int from = 1; from <= 5; ++from) {
        for (int to = 1; to <= 5; ++to) {
            EXPECT_EQ(setmcvt(from, to), 1);
            std::string i2 = "12";
            std::string i4 = "1234";
            std::string i8 = "12345678";
            std::string runs = "x12345678";
            mcvt_i2(i2.data());
            mcvt_i4(i4.data());
            mcvt_i8(i8.data());
            mcvt_c(i8.data());
            mcvt_s(i8.data(), 8);
            mcvt_run_i2(runs.data() + 1, 2);
            mcvt_run_i4(runs.data() + 5, 1);
            const bool reversed = (from == 3) != (to == 3);
            EXPECT_EQ(i2 + i4 + i8 + runs, reversed ? "21432187654321x21438765" : "12123412345678x12345678");
        }
    }
    setmcvt(1, 2);
    for (const auto &[from, to] : {std::pair{0, 4}, {6, 4}, {4, 0}, {4, 6}, {-1, -1}})
        EXPECT_EQ(setmcvt(from, to), -1);
    getmcvt(&source, &target);
    EXPECT_EQ(source * 10 + target, 12);
}

} // namespace
