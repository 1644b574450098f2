#include "fileio/mcvt.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

namespace {

static_assert(std::endian::native == std::endian::little, "values are handled as the PC format has them");

using word2 = std::uint16_t;
using word4 = std::uint32_t;
using word8 = std::uint64_t;

constexpr word2 swap2(word2 w)
{
    return __builtin_bswap16(w);
}

constexpr word4 swap4(word4 w)
{
    return __builtin_bswap32(w);
}

constexpr word8 swap8(word8 w)
{
    return __builtin_bswap64(w);
}

// Between VAX's order of words and the plain one, in which the sign is the highest bit.
constexpr word4 words4(word4 w)
{
    return std::rotl(w, 16);
}

constexpr word8 words8(word8 w)
{
    w = std::rotl(w, 32);
    return ((w & 0x0000ffff0000ffff) << 16) | ((w >> 16) & 0x0000ffff0000ffff);
}

constexpr word4 sign4 = 0x80000000;
constexpr word8 sign8 = 0x8000000000000000;

// What differs between the reals, all in plain order and written as selections: loops over them become vectors.

constexpr word4 f_from_ieee(word4 w)
{
    const word4 exponent = (w >> 23) & 0xff;
    const word4 in_range = exponent < 1 ? 0 : w + 0x01000000;
    return exponent >= 254 ? w | ~sign4 : in_range;
}

constexpr word4 ieee_from_f(word4 w)
{
    return (w & 0x7f000000) == 0 ? 0 : w - 0x01000000;
}

// D with the exponent of a format that has 11 bits for it.
constexpr word8 widened_d(word8 w, word8 bias)
{
    return (((w & ~sign8) >> 3) + (bias << 52)) | (w & sign8);
}

constexpr word8 ieee_from_d(word8 w)
{
    return w == 0 ? 0 : widened_d(w, 894);
}

constexpr word8 g_from_d(word8 w)
{
    return ((w >> 55) & 0xff) == 0 ? 0 : widened_d(w, 896);
}

// The exponents from bias + 1 to bias + 255 are those that D has.
constexpr word8 narrowed_to_d(word8 w, word8 bias)
{
    const word8 magnitude = (w & ~sign8) - (bias << 52);
    const word8 in_range = (magnitude << 3) | (w & sign8);
    const bool below = (w & ~sign8) < (bias + 1) << 52;
    const bool above = (w & ~sign8) >= (bias + 256) << 52;
    return below ? 0 : above ? w | ~sign8 : in_range;
}

// The converters, on the bytes of the files as this machine loads them.

constexpr word4 vaxsun4(word4 w)
{
    return swap4(ieee_from_f(words4(w)));
}

constexpr word4 sunvax4(word4 w)
{
    return words4(f_from_ieee(swap4(w)));
}

constexpr word4 vaxmips4(word4 w)
{
    return swap4(vaxsun4(w));
}

constexpr word4 mipsvax4(word4 w)
{
    return sunvax4(swap4(w));
}

constexpr word8 vaxsun8(word8 w)
{
    return swap8(ieee_from_d(words8(w)));
}

constexpr word8 sunvax8(word8 w)
{
    return words8(narrowed_to_d(swap8(w), 894));
}

constexpr word8 vaxavms8(word8 w)
{
    return words8(g_from_d(words8(w)));
}

constexpr word8 avmsvax8(word8 w)
{
    return words8(narrowed_to_d(words8(w), 896));
}

constexpr word8 vaxmips8(word8 w)
{
    return swap8(vaxsun8(w));
}

constexpr word8 mipsvax8(word8 w)
{
    return sunvax8(swap8(w));
}

constexpr word8 sunavms8(word8 w)
{
    return vaxavms8(sunvax8(w));
}

constexpr word8 mipsavms8(word8 w)
{
    return vaxavms8(mipsvax8(w));
}

constexpr word8 avmssun8(word8 w)
{
    return vaxsun8(avmsvax8(w));
}

constexpr word8 avmsmips8(word8 w)
{
    return vaxmips8(avmsvax8(w));
}

struct converter {
    void (*one)(void *value);
    void (*run)(void *values, std::size_t n);
    void (*copy)(void *copies, const void *values, std::size_t n);
};

template <typename word>
constexpr converter same = {
    [](void *) {}, [](void *, std::size_t) {},
    [](void *copies, const void *values, std::size_t n) { std::memcpy(copies, values, n * sizeof(word)); }};

template <typename word, word (*convert)(word)>
void convert_at(unsigned char *to, const unsigned char *from)
{
    word w;
    std::memcpy(&w, from, sizeof w);
    w = convert(w);
    std::memcpy(to, &w, sizeof w);
}

// A loop in place and one between two places: only loops that need not ask which it is become vectors.
template <typename word, word (*convert)(word)>
constexpr converter by_words = {[](void *value) {
                                    auto *bytes = static_cast<unsigned char *>(value);
                                    convert_at<word, convert>(bytes, bytes);
                                },
                                [](void *values, std::size_t n) {
                                    auto *bytes = static_cast<unsigned char *>(values);
                                    for (std::size_t i = 0; i < n; ++i)
                                        convert_at<word, convert>(bytes + i * sizeof(word), bytes + i * sizeof(word));
                                },
                                [](void *copies, const void *values, std::size_t n) {
                                    auto *to = static_cast<unsigned char *>(copies);
                                    const auto *from = static_cast<const unsigned char *>(values);
                                    for (std::size_t i = 0; i < n; ++i)
                                        convert_at<word, convert>(to + i * sizeof(word), from + i * sizeof(word));
                                }};

template <word4 (*convert)(word4)>
constexpr converter by4 = by_words<word4, convert>;
template <word8 (*convert)(word8)>
constexpr converter by8 = by_words<word8, convert>;

constexpr int machines = 5;

// [from][to], in the order of the codes. Integers: bytes are reversed between Sun and the others.
constexpr bool reversed[machines][machines] = {{false, false, true, false, false},
                                               {false, false, true, false, false},
                                               {true, true, false, true, true},
                                               {false, false, true, false, false},
                                               {false, false, true, false, false}};

constexpr converter real4[machines][machines] = {
    {same<word4>, by4<vaxmips4>, by4<vaxsun4>, by4<vaxmips4>, same<word4>},
    {by4<mipsvax4>, same<word4>, by4<swap4>, same<word4>, by4<mipsvax4>},
    {by4<sunvax4>, by4<swap4>, same<word4>, by4<swap4>, by4<sunvax4>},
    {by4<mipsvax4>, same<word4>, by4<swap4>, same<word4>, by4<mipsvax4>},
    {same<word4>, by4<vaxmips4>, by4<vaxsun4>, by4<vaxmips4>, same<word4>}};

constexpr converter real8[machines][machines] = {
    {same<word8>, by8<vaxmips8>, by8<vaxsun8>, by8<vaxmips8>, by8<vaxavms8>},
    {by8<mipsvax8>, same<word8>, by8<swap8>, same<word8>, by8<mipsavms8>},
    {by8<sunvax8>, by8<swap8>, same<word8>, by8<swap8>, by8<sunavms8>},
    {by8<mipsvax8>, same<word8>, by8<swap8>, same<word8>, by8<mipsavms8>},
    {by8<avmsvax8>, by8<avmsmips8>, by8<avmssun8>, by8<avmsmips8>, same<word8>}};

int source = mcvt_pc;
int target = mcvt_pc;
const converter *current_i2 = &same<word2>;
const converter *current_i4 = &same<word4>;
const converter *current_f4 = &same<word4>;
const converter *current_f8 = &same<word8>;

bool is_machine(int code)
{
    return code >= 1 && code <= machines;
}

} // namespace

void (*xmcvt_i2)(void *value) = same<word8>.one;
void (*xmcvt_i4)(void *value) = same<word8>.one;
void (*xmcvt_i8)(void *value) = same<word8>.one;
void (*xmcvt_f4)(void *value) = same<word8>.one;
void (*xmcvt_f8)(void *value) = same<word8>.one;
void (*xmcvt_c)(void *value) = same<word8>.one;
void (*xmcvt_s)(void *value, int n) = [](void *, int) {};

int setmcvt(int source_machine, int target_machine)
{
    if (!is_machine(source_machine) || !is_machine(target_machine))
        return -1;
    source = source_machine;
    target = target_machine;
    const bool reverse = reversed[source - 1][target - 1];
    current_i2 = reverse ? &by_words<word2, swap2> : &same<word2>;
    current_i4 = reverse ? &by4<swap4> : &same<word4>;
    current_f4 = &real4[source - 1][target - 1];
    current_f8 = &real8[source - 1][target - 1];
    xmcvt_i2 = current_i2->one;
    xmcvt_i4 = current_i4->one;
    xmcvt_i8 = reverse ? by8<swap8>.one : same<word8>.one;
    xmcvt_f4 = current_f4->one;
    xmcvt_f8 = current_f8->one;
    return 1;
}

void getmcvt(int *source_machine, int *target_machine)
{
    *source_machine = source;
    *target_machine = target;
}

void mcvt_i2(void *value)
{
    xmcvt_i2(value);
}

void mcvt_i4(void *value)
{
    xmcvt_i4(value);
}

void mcvt_i8(void *value)
{
    xmcvt_i8(value);
}

void mcvt_f4(void *value)
{
    xmcvt_f4(value);
}

void mcvt_f8(void *value)
{
    xmcvt_f8(value);
}

void mcvt_r4(void *value)
{
    xmcvt_f4(value);
}

void mcvt_r8(void *value)
{
    xmcvt_f8(value);
}

void mcvt_c(void *value)
{
    xmcvt_c(value);
}

void mcvt_s(void *value, int n)
{
    xmcvt_s(value, n);
}

void mcvt_run_i2(void *values, std::size_t n)
{
    current_i2->run(values, n);
}

void mcvt_run_i4(void *values, std::size_t n)
{
    current_i4->run(values, n);
}

void mcvt_run_f4(void *values, std::size_t n)
{
    current_f4->run(values, n);
}

void mcvt_run_f8(void *values, std::size_t n)
{
    current_f8->run(values, n);
}

void mcvt_copy_i2(void *copies, const void *values, std::size_t n)
{
    current_i2->copy(copies, values, n);
}

void mcvt_copy_i4(void *copies, const void *values, std::size_t n)
{
    current_i4->copy(copies, values, n);
}

void mcvt_copy_f4(void *copies, const void *values, std::size_t n)
{
    current_f4->copy(copies, values, n);
}

void mcvt_copy_f8(void *copies, const void *values, std::size_t n)
{
    current_f8->copy(copies, values, n);
}
