#include "wi/spconvert.h"

#include "dovsys/dovsys.h"
#include "wi/spnumber.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

// What a value is as a number and as a text; the text may lie in the buffer.
double number_of(const sp_value &val)
{
    switch (val.type) {
    case sp_array:
        return val.npts > 0 ? val.ary[0] : 0;
    case sp_string:
        return sp_read_number(val.string);
    case sp_scaler:
        return val.scaler;
    default:
        return 0;
    }
}

const char *text_of(const sp_value &val, sp_number_text &buffer)
{
    switch (val.type) {
    case sp_null:
        return sp_kind_name(sp_null);
    case sp_ename:
        return val.ename;
    case sp_string:
        return val.string;
    default:
        return sp_print_number(number_of(val), buffer).data();
    }
}

sp_value *one_element(double number)
{
    sp_value *array = sp_mk_array(1);
    array->ary[0] = number;
    return array;
}

sp_value *converted(const sp_value &val, int kind)
{
    sp_number_text buffer;
    switch (kind) {
    case sp_array:
        return one_element(number_of(val));
    case sp_ename: {
        sp_value *name = sp_get_blank_value();
        name->type = sp_ename;
        std::strcpy(name->ename, sp_kind_name(val.type));
        return name;
    }
    case sp_string:
        return sp_mk_string(text_of(val, buffer));
    case sp_scaler:
        return sp_mk_scaler(number_of(val));
    case sp_error:
        return sp_mk_error(val.type == sp_null ? "Manufactured error (NULL)." : "Manufactured error.");
    default:
        return sp_get_blank_value();
    }
}

// What from_chars() has found to be beyond the range of a double: infinity or 0. The position of the first digit that
// counts tells, since its exponent is far from either.
double beyond_range(std::string_view number, bool hex)
{
    const std::size_t mark = std::min(number.find_first_of(hex ? "pP" : "eE"), number.size());
    const std::string_view digits = number.substr(0, mark);
    const auto point = static_cast<std::int64_t>(std::min(digits.find('.'), digits.size()));
    const auto first = static_cast<std::int64_t>(digits.find_first_not_of("0."));
    std::string_view exponent = number.substr(std::min(mark + 1, number.size()));
    if (exponent.starts_with('+'))
        exponent.remove_prefix(1);
    constexpr std::int64_t far = std::int64_t{1} << 40;
    std::int64_t power = 0;
    const auto [past, error] = std::from_chars(exponent.data(), exponent.data() + exponent.size(), power);
    if (error == std::errc::result_out_of_range)
        power = exponent.starts_with('-') ? -far : far;
    return (point - first) * (hex ? 4 : 1) + std::clamp(power, -far, far) > 0 ? HUGE_VAL : 0;
}

bool is_space(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

} // namespace

sp_value *sp_convert(sp_context * /*context*/, const sp_value *val, int kind)
{
    static constexpr sp_value null{};
    const sp_value &from = val != nullptr ? *val : null;
    if (from.type == sp_error || (from.type == kind && kind != sp_null))
        return sp_cpval(&from);
    sp_value *result = converted(from, kind);
    if (from.type == sp_null)
        result->type = sp_null;
    return result;
}

double sp_read_number(std::string_view text)
{
    while (!text.empty() && is_space(text.front()))
        text.remove_prefix(1);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    const bool hex = text.starts_with("0x") || text.starts_with("0X");
    if (hex)
        text.remove_prefix(2);
    constexpr std::string_view hex_starts = ".0123456789abcdefABCDEF";
    if (text.starts_with('-') || (hex && text.find_first_of(hex_starts) != 0))
        return 0;
    double number = 0;
    const auto format = hex ? std::chars_format::hex : std::chars_format::general;
    const auto [past, error] = std::from_chars(text.data(), text.data() + text.size(), number, format);
    if (error == std::errc::result_out_of_range)
        number = beyond_range({text.data(), past}, hex);
    return negative ? -number : number;
}

std::string_view sp_print_number(double number, sp_number_text &buffer)
{
    if (!std::isfinite(number)) {
        const char *word = std::isnan(number) ? "nan" : number > 0 ? "inf" : "-inf";
        std::strcpy(buffer.data(), word);
        return buffer.data();
    }
    char *end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::general, 10).ptr;
    *end = '\0';
    return {buffer.data(), end};
}
