#include "dovsys/json.h"

#include <array>
#include <charconv>
#include <cmath>

void json_number(std::string &out, double value)
{
    if (!std::isfinite(value)) {
        out += std::isnan(value) ? "\"nan\"" : value > 0 ? "\"inf\"" : "\"-inf\"";
        return;
    }
    std::array<char, 32> digits;
    const auto [end, error] = std::to_chars(digits.begin(), digits.end(), value, std::chars_format::general, 17);
    out.append(digits.data(), end);
}

void json_integer(std::string &out, std::int64_t value)
{
    std::array<char, 24> digits;
    const auto [end, error] = std::to_chars(digits.begin(), digits.end(), value);
    out.append(digits.data(), end);
}

void json_string(std::string &out, std::string_view text)
{
    constexpr std::string_view hex = "0123456789abcdef";
    out += '"';
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 32 || code > 127) {
            out += "\\u00";
            out += hex[code / 16U];
            out += hex[code % 16U];
        } else {
            if (c == '"' || c == '\\')
                out += '\\';
            out += c;
        }
    }
    out += '"';
}
