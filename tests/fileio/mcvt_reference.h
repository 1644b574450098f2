// The conversions of reals once more, with arithmetic on sign, exponent and fraction instead of bits.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

struct real_format {
    int bytes;
    std::array<int, 8> order; // where the bytes lie, the most significant first
    int exponent_bits;
    enum { ieee, f, d, g } kind;
};

inline real_format format_of(int machine, int bytes)
{
    const bool vax = machine == 1 || machine == 5;
    const std::array<int, 8> order = vax            ? std::array<int, 8>{1, 0, 3, 2, 5, 4, 7, 6}
                                     : machine == 3 ? std::array<int, 8>{0, 1, 2, 3, 4, 5, 6, 7}
                                     : bytes == 4   ? std::array<int, 8>{3, 2, 1, 0}
                                                    : std::array<int, 8>{7, 6, 5, 4, 3, 2, 1, 0};
    if (bytes == 4)
        return {4, order, 8, vax ? real_format::f : real_format::ieee};
    return {8, order, machine == 1 ? 8 : 11, machine == 1 ? real_format::d : vax ? real_format::g : real_format::ieee};
}

struct real_parts {
    std::uint64_t sign;
    std::int64_t exponent;
    std::uint64_t fraction;
    bool nothing; // no bit is set
};

inline std::uint64_t power(int n)
{
    return std::uint64_t{1} << n;
}

inline real_parts split(const real_format &format, const unsigned char *bytes)
{
    std::uint64_t all = 0;
    for (int i = 0; i < format.bytes; ++i)
        all = all * 256 + bytes[format.order[static_cast<std::size_t>(i)]];
    const int fraction_bits = 8 * format.bytes - 1 - format.exponent_bits;
    return {all / power(8 * format.bytes - 1),
            static_cast<std::int64_t>(all / power(fraction_bits) % power(format.exponent_bits)),
            all % power(fraction_bits), all == 0};
}

inline void join(const real_format &format, const real_parts &parts, unsigned char *bytes)
{
    const int fraction_bits = 8 * format.bytes - 1 - format.exponent_bits;
    std::uint64_t all = parts.nothing
                            ? 0
                            : (parts.sign * power(format.exponent_bits) + static_cast<std::uint64_t>(parts.exponent)) *
                                      power(fraction_bits) +
                                  parts.fraction;
    for (int i = format.bytes; i-- > 0; all /= 256)
        bytes[format.order[static_cast<std::size_t>(i)]] = static_cast<unsigned char>(all % 256);
}

constexpr real_parts zero = {0, 0, 0, true};

inline real_parts f_or_ieee(real_parts p, bool to_f)
{
    if (!to_f)
        return p.exponent < 2 ? zero : real_parts{p.sign, p.exponent - 2, p.fraction, false};
    if (p.exponent < 1)
        return zero;
    return p.exponent >= 254 ? real_parts{p.sign, 255, power(23) - 1, false}
                             : real_parts{p.sign, p.exponent + 2, p.fraction, false};
}

inline real_parts to_d(real_parts p, int bias)
{
    if (p.exponent - bias < 1)
        return zero;
    return p.exponent - bias > 255 ? real_parts{p.sign, 255, power(55) - 1, false}
                                   : real_parts{p.sign, p.exponent - bias, p.fraction * 8, false};
}

inline real_parts from_d(real_parts p, bool g)
{
    if (g ? p.exponent == 0 : p.nothing)
        return zero;
    return {p.sign, p.exponent + (g ? 896 : 894), p.fraction / 8, false};
}

// Converts `bytes` of a real in place.
inline void convert_by_arithmetic(int from, int to, int size, unsigned char *bytes)
{
    const real_format source = format_of(from, size);
    const real_format target = format_of(to, size);
    real_parts parts = split(source, bytes);
    if (source.kind != target.kind) {
        if (size == 4) {
            parts = f_or_ieee(parts, target.kind == real_format::f);
        } else {
            if (source.kind != real_format::d)
                parts = to_d(parts, source.kind == real_format::g ? 896 : 894);
            if (target.kind != real_format::d)
                parts = from_d(parts, target.kind == real_format::g);
        }
    }
    join(target, parts, bytes);
}
